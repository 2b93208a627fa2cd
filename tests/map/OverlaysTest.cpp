#include "map/Overlays.h"

#include "map/BaseMap.h"
#include "map/MapColours.h"
#include "map/Pixels.h"
#include "platform/TestDoubles.h"

#include <cmath>
#include <numbers>

namespace tovrel {
namespace {

/// Dark pixels within `reach` pixels of a place on a circle round the centre.
Ink inkNear(const PictureSurface& surface, double degrees, double radius, int reach) {
    const double angle = degrees * std::numbers::pi / 180.0;
    const double x = surface.pixelX(std::sin(angle) * radius);
    const double y = surface.pixelY(std::cos(angle) * radius);
    return inkWhere(surface, [=](int px, int py, Colour found) {
        return std::abs(px - x) <= reach && std::abs(py - y) <= reach && (found & 0xFFU) < 160;
    });
}

TEST(Compass, HasATickAndALabelAtEachStepAndNoneBetween) {
    for (const int step : {15, 45}) {
        PictureSurface surface(baseMapSize, baseMapSize);
        DrawCompass(surface, {.step = step, .bold = step == 45});
        for (int degrees = 0; degrees < 360; degrees += 15) {
            const bool marked = degrees % step == 0;
            EXPECT_EQ(inkNear(surface, degrees, 20200, 1).count > 0, marked) << degrees;
            EXPECT_EQ(inkNear(surface, degrees, 21100, 8).count > 10, marked) << degrees;
            EXPECT_EQ(inkNear(surface, degrees + 7.5, 20800, 12).count, 0) << degrees;
        }
        EXPECT_EQ(inkNear(surface, 0, 0, 200).count, 0) << "all of it lies outside the map";
    }
}

TEST(Compass, LabelsStandCentredOverTheirTicksAndTurnWithThem) {
    PictureSurface surface(baseMapSize, baseMapSize);
    DrawCompass(surface, {.step = 45});
    const Ink north = inkNear(surface, 0, 21350, 9);
    EXPECT_GT(north.width(), north.height());
    EXPECT_NEAR((north.left + north.right) / 2.0, 333, 6);
    EXPECT_LT(north.left, 333) << "begins left of north";
    for (const int degrees : {90, 270}) {
        const Ink label = inkNear(surface, degrees, 21350, 9);
        EXPECT_GT(label.height(), label.width()) << degrees;
        EXPECT_NEAR((label.top + label.bottom) / 2.0, 333, 6) << degrees;
    }
}

TEST(Graticule, StopsAtItsCutRoundTheAntipode) {
    PictureSurface surface = whiteSurface(667, 667);
    ScriptedListener listener;
    DrawGraticule(surface, *worldMap(Projection::Azimuthal, 10.0F, 20.0F), grey, listener);
    EXPECT_EQ(listener.yields, 18) << "once after each meridian";
    const auto inkFrom = [&](double radius) {
        return inkWhere(surface,
                        [&](int x, int y, Colour found) {
                            return found != white && std::hypot(x - 333.3, y - 333.3) * 66 > radius;
                        })
            .count;
    };
    EXPECT_GT(inkFrom(17500), 100);
    EXPECT_EQ(inkFrom(19000), 0);
    // No stroke jumps across the cut: none passes close to home but those that lie there, the
    // meridian of home and the parallels 0 and 15.
    EXPECT_EQ(colourAt(surface, 0, 5000), grey);
    EXPECT_EQ(colourAt(surface, 5000, -5000), white);
}

TEST(Graticule, OnTheMillerMapIsAGridOfStraightLines) {
    PictureSurface surface = whiteSurface(1100, 550);
    ScriptedListener listener;
    DrawGraticule(surface, *worldMap(Projection::Miller, 10.0F, 20.0F), grey, listener);
    for (int i = 0; i < 18; ++i)
        EXPECT_EQ(colourAt(surface, (i * 20 - 160) * 122.0, 7 * 240.0), grey) << i;
    for (int i = 0; i < 11; ++i)
        EXPECT_EQ(colourAt(surface, 10 * 122.0, (i * 15 - 75) * 240.0), grey) << i;
    EXPECT_EQ(colourAt(surface, 10 * 122.0, 7 * 240.0), white);
    const Ink grid = inkOf(surface, grey);
    EXPECT_EQ(grid.top, surface.pixelY(85 * 240)) << "meridians end at 85 degrees";
    EXPECT_EQ(grid.bottom, surface.pixelY(-85 * 240));
    EXPECT_EQ(grid.left, 1) << "parallels begin and end at 180 degrees";
    EXPECT_EQ(grid.right, 1099);
}

} // namespace
} // namespace tovrel
