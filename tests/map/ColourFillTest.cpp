#include "map/ColourFill.h"

#include "map/BaseMap.h"
#include "map/MapColours.h"
#include "map/Pixels.h"

namespace tovrel {
namespace {

TEST(FillRegion, RoundsItsSeedToEven) {
    PictureSurface surface = whiteSurface(10, 10);
    for (int x = 0; x < 10; ++x)
        surface.SetPixel(x, 3, 0);
    FillRegion(4.5, 2.5, water, surface); // row 2
    EXPECT_EQ(surface.GetPixel(0, 0), water);
    EXPECT_EQ(surface.GetPixel(0, 9), white);
    FillRegion(4.5, 3.4, water, surface);
    EXPECT_EQ(inkOf(surface, 0).count, 0) << "on a line it repaints the line, and no more";
}

/// How many cells of a map the seeds make wet, which is cut into cells of 9 by 9 pixels.
int wetCells(const std::string& seeds, Projection projection) {
    PictureSurface surface(baseMapSize, baseMapSize);
    for (int i = 0; i < 667 * 67; ++i) {
        surface.SetPixel(i % 667, i / 667 * 10, 0);
        surface.SetPixel(i / 667 * 10, i % 667, 0);
    }
    MapPoint last;
    PaintWater(seeds, SeedRule::Shifted, *worldMap(projection, 40.0F, -74.0F), water, last,
               surface);
    return inkOf(surface, water).count / 81;
}

TEST(PaintWater, ScalesSeedsByTheirOwnRule) {
    // 333.33 and 66.66, not the 333 and 66 of the other fills, and 120 units a degree, not 122.
    const struct {
        const char* seed;
        Projection projection;
        int x, y;
    } cases[] = {{"51.5,0", Projection::Azimuthal, 399, 280},
                 {"-33.9,151.2", Projection::Azimuthal, 94, 354},
                 {"-70.5,170", Projection::Miller, 639, 587},
                 {"10,270", Projection::Miller, 159, 297}};
    for (const auto& c : cases) {
        PictureSurface surface(baseMapSize, baseMapSize);
        for (const auto& [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}})
            surface.SetPixel(c.x + dx, c.y + dy, 0); // a lake of one pixel
        MapPoint last;
        PaintWater(c.seed, SeedRule::Shifted, *worldMap(c.projection, 40.0F, -74.0F), water, last,
                   surface);
        EXPECT_EQ(inkOf(surface, water).count, 1) << c.seed;
        EXPECT_EQ(surface.GetPixel(c.x, c.y), water) << c.seed;
    }
}

TEST(PaintWater, TakesTheLinesThatItCan) {
    const struct {
        const char* seeds;
        int azimuthal; // cells that get wet
        int miller;
    } cases[] = {{"50,0\r\n\r\nno comma\r\n30,20\r\n", 2, 2},
                 {"50,0\n30,20", 2, 2},
                 {" 50.0 , -1.1e1 \r30,20\r", 2, 2},
                 {"50,0\r\nN50,20\r\n30,20\r\n", 1, 3}, // what converts not ends the one,
                 {"50,0\r\n,\r\n30,20\r\n", 1, 3},      // and counts as 0 in the other
                 {"50,0\r\n50 N,0 E\r\n30,20\r\n", 1, 2},
                 {"50,0\r\n-40,106\r\n30,20\r\n", 2, 3}}; // cut off: where the last one was
    for (const auto& c : cases) {
        EXPECT_EQ(wetCells(c.seeds, Projection::Azimuthal), c.azimuthal) << c.seeds;
        EXPECT_EQ(wetCells(c.seeds, Projection::Miller), c.miller) << c.seeds;
    }
}

} // namespace
} // namespace tovrel
