#include "map/BaseMap.h"

#include "map/CoastFile.h"
#include "map/MapColours.h"
#include "map/Pixels.h"
#include "platform/TestFolder.h"
#include "run/TestDoubles.h"

namespace tovrel {
namespace {

constexpr Colour outside = 0xE0E0E0;

/// Draws a base map from the files of a folder.
struct Drawn {
    Drawn(const std::string& folder, Projection projection, float latitude = 0.0F,
          float longitude = 0.0F)
        : map(worldMap(projection, latitude, longitude)) {
        drawBaseMap(surface, {.map = map.get(), .land = land, .water = water}, folder, listener,
                    prompt);
    }
    std::unique_ptr<const WorldMap> map;
    PictureSurface surface{baseMapSize, baseMapSize};
    ScriptedListener listener;
    ScriptedPrompt prompt;
};

TEST(BaseMap, PaintsLandSeaAndTheSouthPolarLand) {
    const TestFolder folder;
    folder.write("MAPPER.PNT", coastAlong(-60, -180, 182) + coastAlong(60, -180, 182));
    folder.write("paintma.txt", "0,0\r\n");
    const struct {
        Projection projection;
        double northX, northY, middleX, middleY, southX, southY;
    } cases[] = {{Projection::Azimuthal, 0, 6000, 0, 0, 0, -14000},
                 {Projection::Miller, 0, 18000, 0, 0, 0, -18000}};
    for (const auto& c : cases) {
        const Drawn map(folder.path(), c.projection, 30.0F);
        EXPECT_TRUE(map.prompt.told.empty()) << "found in any case";
        EXPECT_EQ(map.listener.yields, 2);
        EXPECT_EQ(colourAt(map.surface, c.northX, c.northY), land);
        EXPECT_EQ(colourAt(map.surface, c.middleX, c.middleY), water);
        EXPECT_EQ(colourAt(map.surface, c.southX, c.southY), white);
        const bool azimuthal = c.projection == Projection::Azimuthal;
        EXPECT_EQ(map.surface.GetPixel(0, 0) == outside, azimuthal);
        EXPECT_EQ(map.surface.GetPixel(666, 666) == outside, azimuthal);
        if (azimuthal) {
            EXPECT_EQ(colourAt(map.surface, 0, 20200), white) << "the ring between the circles";
            EXPECT_EQ(colourAt(map.surface, 20000, 0), black);
            EXPECT_EQ(colourAt(map.surface, 0, -20400), black);
        }
    }
}

TEST(BaseMap, TheSeaDoesNotRunRoundACoastThatIsCutAtTheAntipode) {
    // A coast right through the antipode of home: sea north of it, land south of it.
    const TestFolder folder;
    folder.write("mapper.pnt", coastAlong(0, -180, 180));
    folder.write("paintma.txt", "10,0\r\n");
    const Drawn map(folder.path(), Projection::Azimuthal);
    EXPECT_EQ(colourAt(map.surface, 0, 10000), water);
    EXPECT_EQ(colourAt(map.surface, 0, -10000), white) << "the southern half, whitened";
    EXPECT_EQ(colourAt(map.surface, -19850, 600), water);
    EXPECT_EQ(colourAt(map.surface, 19850, -600), white);
}

TEST(BaseMap, TheSuppliedFilesMakeAWorld) {
    const struct {
        double latitude, longitude;
        bool sea;
    } cases[] = {{45, 90, false}, {-20, 130, false}, {0, 25, false},  {40, -100, false},
                 {0, -30, true},  {30, -150, true},  {-40, 80, true}, {-10, -60, false}};
    for (const Projection projection : {Projection::Azimuthal, Projection::Miller}) {
        const Drawn map(TOVREL_DATA_DIR, projection, 50.0F, 10.0F);
        EXPECT_TRUE(map.prompt.told.empty());
        for (const auto& c : cases) {
            const MapPoint at = std::get<MapPoint>(
                map.map->position(static_cast<float>(c.latitude), static_cast<float>(c.longitude)));
            EXPECT_EQ(colourAt(map.surface, at.x, at.y), c.sea ? water : land)
                << c.latitude << ", " << c.longitude;
        }
    }
}

} // namespace
} // namespace tovrel
