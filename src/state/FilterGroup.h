#pragma once

#include "platform/Signal.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace tovrel {

/// The three criteria of a filter, in the order of the option windows.
enum class Criterion { Band, Mode, Iota };
inline constexpr std::array<Criterion, 3> allCriteria = {Criterion::Band, Criterion::Mode,
                                                         Criterion::Iota};

/// What stands for a criterion in the settings, on the screen and in a log.
struct CriterionNames {
    std::string_view key;     ///< settings key, to be followed by the member's number
    std::string_view heading; ///< over the boxes and in the filter texts
    std::string_view group;   ///< name told to assistive tools
    int lastMember;           ///< members are 0 ("OFF") to this one
    std::array<std::string_view, 13> captions; ///< of the boxes, also the values in a log from 1 on
};

const CriterionNames& namesOf(Criterion criterion);

/// The check boxes of one criterion. Member 0, "OFF", is selected exactly when no other is: picking
/// a member clears OFF, picking OFF clears all members, clearing the last member sets OFF again.
/// The rule runs on every change, whoever makes it.
class FilterGroup {
public:
    /// Starts with OFF alone selected.
    explicit FilterGroup(Criterion criterion) : criterion_(criterion) {}

    Criterion criterion() const { return criterion_; }
    int lastMember() const { return namesOf(criterion_).lastMember; }

    /// @param member 0 to lastMember()
    bool selected(int member) const { return (selection_ >> member & 1U) != 0; }
    void set(int member, bool on);

    /// Back to OFF alone.
    void reset() { select(1); }

    /// Takes over the selection of another group of the same criterion.
    void assign(const FilterGroup& other) { select(other.selection_); }

    /// Called after every change with the state already consistent.
    Signal<> changed;

private:
    void select(std::uint16_t selection);
    void switchMember(int member, bool on);
    void keepConsistent(int member);

    Criterion criterion_;
    std::uint16_t selection_ = 1;
};

/// The filter of one option window.
struct Filter {
    FilterGroup band{Criterion::Band};
    FilterGroup mode{Criterion::Mode};
    FilterGroup iota{Criterion::Iota};

    FilterGroup& group(Criterion criterion);
    const FilterGroup& group(Criterion criterion) const;
    void reset();
};

} // namespace tovrel
