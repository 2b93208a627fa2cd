#include "map/MapColours.h"
#include "map/Overlays.h"
#include "map/Pixels.h"

#include <cmath>

namespace tovrel {
namespace {

constexpr Colour red = 0x0000FF;

TEST(Resolution, ScalesLinesCirclesAndLetters) {
    for (const double resolution : {1.0, 2.0, 3.0, 4.0, 7.0}) {
        PictureSurface surface(3000.0F, 3000.0F, resolution);
        const int times = static_cast<int>(resolution);
        EXPECT_EQ(surface.TwipsPerPixel(), 15.0 / resolution);
        EXPECT_EQ(surface.pixelWidth(), 200 * times);
        surface.CurrentX = -11000;
        surface.CurrentY = 30;
        surface.Line(11000, 30, red);
        EXPECT_EQ(inkOf(surface, red).height(), times) << resolution;
        EXPECT_NEAR(inkOf(surface, red).width(), 101 * times, 1);

        surface.Cls();
        surface.Circle(0, 0, 16500);
        const int ring = inkOf(surface, black).count;
        EXPECT_NEAR(ring / resolution / resolution, 2 * 3.14159 * 75, 50) << resolution;
        surface.ExtFloodFill(surface.pixelWidth() / 2, surface.pixelHeight() / 2, red);
        EXPECT_EQ(surface.GetPixel(0, 0), white) << "no gap at " << resolution;
        EXPECT_NEAR(inkOf(surface, red).width(), 150 * times, 3 * times);

        surface.Cls();
        surface.CurrentX = surface.CurrentY = 0;
        QFont font(QStringLiteral("Arial"));
        font.setPixelSize(18);
        surface.Print(QStringLiteral("H"), font);
        EXPECT_NEAR(inkOver(surface, white).height(), 13 * resolution, 2 + resolution / 2);
    }
}

TEST(Resolution, AThickLineHoldsAFillInEveryDirection) {
    // A polygon of many directions, its corners off the middles of pixels.
    for (const double width : {0.34, 0.5, 1.0}) {
        PictureSurface surface(3000.0F, 3000.0F, 4.0);
        surface.LineWidth = width;
        const double step = 2.39996; // every corner in a new direction
        for (int corner = 0; corner <= 60; ++corner) {
            const double angle = 6.28318530718 * corner / 60;
            const double radius = 15000 + 2000 * std::sin(step * (corner % 60));
            const double x = radius * std::cos(angle);
            const double y = radius * std::sin(angle);
            if (corner == 0) {
                surface.CurrentX = x;
                surface.CurrentY = y;
            }
            surface.Line(x, y, black);
        }
        surface.ExtFloodFill(400, 400, red);
        EXPECT_EQ(surface.GetPixel(0, 0), white) << width;
        EXPECT_EQ(surface.GetPixel(400, 300), red) << width;
    }
}

TEST(Resolution, ScalesMarksAndKeepsThemInTheMiddleOfEachOther) {
    for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 2.25, 3.0, 7.0}) {
        PictureSurface surface(3000.0F, 3000.0F, ratio);
        for (const int width : {5, 7, 9}) {
            surface.Cls();
            drawMark(surface, {100, -100}, {.outer = width, .inner = width - 2}, black, red);
            const Ink outer = inkOver(surface, white);
            const Ink inner = inkOf(surface, red);
            const double off = ratio == std::floor(ratio) ? 0.0 : 1.0;
            EXPECT_NEAR(outer.width(), width * ratio, off) << ratio;
            EXPECT_NEAR(inner.width(), (width - 2) * ratio, off) << ratio;
            EXPECT_EQ(outer.height(), outer.width()) << ratio;
            EXPECT_EQ(inner.left - outer.left, outer.right - inner.right) << ratio;
            EXPECT_EQ(inner.top - outer.top, outer.bottom - inner.bottom) << ratio;
            EXPECT_GE(inner.left, outer.left + 1) << ratio;
        }
    }
}

} // namespace
} // namespace tovrel
