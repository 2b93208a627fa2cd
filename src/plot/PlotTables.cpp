#include "plot/PlotTables.h"

namespace tovrel {

PlotTable::PlotTable() { clear(); }

void PlotTable::clear() {
    rows_.clear();
    rows_.shrink_to_fit();
    countries_.clear();
    countryNumbers_.clear();
    texts_ = std::make_shared<Texts>();
}

void PlotTable::add(float latitude, float longitude, QsoStatus status, std::string_view call,
                    std::string_view country) {
    rows_.push_back({.latitude = latitude,
                     .longitude = longitude,
                     .status = status,
                     .country = countryNumber(country),
                     .call = keep(*texts_, call)});
}

std::uint32_t PlotTable::countryNumber(std::string_view country) {
    const auto known = countryNumbers_.find(country);
    if (known != countryNumbers_.end()) {
        return known->second;
    }
    const auto number = static_cast<std::uint32_t>(countries_.size());
    countries_.push_back(keep(*texts_, country));
    countryNumbers_.emplace(countries_.back(), number);
    return number;
}

void PlotTables::clear() { *this = {}; }

} // namespace tovrel
