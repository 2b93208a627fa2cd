#include "state/FilterGroup.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

std::vector<int> selectedIn(const FilterGroup& group) {
    std::vector<int> members;
    for (int member = 0; member <= group.lastMember(); ++member) {
        if (group.selected(member))
            members.push_back(member);
    }
    return members;
}

TEST(FilterGroup, selectsOffExactlyWhenNoOtherMemberIsAndTellsEachChange) {
    const struct {
        const char* what;
        std::vector<std::pair<int, bool>> changes;
        std::vector<int> selected;
    } cases[] = {{"members add up, and the first clears OFF", {{3, true}, {1, true}}, {1, 3}},
                 {"picking OFF clears the members", {{3, true}, {1, true}, {0, true}}, {0}},
                 {"clearing one of two", {{3, true}, {1, true}, {3, false}}, {1}},
                 {"clearing the last sets OFF", {{3, true}, {3, false}}, {0}},
                 {"OFF alone can't be cleared", {{0, false}}, {0}},
                 {"clearing what is clear", {{2, false}}, {0}},
                 {"clearing OFF when it is clear", {{2, true}, {0, false}}, {2}},
                 {"picking what is picked", {{2, true}, {2, true}, {0, true}, {0, true}}, {0}}};
    for (const auto& c : cases) {
        FilterGroup group(Criterion::Band);
        EXPECT_TRUE(group.selected(0));
        for (const auto& [member, on] : c.changes) {
            const std::vector<int> before = selectedIn(group);
            std::vector<std::vector<int>> told;
            const Connection change =
                group.changed.connect([&] { told.push_back(selectedIn(group)); });
            group.set(member, on);
            // A box that was clicked off though it must stay on has to be shown on again.
            const bool again = before[0] == 0 && member == 0 && !on;
            EXPECT_EQ(told.size(), selectedIn(group) != before || again) << c.what;
            EXPECT_TRUE(told.empty() || told[0] == selectedIn(group)) << "settled when it is told";
        }
        EXPECT_EQ(selectedIn(group), c.selected) << c.what;
    }
}

} // namespace
} // namespace tovrel
