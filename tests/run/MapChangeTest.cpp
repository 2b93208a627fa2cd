#include "run/TestProgram.h"

namespace tovrel {
namespace {

constexpr Colour reliefColour = 0x224466;

/// A plain world picture for the relief.
std::string writeWorld(const TestFolder& folder) {
    QImage world(36, 18, QImage::Format_RGB32);
    world.fill(imageColour(reliefColour));
    EXPECT_TRUE(SavePicture(world, folder.path("world.bmp")));
    return folder.path("world.bmp");
}

bool showsRelief(const TestProgram& program) {
    return inkOf(program.map->Picture1, reliefColour).count > 0;
}

TEST(ProjectionSwitch, ShowsTheOtherMapWithThePlotOnIt) {
    for (const bool azimuthal : {true, false}) {
        PlottedProgram program(settingsOf(azimuthal));
        const auto other = azimuthal ? &Commands::mnuMiller : &Commands::mnuGreatCircle;
        const auto back = azimuthal ? &Commands::mnuGreatCircle : &Commands::mnuMiller;
        for (const bool cached : {false, true}) {
            if (cached)
                (*program.commands.*back)();
            program.window.takeCalls();
            (*program.commands.*other)();
            EXPECT_EQ(program.window.takeCalls(), "hide,center,show,timer off");
            EXPECT_NE(program.data->run.marks.projection == Projection::Azimuthal, azimuthal);
            EXPECT_EQ(program.window.caption, azimuthal
                                                  ? "Tovrel - Miller Cylindrical Projection"
                                                  : "Tovrel - Azimuthal Equidistant Projection");
            EXPECT_EQ(program.setting("Globals", "Display"), azimuthal ? "Miller" : "Azimuthal");
            EXPECT_EQ(program.look(), "world home plot ") << "drawn with its own units of home";
            EXPECT_EQ(program.mapAt(20, -156), confirmedColour);
            EXPECT_EQ(program.mapAt(50, -20), homeColour);
            EXPECT_EQ(program.window.width, azimuthal ? 7000.0F : 8000.0F - FakeWindow::frame);
            EXPECT_EQ(program.window.height, azimuthal ? 3500.0F : 8000.0F);
        }
    }
}

TEST(ProjectionSwitch, ToTheMapOnShowLeavesItsSize) {
    PlottedProgram program;
    program.window.height = 7777.0F;
    program.commands->mnuGreatCircle();
    EXPECT_EQ(program.window.height, 7777.0F);
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
        program.commands->mnuTopo();
        EXPECT_EQ(program.prompt.asked.size(), 1U);
        EXPECT_EQ(program.data->run.marks.mnuTopo, agreed);
        EXPECT_EQ(program.takeChanges(), agreed ? "Topo=True " : "");
        EXPECT_EQ(showsRelief(program), agreed);
        EXPECT_EQ(program.look(), "world home ") << "whole either way, without the plot";
        EXPECT_TRUE(program.data->run.MapPlotted);
        EXPECT_FALSE(program.window.waitPointer);
        program.commands->mnuTopo();
        EXPECT_FALSE(showsRelief(program));
    }
}

TEST(RecreateMap, BringsANewHomeToTheMapAndToItsCache) {
    for (const bool azimuthal : {true, false}) {
        PlottedProgram program(settingsOf(azimuthal));
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
}

TEST(CustomMap, IsKeptForItsMapAndServesTheRelief) {
    for (const bool azimuthal : {true, false}) {
        PlottedProgram program(settingsOf(azimuthal));
        program.commands->mnuLoadCustomMap();
        EXPECT_EQ(program.window.fileDialogs[0],
                  std::string(azimuthal ? "Select Base Map for Azimuthal Equidistant Projection"
                                        : "Select Base Map for Miller Projection") +
                      "|" + program.folder.path() +
                      "|JPG Files (*.JPG)|*.JPG|BMP Files (*.BMP)|*.BMP");
        EXPECT_EQ(program.look(), "world home plot ") << "cancelled: all stays";
        EXPECT_EQ(program.takeChanges(), "");

        program.data->run.marks.mnuTopo = true;
        for (const std::string& file :
             {writeWorld(program.folder), program.folder.write("bad.jpg", "no picture")}) {
            program.window.chosenFile = file;
            program.commands->mnuLoadCustomMap();
            EXPECT_EQ(program.setting(program.data->mapNames().section, "BaseMap"), file);
            EXPECT_TRUE(showsRelief(program)) << "of the picture before when this one is bad";
        }
        EXPECT_EQ(program.prompt.told,
                  std::vector<std::string>{"The picture could not be used.\r\n" +
                                           program.folder.path("bad.jpg") +
                                           "\r\nUnsupported image format"});
        program.prompt.told.clear();
        program.restart(); // it is the stored one now
        program.start();
        program.commands->mnuRecreateMap();
        EXPECT_TRUE(showsRelief(program) == false && program.prompt.told.size() == 1U)
            << "the built-in picture serves, and the user knows";
    }
}

TEST(BaseColours, AreStoredAndRebuiltWhenTheyChange) {
    const struct {
        void (Commands::*command)();
        const char* key;
        Colour whenEmpty;
    } cases[] = {{&Commands::mnuChangeLandColor, "LandColor=", 12648384},
                 {&Commands::mnuChangeWaterColor, "WaterColor=", 16698789}};
    for (const bool azimuthal : {true, false}) {
        for (const auto& c : cases) {
            PlottedProgram program(settingsOf(azimuthal));
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
            EXPECT_EQ(program.look(ofLand ? 0x4080C0 : land, ofLand ? water : 0x4080C0),
                      "world home ");
            EXPECT_EQ(change(std::nullopt), 0x4080C0U);
        }
    }
}

} // namespace
} // namespace tovrel
