#include "plot/HoverTip.h"
#include "plot/PlotTables.h"

#include <gtest/gtest.h>

#include <string>

namespace tovrel {
namespace {

constexpr TipParts callsOnly{.latLong = false, .country = false, .call = true};

class HoverTipTest : public testing::Test {
protected:
    void add(const std::string& call, double mapY, double mapX) {
        tables.plotTable.add({{46.5, -72.25}}, QsoStatus::Worked, call, "Country of " + call);
        tables.plotTable.rows().back().mapY = mapY;
        tables.plotTable.rows().back().mapX = mapX;
        tables.HoverTable.begin(tables.plotTable.size());
        for (const PlotRow& row : tables.plotTable.rows())
            tables.HoverTable.add(row.mapY, row.mapX);
        tables.HoverTable.finish();
    }
    std::string callsAt(double mapY, double mapX) const {
        return tipText(tables, callsOnly, mapY, mapX);
    }

    PlotTables tables;
};

TEST_F(HoverTipTest, FindsTheRowsFewerThanFiveStepsAwayInLogOrder) {
    // Halves go to the even step, of a row after its units were rounded.
    add("A", 0, 0);
    add("B", 250, 350);
    add("C", -450.4, 0);
    add("D", 0, 0);
    add("E", 22450, -22550);
    add("F", 1.0e9, -3.0e7); // where only a script can point
    const struct {
        double mapY, mapX;
        const char* calls;
    } cases[] = {{0, 0, "A  B  C  D  "},   {450, 0, "A  B  D  "},     {451, 0, "B  "},
                 {-449, -50, "A  C  D  "}, {-250, -450, "A  C  D  "}, {-250, -451, ""},
                 {450, 450, "A  B  D  "},  {650, 750, "B  "},         {651, 750, ""},
                 {650, 851, ""},           {-850, 450, "C  "},        {-851, 0, ""},
                 {22000, -22000, ""},      {22000, -22151, "E  "},    {22850, -22950, "E  "},
                 {22850, -23051, ""},      {1.0e9, -3.0e7, "F  "}};
    for (const auto& c : cases)
        EXPECT_EQ(callsAt(c.mapY, c.mapX), c.calls) << c.mapY << ", " << c.mapX;
    tables.HoverTable.clear();
    EXPECT_EQ(callsAt(0, 0), "");
}

TEST_F(HoverTipTest, ALongTipEndsWithTheNumberOfFurtherStations) {
    for (int i = 0; i < 100; ++i)
        add("K1AA", 0.0, 0.0);
    EXPECT_EQ(callsAt(0.0, 0.0).size(), 600U);
    for (const std::size_t longest : {11U, 6U})
        EXPECT_EQ(tipText(tables, callsOnly, 0.0, 0.0, longest), "K1AA  K1AA  ... and 98 more");
}

} // namespace
} // namespace tovrel
