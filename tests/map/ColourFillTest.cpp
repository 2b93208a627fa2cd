#include "map/ColourFill.h"

#include "map/BaseMap.h"
#include "map/MapColours.h"
#include "map/Pixels.h"

#include <limits>

namespace tovrel {
namespace {

TEST(FillRegion, RoundsItsSeedToEvenAndBearsAnySeed) {
    PictureSurface surface = whiteSurface(10, 10);
    for (int x = 0; x < 10; ++x)
        surface.SetPixel(x, 3, 0);
    FillRegion(4.5, 2.5, water, surface); // row 2
    EXPECT_EQ(surface.GetPixel(0, 0), water);
    EXPECT_EQ(surface.GetPixel(0, 9), white);
    FillRegion(4.5, 3.4, water, surface);
    EXPECT_EQ(inkOf(surface, 0).count, 0) << "on a line it repaints the line, and no more";
    EXPECT_EQ(surface.GetPixel(0, 9), white);
    const QImage before = surface.Image();
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double bad : {infinity, -infinity, std::nan(""), 1e300, -0.6, 9.5})
        FillRegion(bad, 5.0, 0x123456, surface);
    EXPECT_EQ(surface.Image(), before);
}

/// A map cut into cells, ten pixels wide; tells which of them the seeds made wet.
class Cells {
public:
    Cells() : surface(baseMapSize, baseMapSize) {
        for (int i = 0; i < 667; ++i) {
            for (int line = 0; line < 667; line += 10) {
                surface.SetPixel(i, line, 0);
                surface.SetPixel(line, i, 0);
            }
        }
    }
    int paint(const std::string& seeds, Projection projection) {
        MapPoint last;
        PaintWater(seeds, *worldMap(projection, 40.0F, -74.0F), water, last, surface);
        return inkOf(surface, water).count / 81;
    }
    bool wet(int x, int y) const { return surface.GetPixel(x, y) == water; }

    PictureSurface surface;
};

TEST(PaintWater, ScalesSeedsByTheirOwnRule) {
    // 333.33 and 66.66, not the 333 and 66 of the other fills, and 120 units a degree, not 122.
    const struct {
        const char* seed;
        Projection projection;
        double x, y;
    } cases[] = {
        {"51.5,0", Projection::Azimuthal, 333.33 + 4357.72 / 66.66, 333.33 - 3562.63 / 66.66},
        {"-33.9,151.2", Projection::Azimuthal, 333.33 - 15925.64 / 66.66, 333.33 + 1387.6 / 66.66},
        {"-70.5,170", Projection::Miller, 333.33 + 170 * 120 / 66.66, 333.33 + 70.5 * 240 / 66.66},
        {"10,270", Projection::Miller, 333.33 - 11600 / 66.66, 333.33 - 2400 / 66.66}};
    for (const auto& c : cases) {
        PictureSurface surface(baseMapSize, baseMapSize);
        const int x = static_cast<int>(std::lround(c.x));
        const int y = static_cast<int>(std::lround(c.y));
        for (const auto& [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}})
            surface.SetPixel(x + dx, y + dy, 0); // a lake of one pixel
        MapPoint last;
        PaintWater(c.seed, *worldMap(c.projection, 40.0F, -74.0F), water, last, surface);
        EXPECT_EQ(inkOf(surface, water).count, 1) << c.seed;
        EXPECT_EQ(surface.GetPixel(x, y), water) << c.seed;
    }
}

TEST(PaintWater, TakesTheLinesThatItCan) {
    const struct {
        const char* seeds;
        int azimuthal; // cells that get wet
        int miller;
    } cases[] = {{"", 0, 0},
                 {"50,0\r\n\r\nno comma\r\n30,20\r\n", 2, 2},
                 {"50,0\n30,20", 2, 2},
                 {" 50.0 , -1.1e1 \r30,20\r", 2, 2},
                 {"50,0\r\nN50,20\r\n30,20\r\n", 1, 3}, // what converts not ends the one,
                 {"50,0\r\n,\r\n30,20\r\n", 1, 3},      // and counts as 0 in the other
                 {"50,0\r\n50 N,0 E\r\n30,20\r\n", 1, 2},
                 {"50,0\r\n-40,106\r\n30,20\r\n", 2, 3}, // cut off: where the last one was
                 {"50,0\r\n1e300,1e300\r\n30,20", -1, 2}};
    for (const auto& c : cases) {
        Cells azimuthal;
        const int wet = azimuthal.paint(c.seeds, Projection::Azimuthal);
        if (c.azimuthal >= 0) {
            EXPECT_EQ(wet, c.azimuthal) << c.seeds;
        }
        EXPECT_EQ(Cells().paint(c.seeds, Projection::Miller), c.miller) << c.seeds;
    }
}

} // namespace
} // namespace tovrel
