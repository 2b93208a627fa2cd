#include "stats/StatusLists.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace tovrel {
namespace {

const std::string blanks(60, ' ');

TEST(StatusLists, AnItemIsCallBlanksAndPlainNumbers) {
    EXPECT_EQ(itemText(Station{"W1AW", 1e10, -0.0001}), "W1AW" + blanks + "|10000000000|-0.0001");
    EXPECT_EQ(itemText(Station{"", std::nan(""), std::nan("")}), blanks + "||");
}

TEST(StatusLists, StandInTheOrderOfTheWholeItemText) {
    // Every pair of awkward calls and places, against the texts themselves.
    const std::string_view calls[] = {
        "",  "A",  "A ",    "A  B", "A\t",  "A!",   "AB",     "A\x01", "A ~",     "B",
        "a", "A|", "A\xC4", "A |1", "\x01", "W1AW", "W1AW/4", "W1AW=", "W1AW\x1F"};
    const double places[] = {0.0, -1.5, 2.0, 10.0, 100.25, std::nan("")};
    StationList list;
    list.add({{"two", 9.0, 1.0}, {"two", 10.0, 1.0}}, nullptr);
    for (const std::string_view call : calls) {
        for (const double y : places)
            list.add({{call, y, std::isnan(y) ? y : 7.5 - y}}, nullptr);
    }
    std::vector<std::string> found;
    for (const Station& station : list.sorted())
        found.push_back(itemText(station));
    EXPECT_EQ(found.size(), 2 + std::size(calls) * std::size(places));
    EXPECT_TRUE(std::is_sorted(found.begin(), found.end()));
    for (const Station& a : list.sorted()) {
        for (const Station& b : list.sorted())
            ASSERT_EQ(itemLess(a, b), itemText(a) < itemText(b)) << itemText(a) << itemText(b);
    }
}

TEST(StatusLists, ManyItemsAreSortedTogether) {
    CallList calls;
    std::mt19937 random(1);
    constexpr std::size_t many = 400'000;
    for (std::size_t i = 0; i < many; ++i)
        calls.add("K" + std::to_string(random() % 50000));
    for (int look = 0; look < 1000; ++look) // a view asks row by row
        ASSERT_EQ(calls.sorted().size(), many);
    calls.add("A1A");
    const std::size_t seen = calls.revision();
    EXPECT_TRUE(std::is_sorted(calls.sorted().begin(), calls.sorted().end()));
    EXPECT_EQ(calls.revision(), seen) << "looking changes nothing";
    calls.clear();
    EXPECT_GT(calls.revision(), seen);
}

TEST(StatusLists, KeepCopiesOfTheirTextsUntilTheyAreCleared) {
    StatusLists lists;
    auto texts = std::make_shared<Texts>();
    std::string call = "OH2BH";
    for (StationList* const list : {&lists.lstConfirmed, &lists.lstWorked, &lists.lstHeard})
        list->add({{keep(*texts, call), 1.0, 2.0}}, texts);
    lists.lstPfxNotPlotted.add(call);
    lists.lstPfxNotPlotted.add(std::string(200000, 'X')); // longer than what texts share
    lists.lstStats = {"a line"};
    texts.reset();
    call = "?????";
    EXPECT_EQ(lists.lstWorked.sorted()[0].call, "OH2BH");
    EXPECT_EQ(lists.lstPfxNotPlotted.sorted()[0], "OH2BH");
    EXPECT_EQ(lists.lstPfxNotPlotted.sorted()[1].size(), 200000U);
    lists.clear();
    EXPECT_EQ(lists.lstConfirmed.size() + lists.lstWorked.size() + lists.lstHeard.size(), 0U);
    EXPECT_EQ(lists.lstPfxNotPlotted.size() + lists.lstStats.size(), 0U);
}

} // namespace
} // namespace tovrel
