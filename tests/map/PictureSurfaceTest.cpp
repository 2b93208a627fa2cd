#include "map/PictureSurface.h"

#include "map/MapColours.h"
#include "map/Pixels.h"
#include "map/mRotatedText.h"

#include <QColor>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace tovrel {
namespace {

constexpr Colour red = 0x0000FF;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(PictureSurface, MeasuresMapUnitsFromTheTopLeftAndRoundsToEven) {
    const PictureSurface surface(10000.0F, 10000.0F);
    EXPECT_EQ(surface.pixelWidth(), 667);
    EXPECT_EQ(surface.pixelX(-22000), 0.0);
    EXPECT_EQ(surface.pixelY(22000), 0.0);
    EXPECT_EQ(surface.pixelX(0), 333.0);
    EXPECT_EQ(surface.pixelY(0), 333.0);
    EXPECT_GT(surface.pixelY(-1000), surface.pixelY(1000)) << "Y grows upward";
    const PictureSurface ten = whiteSurface(10, 10);
    EXPECT_EQ(ten.pixelX(-22000 + 4400 * 2.5), 2.0);
    EXPECT_EQ(ten.pixelX(-22000 + 4400 * 3.5), 4.0);
}

TEST(PictureSurface, DotsAreDiscsOfTheirWidthAndCutOffAtTheEdge) {
    for (int width = 1; width <= 9; width += 2) {
        PictureSurface surface = whiteSurface(41, 41);
        surface.DrawWidth = width;
        surface.PSet(0, 0, red);
        const Ink disc = inkWhere(surface, [=](int x, int y, Colour found) {
            EXPECT_EQ(found == red, std::hypot(x - 20, y - 20) < width / 2.0) << x << "," << y;
            return found == red;
        });
        EXPECT_EQ(disc.width(), width);
        surface.Cls();
        surface.PSet(-22000, 22000, red);
        surface.PSet(21400, -21400, red);
        EXPECT_EQ(surface.GetPixel(0, 0), red);
        EXPECT_EQ(surface.GetPixel(40, 40), red);
        EXPECT_LE(inkOf(surface, red).count, disc.count + 1);
    }
}

TEST(PictureSurface, LinesRunFromTheCurrentPointOnePixelWide) {
    PictureSurface surface = whiteSurface(101, 101);
    surface.DrawWidth = 9; // of dots alone
    surface.CurrentX = -10000;
    surface.CurrentY = 0;
    surface.Line(10000, 0, red);
    const Ink line = inkOf(surface, red);
    EXPECT_EQ(line.height(), 1);
    EXPECT_EQ(line.count, line.width());
    EXPECT_EQ(line.left, surface.pixelX(-10000));
    EXPECT_EQ(line.right, surface.pixelX(10000));
    surface.Line(10000, 9000);
    EXPECT_EQ(colourAt(surface, 10000, 5000), black) << "goes on in ForeColor";
    EXPECT_EQ(surface.CurrentX, 10000);
    EXPECT_EQ(surface.CurrentY, 9000);
}

TEST(PictureSurface, LinesThatLeaveTheSurfaceAreClippedInPlace) {
    // Each line passes through the two points, wherever its ends lie.
    const struct {
        double x0, y0, x1, y1;
        double seenX, seenY;
    } cases[] = {{-1e9, -1e9, 1e9, 1e9, 10000, 10000},
                 {-22000, 0, 1e7, 0, 20000, 0},
                 {0, 66000, 0, -66000, 0, -20000},
                 {-66000, 44000, 66000, -44000, 3000, -2000},
                 {44000, -66000, -44000, 66000, -2000, 3000}};
    for (const auto& c : cases) {
        PictureSurface surface = whiteSurface(440, 440);
        surface.CurrentX = c.x0;
        surface.CurrentY = c.y0;
        surface.Line(c.x1, c.y1, red);
        bool near = false;
        for (int dy = -1; dy <= 1; ++dy)
            near |= colourAt(surface, c.seenX, c.seenY + 100 * dy) == red;
        EXPECT_TRUE(near) << c.seenX;
        EXPECT_LE(inkOf(surface, red).count, 441);
    }
    PictureSurface surface = whiteSurface(44, 44);
    surface.PSet(-30000, 0, red);
    surface.Line(0, 30000, red);
    EXPECT_GT(inkOf(surface, red).count, 0);
    surface.Cls();
    surface.PSet(-40000, 10000, red);
    surface.Line(-10000, 40000, red);
    EXPECT_EQ(inkOf(surface, red).count, 0) << "passes the corner by";
}

TEST(PictureSurface, ABadCoordinateCostsItsOwnOperationAlone) {
    for (const double bad : {nan, infinity, -infinity, 1e300, -1.7e308, 3e9}) {
        PictureSurface surface = whiteSurface(50, 50);
        for (const auto& [x, y] : {std::pair{bad, 0.0}, {0.0, bad}, {bad, -bad}}) {
            surface.PSet(x, y, red);
            surface.CurrentX = x;
            surface.CurrentY = y;
            surface.Print(QStringLiteral("X"), {}, 450);
            surface.Circle(x, y, 1000);
        }
        surface.Circle(0, 0, bad);
        EXPECT_EQ(inkOver(surface, white).count, 0) << bad;
        surface.PSet(0, 0, red);
        surface.Line(bad, bad, red);
        surface.Line(nan, 0, red);
        surface.Cls();
        surface.PSet(-8800, 0, red);
        surface.Line(8800, 0, red);
        EXPECT_EQ(inkOf(surface, red).count, 21) << bad;
    }
}

TEST(PictureSurface, AFillInsideACircleDoesNotLeak) {
    for (const int size : {40, 333, 667, 1200}) {
        for (const double radius : {2500.0, 19999.0, 20400.0}) {
            PictureSurface surface = whiteSurface(size, size);
            surface.Circle(0, 0, radius);
            surface.ExtFloodFill(size / 2, size / 2, red);
            const double pixels = radius / 44000 * size;
            const Ink disc = inkOf(surface, red);
            EXPECT_EQ(surface.GetPixel(0, 0), white);
            EXPECT_NEAR(disc.count, 3.14159 * pixels * pixels, 8 * pixels + 8) << size;
            EXPECT_NEAR(disc.width(), 2 * pixels, 3) << size;
        }
    }
}

TEST(PictureSurface, TheFloodTakesTheConnectedRegionOfOneColourExactly) {
    // Against a slow fill of its own kind, on noise of three colours.
    std::mt19937 random(7);
    for (int round = 0; round < 30; ++round) {
        constexpr int size = 24;
        PictureSurface surface = whiteSurface(size, size);
        const Colour colours[] = {white, 0xFEFFFF, black};
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x)
                surface.SetPixel(x, y, colours[random() % 8 < 5 ? 0 : 1 + random() % 2]);
        }
        const int seedX = static_cast<int>(random() % size);
        const int seedY = static_cast<int>(random() % size);
        const QImage before = surface.Image();
        const QRgb wanted = before.pixel(seedX, seedY);
        QImage expected = before;
        std::vector<QPoint> open{{seedX, seedY}};
        while (!open.empty()) {
            const QPoint p = open.back();
            open.pop_back();
            if (!expected.rect().contains(p) || expected.pixel(p) != wanted)
                continue;
            expected.setPixel(p, qRgb(255, 0, 0));
            for (const QPoint step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)})
                open.push_back(p + step);
        }
        surface.ExtFloodFill(seedX, seedY, red);
        EXPECT_EQ(surface.Image(), expected) << round;
    }
}

TEST(PictureSurface, TheFloodCopesWithBigSurfacesAndNoSeed) {
    constexpr int size = 1500;
    PictureSurface surface = whiteSurface(size, size);
    for (int x = 1; x < size; x += 2) { // a comb, so that the region winds through all rows
        const bool openAbove = x % 4 == 1;
        for (int y = openAbove ? 1 : 0; y < (openAbove ? size : size - 1); ++y)
            surface.SetPixel(x, y, black);
    }
    const int walls = inkOf(surface, black).count;
    surface.ExtFloodFill(0, 0, red);
    EXPECT_EQ(inkOf(surface, red).count, size * size - walls);
    surface.ExtFloodFill(0, 0, red); // already of that colour
    surface.ExtFloodFill(-1, 0, white);
    surface.ExtFloodFill(0, size, white);
    EXPECT_EQ(inkOf(surface, white).count, 0);
}

TEST(PictureSurface, PixelsAreColoursWithRedInTheLowByte) {
    PictureSurface surface = whiteSurface(4, 3);
    surface.SetPixel(1, 2, 0x123456);
    EXPECT_EQ(surface.GetPixel(1, 2), 0x123456U);
    EXPECT_EQ(QColor(surface.Image().pixel(1, 2)), QColor(0x56, 0x34, 0x12));
    for (const auto& [x, y] : {std::pair{-1, 0}, {0, -1}, {4, 0}, {0, 3}, {1 << 30, 1 << 30}}) {
        surface.SetPixel(x, y, black);
        EXPECT_EQ(surface.GetPixel(x, y), 0xFFFFFFFFU);
    }
    EXPECT_EQ(inkOver(surface, white).count, 1);
}

TEST(PictureSurface, StretchingFillsTheTargetAndShrinksByMeans) {
    PictureSurface source = whiteSurface(100, 100);
    for (int y = 0; y < 100; ++y) {
        for (int x = 0; x < 100; ++x)
            source.SetPixel(x, y, x < 50 ? ((x + y) % 2 ? black : white) : red);
    }
    PictureSurface target = whiteSurface(50, 25);
    target.StretchBlt(source);
    EXPECT_EQ(target.pixelWidth(), 50);
    EXPECT_EQ(target.pixelHeight(), 25);
    EXPECT_NEAR(target.GetPixel(10, 12) & 0xFFU, 127, 16);
    EXPECT_EQ(target.GetPixel(40, 12), red);
    EXPECT_EQ(target.GetPixel(49, 24), red);
    PictureSurface same = whiteSurface(100, 100);
    same.StretchBlt(source);
    EXPECT_EQ(same.Image(), source.Image());
}

TEST(PictureSurface, TextBeginsWithItsTopLeftCornerAndTurnsAboutIt) {
    const struct {
        int escapement;
        int left, top, right, bottom; // where ink may be, in letter heights from the corner
    } cases[] = {{0, 0, 0, 9, 1}, {900, 0, -9, 1, 0}, {-900, -1, 0, 0, 9}, {1800, -9, -1, 0, 0}};
    for (const auto& c : cases) {
        PictureSurface surface = whiteSurface(440, 440);
        surface.ForeColor = red;
        surface.CurrentX = surface.CurrentY = 0;
        RotatedPrint(QStringLiteral("HHHHH"), 400, c.escapement, surface);
        const auto inkWithin = [&](int left, int top, int right, int bottom) {
            return inkWhere(surface,
                            [=](int x, int y, Colour found) {
                                return found != white && x >= 220 + left && x <= 220 + right &&
                                       y >= 220 + top && y <= 220 + bottom;
                            })
                .count;
        };
        EXPECT_EQ(inkWithin(18 * c.left - 2, 18 * c.top - 2, 18 * c.right + 2, 18 * c.bottom + 2),
                  inkOver(surface, white).count)
            << c.escapement;
        EXPECT_GT(inkWithin(-18, -18, 18, 18), 20) << "near the corner, not a letter away from it";
        EXPECT_GT(inkOver(surface, white).count, 100) << c.escapement;
    }
}

TEST(PictureSurface, AnotherSizeOrPictureDropsWhatWasDrawn) {
    PictureSurface surface = whiteSurface(30, 30);
    surface.BackColor = 0xE0E0E0;
    surface.PSet(0, 0, red);
    surface.setSize(twipsFromPixels(40), 307.0F);
    EXPECT_EQ(surface.pixelWidth(), 40);
    EXPECT_EQ(surface.pixelHeight(), 20);
    EXPECT_EQ(inkOf(surface, red).count, 0);
    QImage picture(10, 5, QImage::Format_ARGB32);
    picture.fill(Qt::blue);
    surface.setPicture(picture);
    EXPECT_EQ(inkOf(surface, 0xFF0000).count, 50);
    EXPECT_EQ(inkOf(surface, 0xE0E0E0).count, 40 * 20 - 50);
    surface.setSize(-15.0F, nanf(""));
    surface.PSet(0, 0, red);
    EXPECT_GE(surface.pixelWidth(), 1) << "a size that can't be leaves a surface all the same";
}

} // namespace
} // namespace tovrel
