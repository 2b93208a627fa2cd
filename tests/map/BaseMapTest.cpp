#include "map/BaseMap.h"

#include "map/CoastFile.h"
#include "map/GreatCircle.h"
#include "map/Pixels.h"
#include "platform/TestFolder.h"
#include "run/TestDoubles.h"

namespace tovrel {
namespace {

constexpr Colour white = 0xFFFFFF;
constexpr Colour black = 0x000000;
constexpr Colour land = 0xC0FFC0;
constexpr Colour water = 0xFECDA5;
constexpr Colour outside = 0xE0E0E0;

/// Draws a base map from the files of a folder.
struct Drawn {
    Drawn(const TestFolder& folder, Projection projection, float homeLatitude = 30.0F) {
        BaseMapStyle style{.projection = projection, .HomeLatitude = homeLatitude};
        surface.DrawWidth = 1;
        done = drawBaseMap(surface, style, folder.path(), listener, prompt);
    }
    PictureSurface surface{baseMapSize, baseMapSize};
    ScriptedListener listener;
    ScriptedPrompt prompt;
    bool done = false;
};

TEST(BaseMap, WithoutItsFilesTellsAndShowsLandAlone) {
    const TestFolder empty;
    for (const Projection projection : {Projection::Azimuthal, Projection::Miller}) {
        const Drawn map(empty, projection);
        EXPECT_TRUE(map.done);
        EXPECT_EQ(map.prompt.told,
                  (std::vector<std::string>{"The databse file 'Mapper.pnt' not found.",
                                            "The databse file 'paintma.txt' not found."}));
        EXPECT_EQ(map.prompt.icons,
                  (std::vector{MessageIcon::Exclamation, MessageIcon::Exclamation}));
        EXPECT_TRUE(map.prompt.asked.empty()) << "no relief, no question";
        // The white of the south polar land took the land that it is one with.
        EXPECT_EQ(inkOf(map.surface, water).count, 0);
        EXPECT_EQ(colourAt(map.surface, 0, 0), white);
    }
}

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
        const Drawn map(folder, c.projection);
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
    const Drawn map(folder, Projection::Azimuthal, 0.0F);
    EXPECT_EQ(colourAt(map.surface, 0, 10000), water);
    EXPECT_EQ(colourAt(map.surface, 0, -10000), white) << "the southern half, whitened";
    EXPECT_EQ(colourAt(map.surface, -19850, 600), water);
    EXPECT_EQ(colourAt(map.surface, 19850, -600), white);
}

TEST(BaseMap, GarbageInItsFilesIsDrawnOrPassedOver) {
    const TestFolder folder;
    std::string garbage;
    for (unsigned i = 0; i < 30011; ++i)
        garbage += static_cast<char>(i * i * 31 + i / 7);
    folder.write("mapper.pnt", garbage);
    folder.write("paintma.txt", garbage + ",,,\n91,1e99\n-1e99,5\n");
    for (const Projection projection : {Projection::Azimuthal, Projection::Miller}) {
        const Drawn map(folder, projection);
        EXPECT_TRUE(map.prompt.told.empty());
        EXPECT_GT(inkOf(map.surface, black).count, 1000);
    }
}

TEST(BaseMap, TheSuppliedFilesMakeAWorld) {
    const struct {
        double latitude, longitude;
        bool sea;
    } cases[] = {{45, 90, false}, {-20, 130, false}, {0, 25, false},  {40, -100, false},
                 {0, -30, true},  {30, -150, true},  {-40, 80, true}, {-10, -60, false}};
    for (const Projection projection : {Projection::Azimuthal, Projection::Miller}) {
        PictureSurface surface(baseMapSize, baseMapSize);
        ScriptedListener listener;
        ScriptedPrompt prompt;
        drawBaseMap(surface,
                    {.projection = projection, .HomeLatitude = 50.0F, .HomeLongitude = 10.0F},
                    TOVREL_DATA_DIR, listener, prompt);
        EXPECT_TRUE(prompt.told.empty());
        for (const auto& c : cases) {
            ContactProjector projector(projection, 50.0F, 10.0F);
            MapPoint at;
            ASSERT_TRUE(projector.project(static_cast<float>(c.latitude),
                                          static_cast<float>(c.longitude), at));
            EXPECT_EQ(colourAt(surface, at.x, at.y), c.sea ? water : land)
                << c.latitude << ", " << c.longitude;
        }
    }
}

TEST(BaseMap, EachMapHasACacheOfItsOwn) {
    EXPECT_EQ(baseMapCacheName(Projection::Azimuthal), "GCBaseMap.map");
    EXPECT_EQ(baseMapCacheName(Projection::Miller), "MillerBaseMap.map");
}

} // namespace
} // namespace tovrel
