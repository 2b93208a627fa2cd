#include "stats/StatusLists.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace tovrel {
namespace {

const std::string blanks(60, ' ');

TEST(StatusLists, AnItemIsCallBlanksAndPlainNumbers) {
    EXPECT_EQ(itemText(Station{"W1AW", 1234.5, -0.0001}), "W1AW" + blanks + "|1234.5|-0.0001");
    EXPECT_EQ(itemText(Station{"", 10008.0352, 0.0}), blanks + "|10008.0352|0");
    EXPECT_EQ(itemText(Station{"X", 1e10, 1e-4}), "X" + blanks + "|10000000000|0.0001");
    const Station hidden{"ZL1A", std::nan(""), std::nan("")};
    EXPECT_EQ(itemText(hidden), "ZL1A" + blanks + "||");
    EXPECT_FALSE(hidden.shown());
    EXPECT_TRUE(Station{"W1AW"}.shown());
}

TEST(StatusLists, StandInTheOrderOfTheWholeItemText) {
    // Every pair of awkward calls and places, against the texts themselves.
    const std::string_view calls[] = {
        "",  "A",  "A ",    "A  B", "A\t",  "A!",   "AB",     "A\x01", "A ~",     "B",
        "a", "A|", "A\xC4", "A |1", "\x01", "W1AW", "W1AW/4", "W1AW=", "W1AW\x1F"};
    const double places[] = {0.0, -1.5, 2.0, 10.0, 100.25, std::nan("")};
    StationList list;
    std::vector<std::string> expected;
    for (const std::string_view call : calls) {
        for (const double y : places) {
            const Station station{call, y, std::isnan(y) ? y : 7.5 - y};
            list.add({station}, nullptr);
            expected.push_back(itemText(station));
        }
    }
    std::sort(expected.begin(), expected.end());
    std::vector<std::string> found;
    for (const Station& station : list.sorted())
        found.push_back(itemText(station));
    EXPECT_EQ(found, expected);
    for (const Station& a : list.sorted()) {
        for (const Station& b : list.sorted())
            ASSERT_EQ(itemLess(a, b), itemText(a) < itemText(b)) << itemText(a) << itemText(b);
    }
}

TEST(StatusLists, ManyItemsAreSortedTogether) {
    StatusLists lists;
    std::mt19937 random(1);
    constexpr int many = 400'000;
    for (int i = 0; i < many; ++i)
        lists.lstPfxNotPlotted.add("K" + std::to_string(random() % 50000));
    std::size_t inOrder = 0;
    for (int look = 0; look < 1000; ++look) // a view asks row by row
        inOrder += lists.lstPfxNotPlotted.sorted().size();
    EXPECT_EQ(inOrder, 1000U * many);
    lists.lstPfxNotPlotted.add("A1A");
    const std::size_t seen = lists.lstPfxNotPlotted.revision();
    const auto& calls = lists.lstPfxNotPlotted.sorted();
    EXPECT_TRUE(std::is_sorted(calls.begin(), calls.end()));
    EXPECT_EQ(lists.lstPfxNotPlotted.revision(), seen) << "looking changes nothing";
    lists.lstPfxNotPlotted.clear();
    EXPECT_GT(lists.lstPfxNotPlotted.revision(), seen);
}

TEST(StatusLists, KeepCopiesOfTheirTexts) {
    StatusLists lists;
    auto texts = std::make_shared<Texts>();
    std::string call = "OH2BH";
    lists.lstWorked.add({{keep(*texts, call), 1.0, 2.0}}, texts);
    lists.lstPfxNotPlotted.add(call);
    lists.lstPfxNotPlotted.add(std::string(200000, 'X')); // longer than what texts share
    lists.lstPfxNotPlotted.add("");
    texts.reset();
    call = "?????";
    EXPECT_EQ(lists.lstWorked.sorted()[0].call, "OH2BH");
    EXPECT_EQ(lists.lstPfxNotPlotted.sorted()[0], "");
    EXPECT_EQ(lists.lstPfxNotPlotted.sorted()[1], "OH2BH");
    EXPECT_EQ(lists.lstPfxNotPlotted.sorted()[2].size(), 200000U);
    lists.lstStats = {"a line"};
    lists.clear();
    EXPECT_EQ(lists.lstWorked.size() + lists.lstPfxNotPlotted.size() + lists.lstStats.size(), 0U);
}

} // namespace
} // namespace tovrel
