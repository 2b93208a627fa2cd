#include "log/QsoFilter.h"

namespace tovrel {

namespace {

bool passesGroup(const FilterGroup& group, std::string_view value) {
    if (group.selected(0)) {
        return true;
    }
    const CriterionNames& names = namesOf(group.criterion());
    for (int member = 1; member <= names.lastMember; ++member) {
        if (group.selected(member) && names.captions[static_cast<std::size_t>(member)] == value) {
            return true;
        }
    }
    return false;
}

} // namespace

std::string_view modeGroupOf(std::string_view mode) {
    if (mode == "SSB") {
        return "Phone";
    }
    return mode == "CW" ? "CW" : "Digital";
}

bool passesFilter(const Filter& filter, std::string_view band, std::string_view mode,
                  std::string_view iota) {
    return passesGroup(filter.band, band) && passesGroup(filter.mode, modeGroupOf(mode)) &&
           passesGroup(filter.iota, iota.substr(0, 2));
}

} // namespace tovrel
