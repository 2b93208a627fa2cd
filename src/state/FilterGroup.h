#pragma once

#include "platform/Signal.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tovrel {

/// The three criteria of a filter, in the order of the option windows.
enum class Criterion { Band, Mode, Iota };

/// All of them, in that order.
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

/// @return names that live as long as the program
const CriterionNames& namesOf(Criterion criterion);

/// The check boxes of one criterion. Member 0, "OFF", is selected exactly when no other is: picking
/// a member clears OFF, picking OFF clears all members, clearing the last member sets OFF again.
/// The rule runs on every change, whoever makes it.
class FilterGroup {
public:
    /// Starts with OFF alone selected.
    explicit FilterGroup(Criterion criterion) : criterion_(criterion) {}

    /// Settled when the group is made: only the selection changes.
    Criterion criterion() const { return criterion_; }

    /// Number of the last member: 12 bands, 3 kinds of mode, or 7 continents.
    int lastMember() const { return namesOf(criterion_).lastMember; }

    /// @param member 0 to lastMember()
    bool selected(int member) const { return (selection_ >> member & 1U) != 0; }

    /// Selects a member or clears it, as a click on its box does. One that is so already changes
    /// nothing; OFF alone can't be cleared.
    /// @param member 0 to lastMember()
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
    /// A QSO passes when each of the three lets it through, and one that is OFF lets all through.
    FilterGroup band{Criterion::Band};
    FilterGroup mode{Criterion::Mode};
    FilterGroup iota{Criterion::Iota};

    /// The one of the three that is the criterion's.
    FilterGroup& group(Criterion criterion);
    const FilterGroup& group(Criterion criterion) const;

    /// Puts all three back to OFF; each that changes by that tells its listeners.
    void reset();
};

/// What a filter lets through in a few words, "Band 20M, 15M; Mode CW"; empty for everything.
std::string filterWords(const Filter& filter);

} // namespace tovrel
