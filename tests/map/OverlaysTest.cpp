#include "map/Overlays.h"

#include "map/BaseMap.h"
#include "map/MapColours.h"
#include "map/Pixels.h"
#include "run/TestDoubles.h"

#include <cmath>
#include <numbers>

namespace tovrel {
namespace {

constexpr Colour grey = 0x808080;

/// Dark pixels within `reach` pixels of a place on a circle round the centre.
int inkNear(const PictureSurface& surface, double degrees, double radius, int reach) {
    const double angle = degrees * std::numbers::pi / 180.0;
    const int x = static_cast<int>(surface.pixelX(std::sin(angle) * radius));
    const int y = static_cast<int>(surface.pixelY(std::cos(angle) * radius));
    int count = 0;
    for (int py = y - reach; py <= y + reach; ++py) {
        for (int px = x - reach; px <= x + reach; ++px)
            count += (surface.GetPixel(px, py) & 0xFFU) < 160 ? 1 : 0;
    }
    return count;
}

TEST(Compass, HasATickAndALabelAtEachStepAndNoneBetween) {
    for (const int step : {15, 45}) {
        for (const bool bold : {false, true}) {
            PictureSurface surface(baseMapSize, baseMapSize);
            DrawCompass(surface, {.step = step, .bold = bold});
            for (int degrees = 0; degrees < 360; degrees += 15) {
                const bool marked = degrees % step == 0;
                EXPECT_EQ(inkNear(surface, degrees, 20200, 1) > 0, marked) << degrees;
                EXPECT_EQ(inkNear(surface, degrees, 21100, 8) > 10, marked) << degrees;
                EXPECT_EQ(inkNear(surface, degrees + 7.5, 20800, 12), 0) << degrees;
            }
            EXPECT_EQ(inkNear(surface, 0, 0, 200), 0) << "all of it lies outside the map";
        }
    }
}

TEST(Compass, LabelsStandCentredOverTheirTicksAndTurnWithThem) {
    PictureSurface surface(baseMapSize, baseMapSize);
    DrawCompass(surface, {.step = 45});
    const auto label = [&](int degrees) {
        const double angle = degrees * std::numbers::pi / 180.0;
        const double x = surface.pixelX(std::sin(angle) * 21200);
        const double y = surface.pixelY(std::cos(angle) * 21200);
        return inkWhere(surface, [&, x, y](int px, int py, Colour found) {
            const double out = std::hypot(px - 333.0, py - 333.0);
            return std::abs(px - x) < 40 && std::abs(py - y) < 40 && out > 311 &&
                   (found & 0xFFU) < 160;
        });
    };
    const Ink north = label(0);
    EXPECT_GT(north.width(), north.height());
    EXPECT_NEAR((north.left + north.right) / 2.0, 333, 6);
    EXPECT_LT(north.left, 333) << "begins left of north";
    const Ink east = label(90);
    EXPECT_GT(east.height(), east.width());
    EXPECT_NEAR((east.top + east.bottom) / 2.0, 333, 6);
    EXPECT_GT(east.left, 640);
    const Ink west = label(270);
    EXPECT_GT(west.height(), west.width());
    EXPECT_LT(west.right, 26);
}

TEST(Graticule, StopsAtItsCutRoundTheAntipode) {
    PictureSurface surface = whiteSurface(667, 667);
    ScriptedListener listener;
    DrawGraticule(surface, *worldMap(Projection::Azimuthal, 10.0F, 20.0F), grey, listener);
    EXPECT_EQ(listener.yields, 18) << "once after each meridian";
    const auto reach = [&](Colour colour, double from, double to) {
        return inkWhere(surface,
                        [&](int x, int y, Colour found) {
                            const double r = std::hypot(x - 333.3, y - 333.3) * 66;
                            return found == colour && r >= from && r <= to;
                        })
            .count;
    };
    EXPECT_GT(reach(grey, 17500, 18911), 100);
    EXPECT_EQ(reach(grey, 19000, 40000), 0);
    EXPECT_EQ(inkOver(surface, white).count, inkOf(surface, grey).count);
    // No stroke jumps across the cut: none passes close to home but those that lie there, the
    // meridian of home and the parallels 0 and 15.
    EXPECT_EQ(colourAt(surface, 0, 5000), grey);
    EXPECT_EQ(colourAt(surface, 5000, -5000), white);
}

TEST(Graticule, OnTheMillerMapIsAGridOfStraightLines) {
    PictureSurface surface = whiteSurface(1100, 550);
    ScriptedListener listener;
    DrawGraticule(surface, *worldMap(Projection::Miller, 10.0F, 20.0F), grey, listener);
    for (const int longitude : {-160, -20, 0, 40, 180}) {
        for (const int latitude : {-84, -50, 7, 84})
            EXPECT_EQ(colourAt(surface, longitude * 122.0, latitude * 240.0), grey) << longitude;
    }
    for (const int latitude : {-75, -30, 0, 15, 75}) {
        for (const int longitude : {-179, -33, 5, 177})
            EXPECT_EQ(colourAt(surface, longitude * 122.0, latitude * 240.0), grey) << latitude;
    }
    EXPECT_EQ(colourAt(surface, 10 * 122.0, 7 * 240.0), white);
    const Ink grid = inkOf(surface, grey);
    EXPECT_EQ(grid.top, surface.pixelY(85 * 240)) << "meridians end at 85 degrees";
    EXPECT_EQ(grid.bottom, surface.pixelY(-85 * 240));
}

} // namespace
} // namespace tovrel
