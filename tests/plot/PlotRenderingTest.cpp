#include "plot/PlotRendering.h"

#include "plot/PlotLog.h"

#include <cmath>

namespace tovrel {
namespace {

const char* const qsl = "<QSL_RCVD:1>Y";

std::string contact(const std::string& call, const char* west, const char* more = "") {
    return record({call, "51.5", west, "", "", "", more});
}

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
        PlotRun run(contact("G1A", "-0.001", qsl), c.projection);
        run.data.maps.inForce().marker = c.size;
        run.data.stats.legend().set(MapColour::Confirmed, 0x123456);
        run.data.stats.legend().set(MapColour::PlotOutline, 0x654321);
        run.plot();
        const Ink dot = run.ink(MapColour::Confirmed);
        EXPECT_EQ(run.ink().width(), c.outer);
        EXPECT_EQ(dot.width(), c.outer - 2);
        EXPECT_EQ(dot.height(), c.outer - 2);
        EXPECT_EQ(run.ink(MapColour::PlotOutline).count + dot.count, run.ink().count);
        EXPECT_NEAR(dot.left + c.outer / 2 - 1, run.surface.pixelX(c.x), 0.5);
        EXPECT_NEAR(dot.top + c.outer / 2 - 1, run.surface.pixelY(c.y), 0.5);
        EXPECT_EQ(run.surface.DrawWidth, 1);
        EXPECT_EQ(tipText(run.data.tables, {.call = true}, c.y, c.x), "G1A  ");
    }
}

TEST(PlotRendering, TheBestStatusLiesOnTopWhateverTheOrderOfTheLog) {
    const std::string h = contact("G1A=", "-1");
    const std::string w = contact("G1A", "-1");
    const std::string c = contact("G1A", "-1", qsl);
    const std::pair<std::string, MapColour> cases[] = {{c + h + w, MapColour::Confirmed},
                                                       {w + h, MapColour::Worked},
                                                       {h + w, MapColour::Worked},
                                                       {h, MapColour::Heard},
                                                       {w + c, MapColour::Confirmed}};
    for (const auto& [log, top] : cases) {
        PlotRun run(log);
        run.plot();
        EXPECT_GT(run.ink(top).count, 0);
        EXPECT_EQ(run.ink(top).count + run.ink(MapColour::PlotOutline).count, run.ink().count);
    }
}

TEST(PlotRendering, WithinAStatusTheLaterContactLiesOnTop) {
    PlotRun run(contact("G1A", "-1") + contact("G2A", "-3"));
    run.plot();
    const PlotRow& later = run.data.tables.plotTable.rows()[1];
    const int x = static_cast<int>(run.surface.pixelX(later.mapX));
    const int y = static_cast<int>(run.surface.pixelY(later.mapY));
    EXPECT_EQ(run.surface.GetPixel(x - 4, y), run.colour(MapColour::PlotOutline)) << "whole";
    EXPECT_EQ(run.surface.GetPixel(x - 3, y), run.colour(MapColour::Worked));
}

TEST(PlotRendering, HomeLiesOnTopOfAllWhenShown) {
    for (const bool shown : {true, false}) {
        PlotRun run(record({"W2A", "40", "74", "", "", "", qsl}), Projection::Miller);
        run.data.run.marks.mnuShowMe = shown;
        run.plot();
        EXPECT_EQ(run.ink(MapColour::Confirmed).count > 0, !shown);
        EXPECT_EQ(colourAt(run.surface, -74 * 122.0, 40 * 240.0),
                  run.colour(shown ? MapColour::Home : MapColour::Confirmed));
    }
}

TEST(PlotRendering, ListsHoldPlacesOfFourDecimals) {
    PlotRun run(contact("G1A", "-0.00001"));
    run.plot();
    const Station& station = run.data.stats.lists().lstWorked.sorted()[0];
    EXPECT_NEAR(station.mapX, 4357.7222, 0.001);
    EXPECT_NEAR(station.mapY, 3562.6290, 0.01);
    EXPECT_EQ(std::round(station.mapX * 1e4) / 1e4, station.mapX);
}

TEST(PlotRendering, AContactWithoutAPlaceOnTheMapIsListedAndShowsNothing) {
    const struct {
        Projection projection;
        const char *north, *west;
    } cases[] = {{Projection::Azimuthal, "-40", "-106"}, // the antipode
                 {Projection::Azimuthal, "-38", "-105"},
                 {Projection::Miller, "95", "10"},
                 {Projection::Miller, "-1e38", "1e38"},
                 {Projection::Miller, "10", "-1e9"}};
    for (const auto& c : cases) {
        PlotRun run(record({"VK6A", c.north, c.west}), c.projection);
        run.plot();
        EXPECT_EQ(run.counters(), "1 1 0 1 0 0");
        EXPECT_EQ(run.calls(run.data.stats.lists().lstWorked), "VK6A ");
        EXPECT_EQ(run.ink().count, 0) << c.north << ", " << c.west;
        const bool azimuthal = c.projection == Projection::Azimuthal;
        EXPECT_EQ(run.data.stats.lists().lstWorked.sorted()[0].shown(), !azimuthal);
        for (double y = -22000; y <= 22000; y += 400) {
            for (double x = -22000; x <= 22000; x += 400)
                ASSERT_EQ(tipText(run.data.tables, {.call = true}, y, x), "") << y << ", " << x;
        }
    }
}

} // namespace
} // namespace tovrel
