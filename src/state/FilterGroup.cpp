#include "state/FilterGroup.h"

#include <utility>

namespace tovrel {

const CriterionNames& namesOf(Criterion criterion) {
    static constexpr std::array<CriterionNames, 3> names = {{
        {"Band",
         "BAND",
         "Band",
         12,
         {"OFF", "2M", "6M", "10M", "12M", "15M", "17M", "20M", "30M", "40M", "60M", "80M",
          "160M"}},
        {"Mode", "MODE", "Mode", 3, {"OFF", "Phone", "CW", "Digital"}},
        {"IOTA", "IOTA", "IOTA", 7, {"OFF", "AF", "AN", "AS", "EU", "NA", "OC", "SA"}},
    }};
    return names[static_cast<std::size_t>(criterion)];
}

void FilterGroup::set(int member, bool on) {
    if (selected(member) == on)
        return;
    switchMember(member, on);
    keepConsistent(member);
    changed();
}

void FilterGroup::select(std::uint16_t selection) {
    if (selection_ == selection)
        return;
    selection_ = selection;
    changed();
}

void FilterGroup::switchMember(int member, bool on) {
    const auto bit = static_cast<std::uint16_t>(1U << member);
    selection_ = static_cast<std::uint16_t>(on ? selection_ | bit : selection_ & ~bit);
}

void FilterGroup::keepConsistent(int member) {
    if (member > 0) {
        switchMember(0, false);
    } else if (selected(0)) {
        selection_ = 1;
    }
    if (selection_ == 0)
        switchMember(0, true);
}

FilterGroup& Filter::group(Criterion criterion) {
    return const_cast<FilterGroup&>(std::as_const(*this).group(criterion));
}

const FilterGroup& Filter::group(Criterion criterion) const {
    switch (criterion) {
    case Criterion::Band:
        return band;
    case Criterion::Mode:
        return mode;
    case Criterion::Iota:
        break;
    }
    return iota;
}

void Filter::reset() {
    for (const Criterion criterion : allCriteria)
        group(criterion).reset();
}

std::string filterWords(const Filter& filter) {
    std::string words;
    for (const Criterion criterion : allCriteria) {
        const FilterGroup& group = filter.group(criterion);
        const CriterionNames& names = namesOf(criterion);
        const char* before = " ";
        for (int member = 1; member <= group.lastMember(); ++member) {
            if (!group.selected(member))
                continue;
            if (before[0] == ' ')
                words.append(words.empty() ? "" : "; ").append(names.group);
            words.append(before).append(names.captions[static_cast<std::size_t>(member)]);
            before = ", ";
        }
    }
    return words;
}

} // namespace tovrel
