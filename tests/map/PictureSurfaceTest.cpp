#include "map/PictureSurface.h"

#include "map/MapColours.h"
#include "map/Pixels.h"
#include "map/mRotatedText.h"

#include <QColor>
#include <cmath>
#include <limits>

namespace tovrel {
namespace {

constexpr Colour red = 0x0000FF;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

/// A line between two positions in map units.
void drawLine(PictureSurface& surface, double x0, double y0, double x1, double y1) {
    surface.CurrentX = x0;
    surface.CurrentY = y0;
    surface.Line(x1, y1, red);
}

TEST(PictureSurface, MeasuresMapUnitsFromTheTopLeftAndRoundsToEven) {
    const PictureSurface surface(10000.0F, 10000.0F);
    EXPECT_EQ(surface.pixelWidth(), 667);
    EXPECT_EQ(surface.pixelX(-22000), 0.0);
    EXPECT_EQ(surface.pixelY(22000), 0.0) << "Y grows upward";
    EXPECT_EQ(surface.pixelX(0), 333.0);
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
    drawLine(surface, -10000, 0, 10000, 0);
    const Ink line = inkOf(surface, red);
    EXPECT_EQ(line.height(), 1);
    EXPECT_EQ(line.count, line.width());
    EXPECT_EQ(line.left, surface.pixelX(-10000));
    EXPECT_EQ(line.right, surface.pixelX(10000));
    surface.Line(10000, 9000);
    EXPECT_EQ(colourAt(surface, 10000, 5000), black) << "goes on in ForeColor";
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
                 {44000, -66000, -44000, 66000, -2000, 3000},
                 {-30000, 0, 0, 30000, -12000, 18000}};
    for (const auto& c : cases) {
        PictureSurface surface = whiteSurface(440, 440);
        drawLine(surface, c.x0, c.y0, c.x1, c.y1);
        const Ink near = inkWhere(surface, [&](int x, int y, Colour found) {
            return found == red && x == surface.pixelX(c.seenX) &&
                   std::abs(y - surface.pixelY(c.seenY)) <= 1;
        });
        EXPECT_GT(near.count, 0) << c.seenX;
        EXPECT_LE(inkOf(surface, red).count, 441);
    }
    PictureSurface surface = whiteSurface(44, 44);
    drawLine(surface, -40000, 10000, -10000, 40000);
    EXPECT_EQ(inkOver(surface, white).count, 0) << "passes the corner by";
}

TEST(PictureSurface, ABadCoordinateCostsItsOwnOperationAlone) {
    for (const double bad : {nan, infinity, -infinity, 1e300, -1.7e308, 3e9}) {
        PictureSurface surface = whiteSurface(50, 50);
        for (const auto& [x, y] : {std::pair{bad, 0.0}, {0.0, bad}, {bad, -bad}}) {
            surface.PSet(x, y, red);
            surface.Print(QStringLiteral("X"), {}, 450);
            surface.Circle(x, y, 1000);
        }
        surface.Circle(0, 0, bad);
        drawLine(surface, 0, nan, bad, bad);
        EXPECT_EQ(inkOver(surface, white).count, 0) << bad;
        drawLine(surface, -8800, 0, 8800, 0);
        EXPECT_EQ(inkOf(surface, red).count, 21) << bad;
    }
}

TEST(PictureSurface, TheFloodTakesTheConnectedRegionOfOneColourExactly) {
    // White that it takes, and that it must not; black, which holds it at the corners; near-white.
    const std::string rows[] = {"....#,,,#.", //
                                ".##..#,#..", //
                                ".#,#..#..o", //
                                ".##.#...o,", //
                                ".o..#.#..o", //
                                "..#...#..."};
    const auto forEachPixel = [&rows](const auto& visit) {
        for (std::size_t i = 0; i < std::size(rows) * 10; ++i)
            visit(static_cast<int>(i % 10), static_cast<int>(i / 10), rows[i / 10][i % 10]);
    };
    constexpr Colour nearWhite = 0xFEFFFF;
    PictureSurface surface = whiteSurface(10, 6);
    forEachPixel([&](int x, int y, char c) {
        surface.SetPixel(x, y, c == '#' ? black : c == 'o' ? nearWhite : white);
    });
    surface.ExtFloodFill(7, 3, red);
    surface.ExtFloodFill(7, 3, red); // already of that colour
    for (const auto& [x, y] : {std::pair{-1, 0}, {0, 6}, {10, 3}})
        surface.ExtFloodFill(x, y, black);
    forEachPixel([&](int x, int y, char c) {
        const Colour left = c == '#' ? black : c == 'o' ? nearWhite : c == ',' ? white : red;
        EXPECT_EQ(surface.GetPixel(x, y), left) << x << "," << y;
    });
}

TEST(PictureSurface, PixelsAreColoursWithRedInTheLowByte) {
    PictureSurface surface = whiteSurface(4, 3);
    surface.SetPixel(1, 2, 0x123456);
    EXPECT_EQ(QColor(surface.Image().pixel(1, 2)), QColor(0x56, 0x34, 0x12));
    for (const auto& [x, y] : {std::pair{-1, 0}, {0, -1}, {4, 0}, {0, 3}}) {
        surface.SetPixel(x, y, black);
        EXPECT_EQ(surface.GetPixel(x, y), 0xFFFFFFFFU);
    }
    EXPECT_EQ(inkOf(surface, 0x123456).count, inkOver(surface, white).count);
}

TEST(PictureSurface, StretchingFillsTheTargetAndShrinksByMeans) {
    PictureSurface source = whiteSurface(100, 100);
    for (int i = 0; i < 100 * 100; ++i) {
        const int x = i % 100;
        source.SetPixel(x, i / 100, x >= 50 ? red : (x + i / 100) % 2 ? black : white);
    }
    PictureSurface target = whiteSurface(50, 25);
    target.StretchBlt(source);
    EXPECT_NEAR(target.GetPixel(10, 12) & 0xFFU, 127, 16);
    EXPECT_EQ(target.GetPixel(49, 24), red);
    PictureSurface same = whiteSurface(100, 100);
    same.StretchBlt(source);
    EXPECT_EQ(same.Image(), source.Image());
}

TEST(PictureSurface, TextBeginsWithItsTopLeftCornerAndTurnsAboutIt) {
    const struct {
        int escapement;
        int Ink::*side;
        int Ink::*end; ///< of the side, where the text begins
        bool upright;
    } cases[] = {{0, &Ink::left, &Ink::top, false},
                 {900, &Ink::left, &Ink::bottom, true},
                 {-900, &Ink::right, &Ink::top, true},
                 {1800, &Ink::right, &Ink::bottom, false}};
    for (const auto& c : cases) {
        PictureSurface surface = whiteSurface(440, 440);
        surface.CurrentX = surface.CurrentY = 0;
        RotatedPrint(QStringLiteral("HHHHH"), 400, c.escapement, surface);
        const Ink ink = inkOver(surface, white);
        EXPECT_NEAR(ink.*c.side, 220, 5) << c.escapement;
        EXPECT_NEAR(ink.*c.end, 220, 5) << c.escapement;
        EXPECT_EQ(ink.height() > 2 * ink.width(), c.upright) << c.escapement;
        EXPECT_GT(ink.count, 100) << c.escapement;
    }
}

TEST(PictureSurface, AnotherSizeOrPictureDropsWhatWasDrawn) {
    PictureSurface surface = whiteSurface(30, 30);
    surface.BackColor = 0xE0E0E0;
    surface.PSet(0, 0, red);
    surface.setSize(twipsFromPixels(40), 307.0F);
    EXPECT_EQ(surface.Image().size(), QSize(40, 20));
    EXPECT_EQ(inkOver(surface, 0xE0E0E0).count, 0);
    surface.PSet(0, 0, red);
    QImage picture(10, 5, QImage::Format_ARGB32);
    picture.fill(Qt::blue);
    surface.setPicture(PackedPicture(picture));
    EXPECT_EQ(inkOf(surface, 0xFF0000).count, 50);
    EXPECT_EQ(inkOver(surface, 0xE0E0E0).count, 50);
    surface.setSize(-15.0F, nanf(""));
    EXPECT_EQ(surface.Image().size(), QSize(1, 1)) << "a size that can't be";
}

} // namespace
} // namespace tovrel
