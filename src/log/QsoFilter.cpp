#include "log/QsoFilter.h"

#include "platform/ByteText.h"

namespace tovrel {

namespace {

bool passesGroup(const FilterGroup& group, std::string_view value, LetterCase letters) {
    if (group.selected(0)) {
        return true;
    }
    const CriterionNames& names = namesOf(group.criterion());
    for (int member = 1; member <= names.lastMember; ++member) {
        const std::string_view name = names.captions[static_cast<std::size_t>(member)];
        if (group.selected(member) &&
            (letters == LetterCase::Any ? equalIgnoringCase(name, value) : name == value)) {
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

bool passesFilter(const Filter& filter, std::string_view band, std::string_view modeGroup,
                  std::string_view iota, LetterCase letters) {
    return passesGroup(filter.band, band, letters) &&
           passesGroup(filter.mode, modeGroup, letters) &&
           passesGroup(filter.iota, iota.substr(0, 2), letters);
}

} // namespace tovrel
