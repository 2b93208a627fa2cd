#include "run/TestProgram.h"

#include <filesystem>

namespace tovrel {
namespace {

constexpr Colour cachedColour = 0x778899;

void writeCache(const TestFolder& folder) {
    ASSERT_TRUE(SavePicture(plainImage(667, 667, cachedColour), folder.path("GCBaseMap.map")));
}

TEST(Start, FirstRunAsksForTheStationBeforeItBuildsTheMap) {
    TestProgram program;
    program.window.onAskStation = [&] {
        EXPECT_EQ(program.folder.names(), "Tovrel.ini mapper.pnt paintma.txt ");
        program.data->ini.WriteIniValue("Globals", "Latitude", "52");
    };
    program.start();
    EXPECT_EQ(program.window.takeCalls(), "ask station,center");
    EXPECT_EQ(program.folder.names(),
              "GCBaseMap.map TVADIF.txt Tovrel.ini mapper.pnt paintma.txt ");
    EXPECT_EQ(program.setting("Globals", "Version"), "1.0.0");
    EXPECT_EQ(program.data->run.HomeLatitude, 52.0F);
    EXPECT_EQ(program.look(), "world home ");
    EXPECT_FALSE(program.window.waitPointer || program.window.timer1);
    EXPECT_TRUE(program.data->run.FormReady && !program.data->run.MapPlotted);
    EXPECT_TRUE(program.prompt.told.empty());
    EXPECT_EQ(program.map->Picture2.Width(), program.map->Picture2.Height()) << "square";
    program.restart();
    program.start();
    EXPECT_EQ(program.window.takeCalls(), "center") << "no question to a known user";
}

TEST(Start, APreparedFolderServesAndWhatItLacksIsTold) {
    TestProgram program(home + "[Log]\r\nadifile=missing.adi\r\n", false);
    program.folder.write("tvadif.txt", "CALL\r\n");
    program.start();
    EXPECT_EQ(program.prompt.told,
              (std::vector<std::string>{"The databse file 'Mapper.pnt' not found.",
                                        "The databse file 'paintma.txt' not found."}));
    EXPECT_EQ(program.look(), "home ");
    EXPECT_EQ(program.folder.names(), "GCBaseMap.map Tovrel.ini tvadif.txt ");
    EXPECT_EQ(program.data->run.LogFileName, "");

    writeCache(program.folder);
    const std::string cache = program.folder.read("GCBaseMap.map");
    const std::string log = program.folder.write("my log.adi", "");
    program.data->ini.WriteIniValue("Log", "ADIFILE", log);
    program.listener.yields = 0;
    program.restart();
    program.start();
    EXPECT_EQ(program.mapAt(40, 0), cachedColour) << "a plain bitmap serves";
    EXPECT_EQ(program.folder.read("GCBaseMap.map"), cache);
    EXPECT_EQ(program.data->run.LogFileName, log);
    EXPECT_EQ(program.listener.begun + program.listener.yields, 0) << "it is not read";
    EXPECT_EQ(program.prompt.told.size(), 2U) << "no more than at first";
}

TEST(Start, DisplayChoosesTheMapAndItsSizeWhichTheEndStores) {
    for (const auto& [display, azimuthal] : {std::pair{"Azimuthal", true}, {"azimuthal", false}}) {
        TestProgram program(home + "GCHeight=6000\r\nMlWidth=9000\r\nDisplay=" + display +
                            "\r\n[MCMapOptions]\r\nHeardColor=1\r\nMeridianColor=2\r\n"
                            "[GCMapOptions]\r\nHeardColor=3\r\nMeridianColor=4\r\n");
        program.start();
        EXPECT_EQ(program.data->run.marks.projection == Projection::Azimuthal, azimuthal)
            << display;
        EXPECT_EQ(program.window.height, azimuthal ? 6000.0F : 4500.0F);
        EXPECT_EQ(program.window.width, azimuthal ? 6000.0F - FakeWindow::frame : 9000.0F);
        EXPECT_EQ(program.map->Picture2.Height(), program.window.height - FakeWindow::frame);
        EXPECT_EQ(program.map->Picture2.Width(), program.window.width - (azimuthal ? 0 : 110));
        EXPECT_EQ(program.look(), "world home ") << display;
        const Legend& legend = program.data->stats.legend();
        EXPECT_EQ(legend.colour(MapColour::Heard), 3U) << "the azimuthal palette, on either map";
        EXPECT_EQ(legend.colour(MapColour::Meridian), azimuthal ? 4U : 2U);

        program.window.height = 6543.5F;
        program.window.width = 8765.0F;
        program.takeChanges();
        program.commands->Form_Unload();
        EXPECT_EQ(program.takeChanges(),
                  azimuthal ? "Globals.GCHeight=6543.5 " : "Globals.MlWidth=8765 ");
    }
}

TEST(Start, ACacheThatDoesNotServeIsBuiltAnewInSilenceAsAllIsSwitched) {
    TestProgram program;
    // A relief of few pixels is drawn and packed in a moment.
    program.folder.write("Tovrel.ini", home +
                                           "GCHeight=tall\r\n[GCMapOptions]\r\nMeridian=True\r\n"
                                           "Topo=True\r\nBaseMap=" +
                                           writeWorld(program.folder, 4) + "\r\n");
    writeCache(program.folder);
    const std::string path = program.folder.path("GCBaseMap.map");
    const std::string whole = program.folder.read("GCBaseMap.map");
    const PackedPicture drawn(LoadPicture(path).image);
    ASSERT_TRUE(saveBaseMap({drawn, 1, MapHome{50.0F, -20.5F}}, path));
    const struct {
        std::optional<std::string> cached; ///< none: as the start before has left it
        int most = 667;                    ///< pixels of the screen
        int resolution = 1;
    } cases[] = {{program.folder.read("GCBaseMap.map")}, // of another home
                 {""},
                 {whole.substr(0, whole.size() / 2)},
                 {whole + "x"},
                 {program.folder.read("world.bmp")},
                 {whole, 668, 2},
                 {std::nullopt, 667, 1},
                 {std::nullopt, 2000, 3}};
    for (const auto& c : cases) {
        if (c.cached)
            program.folder.write("GCBaseMap.map", *c.cached);
        program.window.most = c.most;
        program.restart();
        program.start();
        EXPECT_EQ(program.window.height, 8000.0F) << "the default of what is no number";
        const KeptBaseMap kept = loadBaseMap(path).map;
        EXPECT_EQ(kept.home, (MapHome{50.0F, -20.0F}));
        EXPECT_EQ(kept.resolution, c.resolution);
        EXPECT_EQ(kept.picture.size().width(), program.map->Picture1.pixelWidth());
        EXPECT_EQ(program.map->Picture1.resolution(), c.resolution);
        EXPECT_TRUE(program.data->run.marks.mnuMeridian && program.data->run.marks.mnuTopo);
        EXPECT_GT(inkOf(program.map->Picture1, reliefColour).count, 0);
        EXPECT_TRUE(program.prompt.asked.empty() && program.prompt.told.empty());
        EXPECT_EQ(program.listener.begun, 0);
        const std::string stored = program.folder.read("GCBaseMap.map");
        program.restart();
        program.start();
        EXPECT_TRUE(program.folder.read("GCBaseMap.map") == stored) << "and serves from then on";
    }
}

TEST(MapPictures, HaveThePixelsOfTheScreenThatTheyComeTo) {
    TestProgram program(home);
    program.start();
    program.map->Form_Resize();
    const int pixels = program.map->Picture2.pixelWidth();
    const int mark = inkOf(program.map->Picture2, homeColour).width();
    for (const double ratio : {1.25, 2.0, 3.0}) {
        program.window.ratio = static_cast<float>(ratio);
        program.window.most = roundToInt(666.0 * ratio);
        program.map->followSize();
        EXPECT_NEAR(program.map->Picture2.pixelWidth(), pixels * ratio, 1) << ratio;
        EXPECT_NEAR(inkOf(program.map->Picture2, homeColour).width(), mark * ratio, ratio);
        EXPECT_EQ(program.map->Picture1.resolution(), std::ceil(ratio)) << "never enlarged";
        EXPECT_EQ(program.mapAt(40, 4), land);
    }
    program.window.ratio = 1.0F;
    program.window.most = 667;
    program.map->followSize();
    EXPECT_EQ(program.map->Picture1.resolution(), 3) << "a finer one serves a coarser screen";
    EXPECT_EQ(program.map->Picture2.pixelWidth(), pixels);
}

TEST(Start, WithSettingsOutOfReachShowsTheDefaultsAndTouchesNothing) {
    TestProgram program;
    writeCache(program.folder);
    const std::string cache = program.folder.read("GCBaseMap.map");
    std::filesystem::create_directory(program.folder.path("Tovrel.ini"));
    program.restart();
    program.start();
    program.commands->mnuRecreateMap();
    EXPECT_EQ(program.look(), "world home ");
    EXPECT_EQ(program.folder.read("GCBaseMap.map"), cache) << "of a home that is not known";
    EXPECT_EQ(messageOf(program.data->ini.takeFailure().value()),
              "The settings file could not be read.\r\n" + program.folder.path("Tovrel.ini") +
                  "\r\nIs a directory");
    EXPECT_FALSE(program.data->ini.takeFailure()) << "told once";
    EXPECT_EQ(program.window.takeCalls().find("ask station"), std::string::npos);
}

TEST(Start, WithACacheTheOverlaysComeAsStored) {
    TestProgram program(home +
                        "[GCMapOptions]\r\nMeridian=True\r\nShowMe=False\r\nShowComp=True\r\n"
                        "15Deg=True\r\nCompBold=True\r\nCompNorm=False\r\n");
    writeCache(program.folder);
    program.start();
    EXPECT_EQ(program.look(), "graticule ");
    EXPECT_GT(inkOf(program.map->Picture1, black).count, 1000) << "a compass, bold and dense";
    program.restart();
    program.data->ini.WriteIniValue("GCMapOptions", "ShowComp", "False");
    program.start();
    EXPECT_EQ(inkOf(program.map->Picture1, black).count, 0);
}

TEST(Start, TellsOfADamagedCoastlineAndCachesNoMapWithoutIt) {
    TestProgram program(home);
    program.folder.write("mapper.pnt", coastStroke({{0, 0}, {600, 600}}).substr(6));
    program.start();
    EXPECT_EQ(program.prompt.told,
              std::vector<std::string>{"The databse file 'Mapper.pnt' could not be read.\r\n" +
                                       program.folder.path("mapper.pnt") +
                                       "\r\nThe file is damaged: no coastline begins in it"});
    EXPECT_EQ(program.folder.names(), "TVADIF.txt Tovrel.ini mapper.pnt paintma.txt ");
}

TEST(MapPictures, FitsThePictureToTheWindowUnlessThatIsMinimized) {
    TestProgram program(home);
    program.start();
    program.data->lneGCPlotLine.show({.toX = 5});
    const QImage before = program.map->Picture2.Image();
    program.window.height = 6000;
    program.window.minimized = true;
    program.map->Form_Resize();
    EXPECT_EQ(program.map->Picture2.Image(), before);
    EXPECT_TRUE(program.data->lneGCPlotLine.shape().visible);

    program.window.minimized = program.window.free = false;
    program.window.width = 9100;
    program.map->Form_Resize();
    EXPECT_EQ(program.map->Picture2.Width(), 5100.0F);
    EXPECT_EQ(program.window.lastPlace, (MapPlace{2000, 0, 5100, 5100})) << "in the middle";
    EXPECT_FALSE(program.data->lneGCPlotLine.shape().visible);
    EXPECT_EQ(program.look(), "world home ");

    program.window.free = true;
    program.data->run.FormReady = false;
    program.window.width = 6000 - FakeWindow::frame;
    program.map->Form_Resize();
    EXPECT_EQ(program.window.lastPlace.left, 2000.0F) << "not ready: as it was";
    program.data->run.FormReady = true;
    program.map->Form_Resize();
    EXPECT_EQ(program.window.lastPlace, (MapPlace{0, 0, 5100, 5100}));
}

TEST(MapPictures, HomeLiesOnTheGraticuleInTheMarkerSizeOfItsMap) {
    for (const Projection map : allProjections) {
        PlottedProgram program("[Globals]\r\nLatitude=0\r\nLongitude=-20\r\nDisplay=" +
                               std::string(namesOf(map).display) +
                               "\r\n[GCMapOptions]\r\nMarker=Small\r\n");
        program.commands->mnuMeridian();
        program.commands->mnuRecreateMap();
        const int width = map == Projection::Azimuthal ? 3 : 7;
        EXPECT_EQ(inkOf(program.map->Picture2, homeColour).width(), width);
        EXPECT_EQ(program.mapAt(0, -20), homeColour) << "not the lines that cross there";
        program.folder.write("log.adi",
                             program.folder.read("log.adi") +
                                 record({"G1A", "0", "20", "", "", "", adif("QSL_RCVD", "Y")}));
        program.commands->mnuLoadADIF(); // home lies over the mark of the neighbour
        EXPECT_EQ(inkOf(program.map->Picture2, homeColour).width(), width);
        EXPECT_EQ(inkOf(program.map->Picture2, confirmedColour).width(), width);
    }
}

TEST(MapPictures, TakesANewSizeBeforeTheMarksAreDrawn) {
    PlottedProgram program;
    program.window.onSettle = [&program] {
        program.window.height = 9000;
        program.window.width = 9000 - FakeWindow::frame;
    };
    program.commands->mnuLoadADIF();
    EXPECT_EQ(program.map->Picture2.Height(), 9000 - FakeWindow::frame);
    program.map->followSize();
    EXPECT_EQ(program.look(), "world home plot ");
}

} // namespace
} // namespace tovrel
