#include "run/TestProgram.h"

namespace tovrel {
namespace {

TEST(ProjectionSwitch, ShowsTheOtherMapWithThePlotOnIt) {
    for (const bool azimuthal : {true, false}) {
        for (const bool cached : {false, true}) {
            PlottedProgram program(settingsOf(azimuthal));
            const auto other = azimuthal ? &Commands::mnuMiller : &Commands::mnuGreatCircle;
            const auto back = azimuthal ? &Commands::mnuGreatCircle : &Commands::mnuMiller;
            if (cached) {
                (*program.commands.*other)();
                (*program.commands.*back)();
            }
            program.window.takeCalls();
            (*program.commands.*other)();
            EXPECT_EQ(program.window.takeCalls(), "hide,center,show,timer off");
            EXPECT_NE(program.data->run.marks.azimuthal(), azimuthal);
            EXPECT_EQ(program.window.caption, azimuthal
                                                  ? "Tovrel - Miller Cylindrical Projection"
                                                  : "Tovrel - Azimuthal Equidistant Projection");
            EXPECT_EQ(program.setting("Globals", "Display"), azimuthal ? "Miller" : "Azimuthal");
            EXPECT_TRUE(program.showsItsWorld()) << "drawn with its own units of home";
            EXPECT_EQ(program.mapAt(20, -156), confirmedColour);
            EXPECT_EQ(program.mapAt(50, -20), homeColour);
            EXPECT_EQ(program.window.width, azimuthal ? 7000.0F : 8000.0F - FakeWindow::frame);
            EXPECT_EQ(program.window.height, azimuthal ? 3500.0F : 8000.0F);
        }
    }
}

TEST(ProjectionSwitch, ToTheMapOnShowReplotsAndLeavesTheRest) {
    PlottedProgram program;
    program.window.height = 7777.0F;
    program.commands->mnuGreatCircle();
    EXPECT_EQ(program.window.takeCalls(), "hide,show,timer off");
    EXPECT_EQ(program.window.height, 7777.0F);
    EXPECT_EQ(program.listener.begun, 2);
    EXPECT_EQ(program.setting("Globals", "Display"), "");
    program.commands->mnuClearMap();
    program.commands->mnuMiller();
    EXPECT_EQ(program.listener.begun, 2) << "nothing was plotted, nothing is replotted";
}

TEST(ProjectionSwitch, OpensTheStatisticsAfreshWithTheOtherPalette) {
    PlottedProgram program(home +
                           "[GCMapOptions]\r\nHeardColor=1\r\n[MCMapOptions]\r\nHeardColor=2\r\n");
    EXPECT_EQ(program.data->stats.legend().colour(LegendEntry::Heard), 1U);
    program.window.statsShown = true;
    program.commands->mnuMiller();
    EXPECT_EQ(program.window.takeCalls(),
              "hide stats,hide,center,show,close stats,view stats,timer off");
    EXPECT_EQ(program.data->stats.legend().colour(LegendEntry::Heard), 2U);
    EXPECT_EQ(program.data->stats.lists().lstConfirmed.size(), 1U) << "the replot fills it again";
}

TEST(ProjectionSwitch, WithoutACacheSwitchesGraticuleAndReliefOff) {
    PlottedProgram program(home + "[MCMapOptions]\r\nMeridian=True\r\nTopo=True\r\n");
    program.commands->mnuMiller();
    EXPECT_FALSE(program.graticuleShown());
    EXPECT_EQ(program.setting("MCMapOptions", "Meridian"), "False");
    EXPECT_EQ(program.setting("MCMapOptions", "Topo"), "False");
    EXPECT_TRUE(program.prompt.asked.empty());
}

TEST(RecreateMap, BringsANewHomeToTheMapAndStartsTheTimer) {
    for (const bool azimuthal : {true, false}) {
        PlottedProgram program(settingsOf(azimuthal));
        program.data->ini.WriteIniValue("Globals", "Latitude", "-30");
        program.data->ini.WriteIniValue("Globals", "Longitude", "20");
        program.commands->mnuRecreateMap();
        EXPECT_EQ(program.window.takeCalls(), "timer off,timer on");
        EXPECT_EQ(program.data->run.HomeLatitude, -30.0F);
        EXPECT_TRUE(program.showsItsWorld());
        EXPECT_EQ(program.mapAt(-30, 20), homeColour);
        EXPECT_FALSE(program.plotShown());
        EXPECT_FALSE(program.window.waitPointer);
        const QImage now = program.map->Picture2.Image();
        program.restart();
        program.start();
        EXPECT_EQ(program.map->Picture2.Image(), now) << "and to the cache";
    }
}

TEST(CustomMap, IsKeptForItsMapAndServesTheRelief) {
    for (const bool azimuthal : {true, false}) {
        PlottedProgram program(settingsOf(azimuthal));
        const std::string_view section = azimuthal ? "GCMapOptions" : "MCMapOptions";
        program.commands->mnuLoadCustomMap();
        EXPECT_EQ(program.window.fileDialogs[0],
                  std::string(azimuthal ? "Select Base Map for Azimuthal Equidistant Projection"
                                        : "Select Base Map for Miller Projection") +
                      "|" + program.folder.path() +
                      "|JPG Files (*.JPG)|*.JPG|BMP Files (*.BMP)|*.BMP");
        EXPECT_TRUE(program.plotShown()) << "cancelled: all stays";
        EXPECT_EQ(program.setting(section, "BaseMap"), "");

        QImage world(36, 18, QImage::Format_RGB32);
        world.fill(imageColour(0x224466));
        program.window.chosenFile = program.folder.path("world.bmp");
        ASSERT_TRUE(SavePicture(world, *program.window.chosenFile));
        program.data->run.marks.mnuTopo = true;
        program.commands->mnuLoadCustomMap();
        EXPECT_EQ(program.setting(section, "BaseMap"), *program.window.chosenFile);
        EXPECT_GT(inkOf(program.map->Picture1, 0x224466).count, 0);

        program.window.chosenFile = program.folder.write("bad.jpg", "no picture");
        program.commands->mnuLoadCustomMap();
        EXPECT_EQ(program.setting(section, "BaseMap"), *program.window.chosenFile);
        EXPECT_GT(inkOf(program.map->Picture1, 0x224466).count, 0)
            << "the picture before serves on";
        EXPECT_TRUE(program.prompt.told.empty());
    }
}

TEST(BaseColours, AreStoredAndRebuiltWhenTheyChange) {
    const struct {
        void (Commands::*command)();
        const char* key;
        Colour whenEmpty;
    } cases[] = {{&Commands::mnuChangeLandColor, "LandColor", 12648384},
                 {&Commands::mnuChangeWaterColor, "WaterColor", 16698789}};
    for (const bool azimuthal : {true, false}) {
        const std::string_view section = azimuthal ? "GCMapOptions" : "MCMapOptions";
        const std::string_view otherSection = azimuthal ? "MCMapOptions" : "GCMapOptions";
        for (const auto& c : cases) {
            PlottedProgram program(settingsOf(azimuthal));
            const auto change = [&](std::optional<Colour> chosen) {
                program.window.chosenColour = chosen;
                (*program.commands.*c.command)();
                return program.window.colourDialogs.back();
            };
            EXPECT_EQ(change(std::nullopt), c.whenEmpty);
            EXPECT_EQ(program.setting(section, c.key), "");
            EXPECT_EQ(change(c.whenEmpty), c.whenEmpty);
            EXPECT_EQ(program.setting(section, c.key), std::to_string(c.whenEmpty));
            EXPECT_TRUE(program.plotShown()) << "the same colour rebuilds nothing";
            EXPECT_EQ(change(0x4080C0), c.whenEmpty);
            EXPECT_EQ(program.setting(section, c.key), "4227264");
            EXPECT_EQ(program.setting(otherSection, c.key), "");
            EXPECT_FALSE(program.plotShown());
            const bool land = c.whenEmpty == defaultLandColour;
            EXPECT_TRUE(program.showsItsWorld(land ? 0x4080C0 : defaultLandColour,
                                              land ? defaultWaterColour : 0x4080C0));
            EXPECT_EQ(change(std::nullopt), 0x4080C0U);
            program.window.takeCalls();
            program.commands->mnuResetBaseColors();
            EXPECT_EQ(program.setting(section, "LandColor"), "12648384");
            EXPECT_EQ(program.setting(section, "WaterColor"), "16698789");
            EXPECT_TRUE(program.showsItsWorld());
            EXPECT_EQ(program.window.takeCalls(), "timer off,timer on");
        }
    }
}

} // namespace
} // namespace tovrel
