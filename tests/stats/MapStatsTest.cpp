#include "stats/MapStats.h"

#include "platform/TestFolder.h"
#include "run/RunData.h"

#include <cmath>
#include <gtest/gtest.h>

namespace tovrel {
namespace {

struct MapStatsTest : testing::Test {
    MapStatsTest() {
        folder.write("x.ini",
                     "[Globals]\r\nLatitude=40\r\nLongitude=181\r\n"
                     "[GCMapOptions]\r\nHeardColor=111\r\nLineColor=222\r\nLine=3\r\nBand0=1\r\n"
                     "Mode2=1\r\nIOTA4=1\r\nIOTA7=1\r\n"
                     "[MCMapOptions]\r\nHeardColor=333\r\nLineColor=444\r\nLine=2\r\nBand0=0\r\n"
                     "Band1=1\r\nBand12=1\r\n");
        data.maps.loadBoxes(Projection::Azimuthal);
        data.maps.loadBoxes(Projection::Miller);
    }
    TestFolder folder;
    RunData data{folder.path(), "x.ini"};
    RunState& run = data.run;
    MapStats& stats = data.stats;
};

TEST_F(MapStatsTest, LoadsTheMapInForceWhenItIsToldToAndDropsAllWhenItCloses) {
    EXPECT_EQ(stats.legend().colour(MapColour::Heard), keyOf(MapColour::Heard).byDefault);
    EXPECT_FALSE(stats.loaded()) << "looking changes nothing";
    stats.load();
    EXPECT_EQ(stats.legend().colour(MapColour::Heard), 111U);
    EXPECT_EQ(data.maps.PlotLineWidth(), 3);
    EXPECT_EQ(stats.filterText(Criterion::Band), "BAND\r\n--------\r\nOFF\r\n");
    EXPECT_EQ(stats.filterText(Criterion::Iota), "IOTA\r\n--------\r\nEU\r\nSA\r\n");

    stats.lists().lstConfirmed.add({{"W1AW", 1, 2}}, nullptr);
    stats.legend().set(MapColour::Worked, 999);
    run.marks.projection = Projection::Miller;
    stats.unload();
    EXPECT_EQ(stats.lists().lstConfirmed.size(), 0U);
    stats.load();
    EXPECT_EQ(stats.legend().colour(MapColour::Heard), 333U);
    EXPECT_EQ(stats.legend().colour(MapColour::Worked), keyOf(MapColour::Worked).byDefault);
    EXPECT_EQ(data.maps.PlotLineWidth(), 2);
    EXPECT_EQ(stats.filterText(Criterion::Band), "BAND\r\n--------\r\n2M\r\n160M\r\n");
}

TEST_F(MapStatsTest, AStationGetsALineFromHome) {
    run.HomeLatitude = 40.0F;
    run.HomeLongitude = 181.0F;
    const struct {
        Projection projection;
        double fromX, fromY;
        int width;
        Colour colour;
    } cases[] = {{Projection::Azimuthal, 0, 0, 3, 222}, {Projection::Miller, -21918, 9600, 2, 444}};
    for (const auto& c : cases) {
        run.marks.projection = c.projection;
        stats.unload();
        stats.pickStation({"W1AW", 3562.6291, -4357.7215});
        const PlotLine::Shape& shape = data.lneGCPlotLine.shape();
        EXPECT_TRUE(shape.visible);
        EXPECT_EQ(std::pair(shape.fromX, shape.fromY), std::pair(c.fromX, c.fromY));
        EXPECT_EQ(std::pair(shape.toX, shape.toY), std::pair(-4357.7215, 3562.6291));
        EXPECT_EQ(std::pair(shape.width, shape.colour), std::pair(c.width, c.colour));
    }
    stats.pickStation({"VK6A", std::nan(""), std::nan("")});
    EXPECT_FALSE(data.lneGCPlotLine.shape().visible) << "a station at the antipode has no place";
}

} // namespace
} // namespace tovrel
