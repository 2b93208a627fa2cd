#include "run/Commands.h"

#include "run/TestProgram.h"

#include <filesystem>

namespace tovrel {
namespace {

TEST(OpenADIFFile, OffersTheFolderOfTheLastLogAndKeepsTheChoice) {
    const struct {
        const char *known, *folder;
    } cases[] = {{"", ""},
                 {"log.adi", ""},
                 {"/logs/2011/log.adi", "/logs/2011/"},
                 {"C:\\x\\a.adi", "C:\\x\\"}};
    for (const auto& c : cases) {
        PlottedProgram program(home, false);
        program.data->ini.WriteIniValue("Log", "adifile", c.known);
        program.data->run.LogFileName = "before";
        program.commands->mnuOpenADIFFile();
        EXPECT_EQ(program.window.fileDialogs,
                  (std::vector<std::string>{std::string("Load Log Input File|") + c.folder +
                                            "|ADIF Files (*.ADI)|*.ADI"}));
        EXPECT_EQ(program.data->run.LogFileName, "before") << "cancelled";
        EXPECT_EQ(program.setting("Log", "adifile"), c.known);
        program.window.chosenFile = "/new/log.adi";
        program.commands->mnuOpenADIFFile();
        EXPECT_EQ(program.data->run.LogFileName, "/new/log.adi");
        EXPECT_EQ(program.setting("Log", "adifile"), "/new/log.adi");
        EXPECT_EQ(program.listener.begun, 0) << "nothing is plotted yet";
    }
}

TEST(LoadADIF, PlotsAndStopsTheTimer) {
    for (const bool azimuthal : {true, false}) {
        PlottedProgram program(settingsOf(azimuthal), false);
        program.window.timer1 = true;
        program.data->lneGCPlotLine.show({});
        program.commands->mnuLoadADIF();
        EXPECT_EQ(program.mapAt(20, -156), confirmedColour);
        EXPECT_TRUE(program.showsItsWorld());
        EXPECT_TRUE(program.homeShown());
        EXPECT_FALSE(program.window.timer1);
        EXPECT_FALSE(program.window.waitPointer);
        EXPECT_FALSE(program.data->lneGCPlotLine.shape().visible);
        EXPECT_EQ(program.data->stats.lists().lstConfirmed.size(), 1U);
        program.commands->mnuLoadADIF();
        EXPECT_EQ(program.data->stats.lists().lstConfirmed.size(), 1U) << "nothing adds up";
    }
}

TEST(LoadADIF, WithoutALogAsksForOneAndTellsWhenThereIsNone) {
    PlottedProgram program;
    std::filesystem::remove(program.data->run.LogFileName);
    program.commands->mnuLoadADIF();
    EXPECT_EQ(program.window.fileDialogs.size(), 1U);
    EXPECT_EQ(program.prompt.told,
              (std::vector<std::string>{"You must select an ADIF file before continuing.\r\n"
                                        "From the menu bar select File -> Open ADIF file.\r\n"}));
    EXPECT_EQ(program.prompt.icons[0], MessageIcon::None);
    EXPECT_FALSE(program.plotShown()) << "the map was reset all the same";
    EXPECT_EQ(program.data->stats.lists().lstConfirmed.size(), 0U);
    program.window.chosenFile = program.folder.write("other.adi", "");
    program.commands->mnuLoadADIF();
    EXPECT_EQ(program.setting("Log", "adifile"), *program.window.chosenFile);
    EXPECT_EQ(program.data->stats.lists().lstStats.size(), 8U);
}

TEST(LoadADIF, AnAbortLeavesTheTimerAndTheBareMap) {
    PlottedProgram program;
    program.window.timer1 = true;
    const std::string log = program.folder.read("log.adi");
    program.folder.write("log.adi", log + log + log);
    program.listener.onYield = [&](int) { program.commands->mnuAbort(); };
    program.commands->mnuLoadADIF();
    EXPECT_FALSE(program.plotShown());
    EXPECT_TRUE(program.window.timer1);
    EXPECT_TRUE(program.data->run.MapPlotted);
    EXPECT_TRUE(program.data->tables.HoverTable.empty());
    EXPECT_FALSE(program.window.waitPointer);
}

TEST(LoadADIF, EndsTheProgramWhenTheDictionaryHasGone) {
    PlottedProgram program;
    std::filesystem::remove(program.folder.path("TVADIF.txt"));
    program.commands->mnuLoadADIF();
    EXPECT_EQ(program.window.takeCalls(), "close");
    EXPECT_FALSE(program.plotShown());
}

TEST(ClearMap, LeavesABareMapThatNothingReplots) {
    PlottedProgram program;
    program.commands->mnuClearMap();
    EXPECT_FALSE(program.plotShown());
    EXPECT_TRUE(program.showsItsWorld());
    EXPECT_FALSE(program.data->run.MapPlotted);
    EXPECT_TRUE(program.data->tables.HoverTable.empty());
    const StatusLists& lists = program.data->stats.lists();
    EXPECT_EQ(lists.lstConfirmed.size() + lists.lstStats.size(), 0U);
    program.commands->mnuMeridian();
    program.commands->mnuMeridian();
    EXPECT_FALSE(program.plotShown());
}

TEST(Overlays, ComeAndGoWhileAPlotStays) {
    for (const bool azimuthal : {true, false}) {
        const std::string_view section = azimuthal ? "GCMapOptions" : "MCMapOptions";
        PlottedProgram program(settingsOf(azimuthal));
        const auto expect = [&](bool homeMark, bool graticule, int passes) {
            EXPECT_EQ(program.homeShown(), homeMark);
            EXPECT_EQ(program.graticuleShown(), graticule);
            EXPECT_EQ(program.setting(section, "ShowMe"), homeMark ? "True" : "False");
            EXPECT_EQ(program.setting(section, "Meridian"), graticule ? "True" : "False");
            EXPECT_TRUE(program.plotShown());
            EXPECT_EQ(program.listener.begun, passes);
        };
        program.commands->mnuMeridian();
        expect(true, true, 1); // drawn over what stands
        program.commands->mnuShowMe();
        expect(false, true, 2); // plotted again
        program.commands->mnuShowMe();
        expect(true, true, 2);
        program.commands->mnuMeridian();
        expect(true, false, 3);
        EXPECT_TRUE(program.showsItsWorld());
    }
}

TEST(Overlays, AreNotPlottedOverWhenNothingWasPlotted) {
    PlottedProgram program(home, false);
    program.commands->mnuShowMe();
    EXPECT_FALSE(program.homeShown());
    EXPECT_EQ(program.listener.begun, 0);
}

TEST(Topo, AsksAndKeepsTheAnswer) {
    for (const bool agreed : {false, true}) {
        PlottedProgram program;
        QImage world(36, 18, QImage::Format_RGB32);
        world.fill(imageColour(0x123456));
        ASSERT_TRUE(SavePicture(world, program.folder.path("world.bmp")));
        program.map->loadMapPix(program.folder.path("world.bmp"));
        program.prompt.answer = agreed;
        program.commands->mnuTopo();
        EXPECT_EQ(program.prompt.asked.size(), 1U);
        EXPECT_EQ(program.data->run.marks.mnuTopo, agreed);
        EXPECT_EQ(program.setting("GCMapOptions", "Topo"), agreed ? "True" : "False");
        EXPECT_EQ(inkOf(program.map->Picture1, 0x123456).count > 0, agreed);
        EXPECT_EQ(program.mapAt(3, -37), defaultWaterColour) << "the map is whole either way";
        EXPECT_FALSE(program.plotShown()) << "plots aren't drawn again";
        EXPECT_TRUE(program.data->run.MapPlotted);
        EXPECT_FALSE(program.window.waitPointer);
        program.commands->mnuTopo();
        EXPECT_EQ(inkOf(program.map->Picture1, 0x123456).count, 0);
    }
}

TEST(CompassCommands, ResetTheMapSaveAndLeaveMapPlotted) {
    const std::string settings =
        home + "[GCMapOptions]\r\nShowComp=True\r\n15Deg=True\r\n45Deg=False\r\n";
    const struct {
        void (Commands::*command)();
        const char* keys; // ShowComp, CompBold, CompNorm, 15Deg, 45Deg afterwards
    } cases[] = {{&Commands::mnuShowCompass, "False False True True False"},
                 {&Commands::mnuBoldCompass, "True True False True False"},
                 {&Commands::mnuLightCompass, "True False True True False"},
                 {&Commands::mnu15Degrees, "True False True True False"},
                 {&Commands::mnu45Degrees, "True False True False True"}};
    for (const auto& c : cases) {
        PlottedProgram program(settings);
        int told = 0;
        program.data->run.marksChanged = [&] { ++told; };
        (*program.commands.*c.command)();
        std::string keys;
        for (const char* key : {"ShowComp", "CompBold", "CompNorm", "15Deg", "45Deg"})
            keys += (keys.empty() ? "" : " ") + program.setting("GCMapOptions", key);
        EXPECT_EQ(keys, c.keys);
        EXPECT_GT(told, 0);
        EXPECT_FALSE(program.plotShown());
        EXPECT_TRUE(program.data->run.MapPlotted);
        EXPECT_EQ(program.listener.begun, 1);
    }
    PlottedProgram program(settings);
    const auto dark = [&] {
        return inkWhere(program.map->Picture1, [](int, int, Colour c) { return (c & 0xFFU) < 100; })
            .count;
    };
    const int fine = dark();
    program.commands->mnuBoldCompass();
    EXPECT_GT(dark(), fine);
    program.commands->mnu45Degrees();
    EXPECT_LT(dark(), fine);
    const int coarse = dark();
    program.commands->mnuShowCompass();
    EXPECT_LT(dark(), coarse);
}

TEST(MapOptionCommands, ApplyShowsTheFilterAndCountsFromTheNextPlotOn) {
    PlottedProgram program;
    program.data->maps.of(Projection::Azimuthal).filter.band.set(1, true);
    program.commands->applyMapOptions(Projection::Azimuthal);
    EXPECT_EQ(program.setting("GCMapOptions", "Band1"), "1");
    EXPECT_EQ(program.data->stats.filterText(Criterion::Band), "BAND\r\n--------\r\n2M\r\n");
    EXPECT_TRUE(program.plotShown()) << "the last plot stays";
    program.commands->mnuLoadADIF();
    EXPECT_FALSE(program.plotShown());
}

TEST(LegendColours, OnlyNewMeridiansAskForARebuild) {
    PlottedProgram program;
    const struct {
        LegendEntry entry;
        std::optional<Colour> chosen;
        bool rebuild;
        const char* key;
        const char* stored;
    } cases[] = {{LegendEntry::Meridian, std::nullopt, false, "MeridianColor", "8421504"},
                 {LegendEntry::Meridian, 8421504, false, "MeridianColor", "8421504"},
                 {LegendEntry::Meridian, 77, true, "MeridianColor", "77"},
                 {LegendEntry::Confirmed, 78, false, "ConfirmedColor", "78"}};
    for (const auto& c : cases) {
        program.window.chosenColour = c.chosen;
        EXPECT_EQ(program.commands->pickLegendColour(c.entry), c.rebuild);
        EXPECT_EQ(program.setting("GCMapOptions", c.key), c.stored);
    }
    EXPECT_TRUE(program.plotShown()) << "a new colour does not recolour what is drawn";
}

TEST(SaveMap, WritesTheMapOnShowAndSaysSo) {
    PlottedProgram program;
    const QImage before = program.map->Picture2.Image();
    program.commands->mnuSaveMap();
    ASSERT_EQ(program.prompt.told.size(), 1U);
    const std::string& told = program.prompt.told[0];
    EXPECT_EQ(told.substr(0, 9), "TovrelAP_");
    EXPECT_EQ(told.substr(24), ".bmp has been saved.");
    EXPECT_EQ(program.map->Picture2.Image(), before);
    std::string saved;
    for (const auto& entry : std::filesystem::directory_iterator(program.folder.path())) {
        if (entry.path().extension() == ".bmp")
            saved = entry.path().string();
    }
    const std::optional<QImage> image = LoadPicture(saved);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), before.size());
    EXPECT_EQ(image->copy(0, 0, before.width(), 200), before.copy(0, 0, before.width(), 200));
    EXPECT_NE(*image, before) << "stamped";
}

} // namespace
} // namespace tovrel
