#include "run/TestProgram.h"

namespace tovrel {
namespace {

constexpr Colour reliefColour = 0x224466;

/// A plain world picture for the relief.
std::string writeWorld(const TestFolder& folder, int height = 54) {
    QImage world(2 * height, height, QImage::Format_RGB32);
    world.fill(imageColour(reliefColour));
    EXPECT_TRUE(SavePicture(world, folder.path("world.bmp")));
    return folder.path("world.bmp");
}

bool showsRelief(const TestProgram& program) {
    return inkOf(program.map->Picture1, reliefColour).count > 0;
}

TEST(ProjectionSwitch, ShowsTheOtherMapWithThePlotOnIt) {
    PlottedProgram program;
    const struct {
        Projection map;
        const char* caption;
        float width, height;
    } cases[] = {
        {Projection::Miller, "Tovrel - Miller Cylindrical Projection", 7000, 3500},
        {Projection::Azimuthal, "Tovrel - Azimuthal Equidistant Projection", 7100, 8000},
        {Projection::Miller, "Tovrel - Miller Cylindrical Projection", 7000, 3500}}; // its cache
    for (const auto& c : cases) {
        program.data->maps.of(c.map).filter.band.set(3, true); // not applied
        c.map == Projection::Miller ? program.commands->mnuMiller()
                                    : program.commands->mnuGreatCircle();
        EXPECT_EQ(program.window.takeCalls(), "hide,center,show,timer off");
        EXPECT_EQ(program.data->run.marks.projection, c.map);
        EXPECT_EQ(program.window.caption, c.caption);
        EXPECT_EQ(program.setting("Globals", "Display"), namesOf(c.map).display);
        EXPECT_EQ(program.look(), "world home plot ") << "drawn with its own units of home";
        EXPECT_EQ(program.mapAt(20, -156), confirmedColour);
        EXPECT_EQ(program.mapAt(50, -20), homeColour);
        EXPECT_EQ(program.window.width, c.width);
        EXPECT_EQ(program.window.height, c.height);
    }
    program.window.height = 7777.0F;
    program.commands->mnuMiller();
    EXPECT_EQ(program.window.height, 7777.0F) << "the map on show keeps its size";
}

TEST(ProjectionSwitch, OpensTheStatisticsAfreshWithTheOtherPalette) {
    PlottedProgram program(home +
                           "[GCMapOptions]\r\nHeardColor=1\r\n[MCMapOptions]\r\nHeardColor=2\r\n");
    EXPECT_EQ(program.data->stats.legend().colour(MapColour::Heard), 1U);
    program.window.statsShown = true;
    program.commands->mnuMiller();
    EXPECT_EQ(program.window.takeCalls(),
              "hide stats,hide,center,show,close stats,view stats,timer off");
    EXPECT_EQ(program.data->stats.legend().colour(MapColour::Heard), 2U);
    EXPECT_EQ(program.data->stats.lists().lstConfirmed.size(), 1U) << "the replot fills it again";
}

TEST(ProjectionSwitch, WithoutACacheSwitchesGraticuleAndReliefOff) {
    PlottedProgram program(home + "[MCMapOptions]\r\nMeridian=True\r\nTopo=True\r\n");
    program.commands->mnuMiller();
    EXPECT_EQ(program.look(), "world home plot ");
    EXPECT_EQ(program.setting("MCMapOptions", "Meridian"), "False");
    EXPECT_EQ(program.setting("MCMapOptions", "Topo"), "False");
    EXPECT_TRUE(program.prompt.asked.empty());
}

TEST(Topo, AsksAndKeepsTheAnswer) {
    for (const bool agreed : {false, true}) {
        PlottedProgram program;
        program.map->loadMapPix(writeWorld(program.folder));
        program.prompt.answer = agreed;
        bool waiting = false;
        program.listener.onYield = [&](int) { waiting = program.window.waitPointer; };
        program.commands->mnuTopo();
        EXPECT_TRUE(waiting) << "to the end of what takes its time";
        EXPECT_EQ(program.prompt.asked.size(), 1U);
        EXPECT_EQ(program.data->run.marks.mnuTopo, agreed);
        EXPECT_EQ(program.takeChanges(), agreed ? "Topo=True " : "");
        EXPECT_EQ(showsRelief(program), agreed);
        EXPECT_EQ(program.look(agreed ? reliefColour : land), "world home ")
            << "whole either way, without the plot";
        EXPECT_TRUE(program.data->run.MapPlotted);
        EXPECT_FALSE(program.window.waitPointer);
        program.commands->mnuTopo();
        EXPECT_FALSE(showsRelief(program));
    }
}

TEST(RecreateMap, BringsANewHomeToTheMapAndToItsCache) {
    PlottedProgram program;
    program.data->ini.WriteIniValue("Globals", "Latitude", "-30");
    program.data->ini.WriteIniValue("Globals", "Longitude", "20");
    program.commands->mnuRecreateMap();
    EXPECT_EQ(program.data->run.HomeLatitude, -30.0F);
    EXPECT_EQ(program.look(), "world home ");
    EXPECT_EQ(program.mapAt(-30, 20), homeColour);
    const QImage now = program.map->Picture2.Image();
    program.restart();
    program.start();
    EXPECT_EQ(program.map->Picture2.Image(), now);
}

TEST(CustomMap, IsKeptForItsMapAndServesTheRelief) {
    PlottedProgram program(settingsOf(Projection::Miller));
    program.commands->mnuLoadCustomMap();
    EXPECT_EQ(program.window.fileDialogs[0],
              "Select Base Map for Miller Projection|" + program.folder.path() +
                  "|JPG Files (*.JPG)|*.JPG|BMP Files (*.BMP)|*.BMP");
    EXPECT_EQ(program.look(), "world home plot ") << "cancelled: all stays";
    EXPECT_EQ(program.takeChanges(), "");

    program.data->run.marks.mnuTopo = true;
    for (const std::string& file :
         {writeWorld(program.folder, 700), program.folder.write("bad.jpg", "no picture")}) {
        program.window.chosenFile = file;
        program.commands->mnuLoadCustomMap();
        EXPECT_EQ(program.setting("MCMapOptions", "BaseMap"), file);
        EXPECT_EQ(colourAt(program.map->Picture1, 0, -21582), reliefColour)
            << "Antarctica too, and of the picture before when this one is bad";
    }
    const std::vector<std::string> unusable = {"The picture could not be used.\r\n" +
                                               program.folder.path("bad.jpg") +
                                               "\r\nUnsupported image format"};
    EXPECT_EQ(program.prompt.told, unusable);
    program.restart(); // it is the stored one now
    program.start();
    const std::string cache = program.folder.read("MillerBaseMap.map");
    program.prompt.told.clear();
    program.commands->mnuRecreateMap();
    EXPECT_FALSE(showsRelief(program)) << "the built-in picture serves";
    EXPECT_EQ(program.prompt.told, unusable);
    EXPECT_TRUE(program.folder.read("MillerBaseMap.map") == cache) << "until the user's is back";
}

TEST(BaseColours, AreStoredAndRebuiltWhenTheyChange) {
    const struct {
        void (Commands::*command)();
        const char* key;
        Colour whenEmpty;
    } cases[] = {{&Commands::mnuChangeLandColor, "LandColor=", 12648384},
                 {&Commands::mnuChangeWaterColor, "WaterColor=", 16698789}};
    for (const auto& c : cases) {
        PlottedProgram program(settingsOf(Projection::Miller));
        const auto change = [&](std::optional<Colour> chosen) {
            program.window.chosenColour = chosen;
            (*program.commands.*c.command)();
            return program.window.colourDialogs.back();
        };
        EXPECT_EQ(change(std::nullopt), c.whenEmpty);
        EXPECT_EQ(program.takeChanges(), "");
        EXPECT_EQ(change(c.whenEmpty), c.whenEmpty);
        EXPECT_EQ(program.takeChanges(), c.key + std::to_string(c.whenEmpty) + " ");
        EXPECT_EQ(program.look(), "world home plot ") << "the same colour rebuilds nothing";
        EXPECT_EQ(change(0x4080C0), c.whenEmpty);
        EXPECT_EQ(program.takeChanges(), std::string(c.key) + "4227264 ");
        const bool ofLand = c.whenEmpty == land;
        EXPECT_EQ(program.look(ofLand ? 0x4080C0 : land, ofLand ? water : 0x4080C0), "world home ");
        EXPECT_EQ(change(std::nullopt), 0x4080C0U);
    }
}

} // namespace
} // namespace tovrel
