#include "map/BaseMap.h"

#include "map/CoastFile.h"
#include "map/MapColours.h"
#include "map/Pixels.h"
#include "platform/TestDoubles.h"
#include "platform/TestFolder.h"

namespace tovrel {
namespace {

constexpr Colour outside = 0xE0E0E0;

/// Draws a base map from the files of a folder.
struct Drawn {
    Drawn(const std::string& folder, Projection projection, float latitude = 0.0F,
          float longitude = 0.0F, double resolution = 1.0)
        : map(worldMap(projection, latitude, longitude)),
          surface(baseMapSize, baseMapSize, resolution) {
        drawBaseMap(surface, {.map = map.get(), .land = land, .water = water}, folder, listener,
                    prompt);
    }
    std::unique_ptr<const WorldMap> map;
    PictureSurface surface;
    ScriptedListener listener;
    ScriptedPrompt prompt;
};

TEST(BaseMap, PaintsLandSeaAndTheSouthPolarLand) {
    const TestFolder folder;
    folder.write("MAPPER.PNT", coastAlong(-60, -180, 182) + coastAlong(60, -180, 182));
    folder.write("paintma.txt", "0,0\r\n");
    const std::pair<Projection, std::vector<std::pair<MapPoint, Colour>>> cases[] = {
        {Projection::Azimuthal,
         {{{0, 6000}, land},
          {{0, 0}, water},
          {{0, -14000}, white},
          {{0, 20200}, white}, // the ring between the circles
          {{20000, 0}, black},
          {{0, -20400}, black},
          {{-22000, 22000}, outside},
          {{21900, -21900}, outside}}},
        {Projection::Miller, {{{-22000, 22000}, land}, {{0, 0}, water}, {{21900, -21900}, white}}}};
    for (const auto& [projection, places] : cases) {
        const Drawn map(folder.path(), projection, 30.0F);
        EXPECT_TRUE(map.prompt.told.empty()) << "found in any case";
        EXPECT_EQ(map.listener.yields, 2);
        for (const auto& [at, colour] : places)
            EXPECT_EQ(colourAt(map.surface, at.x, at.y), colour) << at.x << ", " << at.y;
    }
}

TEST(BaseMap, TheSeaDoesNotRunRoundACoastThatIsCutAtTheAntipode) {
    // A coast right through the antipode of home: sea north of it, land south of it.
    const TestFolder folder;
    folder.write("mapper.pnt", coastAlong(0, -180, 180));
    folder.write("paintma.txt", "10,0\r\n");
    const Drawn map(folder.path(), Projection::Azimuthal);
    EXPECT_EQ(colourAt(map.surface, 0, -10000), white) << "the southern half, whitened";
    EXPECT_EQ(colourAt(map.surface, -19850, 600), water);
    EXPECT_EQ(colourAt(map.surface, 19850, -600), white);
}

TEST(BaseMap, TheSuppliedFilesMakeAWorld) {
    const struct {
        float latitude, longitude;
        Colour colour;
        double resolution = 1.0; ///< the least that shows it
    } cases[] = {{45, 90, land},
                 {-20, 130, land},
                 {40, -100, land},
                 {-10, -60, land},
                 {0, -30, water},
                 {30, -150, water},
                 {-40, 80, water},
                 {-79.5F, -47.7F, white, 2}, // islands of the south polar land
                 {-79.3F, -161.8F, white, 2},
                 {-70.0F, -70.5F, white, 2},
                 {-80.4F, -61.7F, white, 2}};
    for (const Projection projection : allProjections) {
        for (const double resolution : {1.0, 2.0}) {
            const Drawn map(TOVREL_DATA_DIR, projection, 50.0F, 10.0F, resolution);
            EXPECT_TRUE(map.prompt.told.empty());
            for (const auto& c : cases) {
                const auto at = std::get<MapPoint>(map.map->position(c.latitude, c.longitude));
                EXPECT_TRUE(c.resolution > resolution ||
                            colourAt(map.surface, at.x, at.y) == c.colour)
                    << c.latitude << ", resolution " << resolution;
            }
        }
    }
}

} // namespace
} // namespace tovrel
