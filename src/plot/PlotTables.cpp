#include "plot/PlotTables.h"

#include "platform/Numbers.h"

#include <algorithm>

namespace tovrel {

PlotTable::PlotTable() { clear(); }

void PlotTable::clear() {
    rows_.clear();
    rows_.shrink_to_fit();
    countries_.clear();
    countryNumbers_.clear();
    texts_ = std::make_shared<Texts>();
}

void PlotTable::reserve(std::size_t rows) {
    constexpr std::size_t most = std::size_t{1} << 20U;
    rows_.reserve(std::min(rows, most));
}

void PlotTable::add(const ContactPlace& place, QsoStatus status, std::string_view call,
                    std::string_view country) {
    rows_.push_back({.latitude = toSingle(place.position.latitude),
                     .longitude = toSingle(place.position.longitude),
                     .status = status,
                     .from = place.from,
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
