#include "state/FilterGroup.h"

#include <gtest/gtest.h>
#include <random>

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

TEST(FilterGroup, selectsOffExactlyWhenNoOtherMemberIs) {
    const struct {
        const char* what;
        std::vector<std::pair<int, bool>> changes;
        std::vector<int> selected;
    } cases[] = {
        {"as made", {}, {0}},
        {"picking a member clears OFF", {{3, true}}, {3}},
        {"members add up", {{3, true}, {1, true}}, {1, 3}},
        {"picking OFF clears the members", {{3, true}, {1, true}, {0, true}}, {0}},
        {"clearing one of two", {{3, true}, {1, true}, {3, false}}, {1}},
        {"clearing the last sets OFF", {{3, true}, {3, false}}, {0}},
        {"OFF alone can't be cleared", {{0, false}}, {0}},
        {"clearing what is clear", {{2, false}}, {0}},
        {"clearing OFF when it is clear", {{2, true}, {0, false}}, {2}},
        {"picking what is picked", {{2, true}, {2, true}, {0, true}, {0, true}}, {0}},
    };
    for (const Criterion criterion : allCriteria) {
        for (const auto& c : cases) {
            FilterGroup group(criterion);
            for (const auto& [member, on] : c.changes)
                group.set(member, on);
            EXPECT_EQ(selectedIn(group), c.selected) << c.what;
        }
    }
}

TEST(FilterGroup, isConsistentAtEveryChangeThatItTells) {
    FilterGroup group(Criterion::Band);
    int told = 0;
    group.changed = [&] {
        ++told;
        const bool any = selectedIn(group) != std::vector<int>{0};
        EXPECT_EQ(group.selected(0), !any);
    };
    std::mt19937 random(3);
    for (int i = 0; i < 1000; ++i) {
        const std::vector<int> before = selectedIn(group);
        const int toldBefore = told;
        const int member = static_cast<int>(random() % 13U);
        const bool on = random() % 2U == 0;
        group.set(member, on);
        EXPECT_TRUE(!on || group.selected(member));
        if (selectedIn(group) != before) {
            EXPECT_EQ(told, toldBefore + 1);
        }
    }
    group.set(12, true);
    group.reset();
    EXPECT_EQ(selectedIn(group), std::vector<int>{0});
}

// A box that was clicked off though it must stay on has to be shown on again.
TEST(FilterGroup, tellsARefusedChangeToo) {
    FilterGroup group(Criterion::Iota);
    int told = 0;
    group.changed = [&] { ++told; };
    group.set(0, false);
    EXPECT_EQ(told, 1);
    group.set(0, true);
    EXPECT_EQ(told, 1);
}

} // namespace
} // namespace tovrel
