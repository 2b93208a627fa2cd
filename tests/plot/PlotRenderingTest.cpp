#include "plot/PlotRendering.h"

#include "plot/PlotLog.h"

#include <cmath>

namespace tovrel {
namespace {

constexpr Colour white = 0xFFFFFF;
constexpr Colour outline = 0x000000;
constexpr Colour confirmed = 0x40FF00;
constexpr Colour worked = 0x0000FF;
constexpr Colour heard = 0xFF0000;
constexpr Colour home = 0x00FFFF;
const char* const qsl = "<QSL_RCVD:1>Y";

TEST(PlotRendering, MarksLieAtTheirPlacesInTheSizeAndTheColoursOfNow) {
    const struct {
        Projection projection;
        MarkerSize size;
        int outer;
        double x, y;
    } cases[] = {{Projection::Azimuthal, MarkerSize::Small, 5, 4357.72, 3562.63},
                 {Projection::Azimuthal, MarkerSize::Medium, 7, 4357.72, 3562.63},
                 {Projection::Azimuthal, MarkerSize::Large, 9, 4357.72, 3562.63},
                 {Projection::Miller, MarkerSize::Small, 5, 122 * 0.001, 240 * 51.5}};
    for (const auto& c : cases) {
        PlotRun run(record({"G1A", "51.5", "-0.001", "", "", "", qsl}), c.projection);
        run.data.maps.inForce().marker = c.size;
        run.data.stats.legend().set(MapColour::Confirmed, 0x123456);
        run.data.stats.legend().set(MapColour::PlotOutline, 0x654321);
        run.plot();
        const int inner = c.outer - 2;
        const Ink ring = inkOver(run.surface, white);
        const Ink dot = inkOf(run.surface, 0x123456);
        EXPECT_EQ(ring.width(), c.outer);
        EXPECT_EQ(dot.width(), inner);
        EXPECT_EQ(dot.height(), inner);
        EXPECT_EQ(inkOf(run.surface, 0x654321).count, ring.count - dot.count);
        EXPECT_NEAR(dot.left + (inner - 1) / 2, run.surface.pixelX(c.x), 0.5);
        EXPECT_NEAR(dot.top + (inner - 1) / 2, run.surface.pixelY(c.y), 0.5);
        EXPECT_EQ(run.surface.DrawWidth, 1);
    }
}

TEST(PlotRendering, TheBestStatusLiesOnTopWhateverTheOrderOfTheLog) {
    const std::string h = record({"G1A=", "51.5", "-1", "", "", "", ""});
    const std::string w = record({"G1A", "51.5", "-1", "", "", "", ""});
    const std::string c = record({"G1A", "51.5", "-1", "", "", "", qsl});
    const struct {
        std::string log;
        Colour top;
    } cases[] = {{c + h + w, confirmed}, {w + h, worked},   {h + w, worked}, {h, heard},
                 {c + w, confirmed},     {h + c, confirmed}};
    for (const Projection projection : {Projection::Azimuthal, Projection::Miller}) {
        for (const auto& each : cases) {
            PlotRun run(each.log, projection);
            run.plot();
            const Ink mark = inkOver(run.surface, white);
            EXPECT_EQ(inkOf(run.surface, each.top).count + inkOf(run.surface, outline).count,
                      mark.count);
            EXPECT_GT(inkOf(run.surface, each.top).count, 0);
        }
    }
}

TEST(PlotRendering, WithinAStatusTheLaterContactLiesOnTop) {
    PlotRun run(record({"G1A", "51.5", "-1", "", "", "", ""}) +
                record({"G2A", "51.5", "-3", "", "", "", ""}));
    run.plot();
    const PlotRow& later = run.data.tables.plotTable.rows()[1];
    const int x = static_cast<int>(run.surface.pixelX(later.mapX));
    const int y = static_cast<int>(run.surface.pixelY(later.mapY));
    EXPECT_EQ(run.surface.GetPixel(x - 4, y), outline) << "its ring is whole";
    EXPECT_EQ(run.surface.GetPixel(x - 3, y), worked);
}

TEST(PlotRendering, HomeLiesOnTopOfAllWhenShown) {
    for (const Projection projection : {Projection::Azimuthal, Projection::Miller}) {
        for (const bool shown : {true, false}) {
            PlotRun run(record({"W2A", "40", "74", "", "", "", qsl}), projection);
            run.data.run.marks.mnuShowMe = shown;
            run.plot();
            EXPECT_EQ(inkOf(run.surface, home).count > 0, shown);
            if (shown && projection == Projection::Miller) {
                EXPECT_EQ(inkOf(run.surface, confirmed).count, 0);
                EXPECT_EQ(colourAt(run.surface, -74 * 122.0, 40 * 240.0), home);
            }
        }
    }
}

TEST(PlotRendering, ListsHoldPlacesOfFourDecimals) {
    PlotRun azimuthal(record({"G1A", "51.5", "-0.00001", "", "", "", ""}));
    azimuthal.plot();
    const Station& station = azimuthal.data.stats.lists().lstWorked.sorted()[0];
    EXPECT_NEAR(station.mapX, 4357.7222, 0.001);
    EXPECT_NEAR(station.mapY, 3562.6290, 0.01);
    EXPECT_EQ(std::round(station.mapX * 1e4) / 1e4, station.mapX);
    EXPECT_EQ(azimuthal.data.tables.plotTable.rows()[0].mapX, station.mapX);

    const struct {
        const char* west;
        double x;
    } cases[] = {{"-180", 21960}, {"-181", -21918}, {"180", -21960}, {"-12.3456", 1506.1632}};
    for (const auto& c : cases) {
        PlotRun miller(record({"G1A", "90", c.west, "", "", "", ""}), Projection::Miller);
        miller.plot();
        const Station& place = miller.data.stats.lists().lstWorked.sorted()[0];
        EXPECT_NEAR(place.mapX, c.x, 0.0002) << c.west;
        EXPECT_EQ(place.mapY, 21600.0);
    }
}

TEST(PlotRendering, AContactAtTheAntipodeIsCountedAndListedWithoutAMark) {
    PlotRun run(record({"VK6A", "-40", "-106", "", "", "", qsl}) +
                record({"G1A", "51.5", "-1", "", "", "", qsl}));
    run.plot();
    EXPECT_EQ(run.counters(), "2 2 2 0 0 0");
    EXPECT_EQ(inkOver(run.surface, white).width(), 9) << "one mark, not two at the same place";
    EXPECT_EQ(run.calls(run.data.stats.lists().lstConfirmed), "G1A VK6A ");
    EXPECT_FALSE(run.data.stats.lists().lstConfirmed.sorted()[1].shown());
    EXPECT_FALSE(run.data.tables.plotTable.rows()[0].shown());
    EXPECT_TRUE(run.data.tables.plotTable.rows()[1].shown());
}

TEST(PlotRendering, AContactOffTheMapIsListedAndShowsNothing) {
    for (const auto& [latitude, longitude] :
         {std::pair{"95", "10"}, {"-1e38", "1e38"}, {"10", "-1e9"}}) {
        PlotRun run(record({"G1A", latitude, longitude, "", "", "", ""}), Projection::Miller);
        run.plot();
        EXPECT_EQ(run.counters(), "1 1 0 1 0 0");
        EXPECT_EQ(run.calls(run.data.stats.lists().lstWorked), "G1A ");
        EXPECT_EQ(inkOver(run.surface, white).count, 0) << latitude << ", " << longitude;
    }
}

} // namespace
} // namespace tovrel
