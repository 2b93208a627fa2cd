#include "run/TestProgram.h"

namespace tovrel {
namespace {

bool showsRelief(const TestProgram& program) {
    return inkOf(program.map->Picture1, reliefColour).count > 0;
}

TEST(ProjectionSwitch, ShowsTheOtherMapWithThePlotOnIt) {
    PlottedProgram program(home +
                           "[GCMapOptions]\r\nHeardColor=1\r\n[MCMapOptions]\r\nHeardColor=2\r\n");
    const char* const miller = "Tovrel - Miller Cylindrical Projection";
    const char* const afresh = "hide stats,hide,center,show,close stats,view stats,timer off";
    const struct {
        Projection map;
        const char *caption, *calls;
        float width, height;
    } cases[] = {{Projection::Miller, miller, afresh, 7000, 3500},
                 {Projection::Azimuthal, "Tovrel - Azimuthal Equidistant Projection",
                  "hide,center,show,timer off", 7100, 8000},
                 {Projection::Miller, miller, afresh, 7000, 3500}}; // of its cache
    for (const auto& c : cases) {
        program.window.statsShown = c.calls == afresh;
        program.data->maps.of(c.map).filter.band.set(3, true); // not applied
        c.map == Projection::Miller ? program.commands->mnuMiller()
                                    : program.commands->mnuGreatCircle();
        EXPECT_EQ(program.window.takeCalls(), c.calls);
        EXPECT_EQ(program.data->stats.legend().colour(MapColour::Heard), 2U);
        EXPECT_EQ(program.data->stats.lists().lstConfirmed.size(), 1U) << "the replot fills it";
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

} // namespace
} // namespace tovrel
