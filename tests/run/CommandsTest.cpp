#include "run/Commands.h"

#include "run/TestProgram.h"

#include <filesystem>

namespace tovrel {
namespace {

/// The tool tip where the contact of the log was drawn.
std::string tipAtContact(const TestProgram& program) {
    const PlotRow& row = program.data->tables.plotTable.rows().at(0);
    return tipText(program.data->tables, {.call = true}, row.mapY, row.mapX);
}

using Command = void (Commands::*)();

/// What a command leaves behind; the rows of a table run one after the other.
struct Step {
    Command command;
    const char* look;
    const char* calls;   ///< of the window
    const char* changes; ///< of the settings
    int passes = 0;
};

void expectSteps(PlottedProgram& program, const std::vector<Step>& steps) {
    int number = 0;
    for (const Step& step : steps) {
        SCOPED_TRACE(++number);
        program.listener.begun = 0;
        (*program.commands.*step.command)();
        EXPECT_EQ(program.look(), step.look);
        EXPECT_EQ(program.window.takeCalls(), step.calls);
        EXPECT_EQ(program.takeChanges(), step.changes);
        EXPECT_EQ(program.listener.begun, step.passes);
        EXPECT_FALSE(program.window.waitPointer);
    }
}

TEST(Commands, ChangeTheMapAndStoreWhatTheyChange) {
    PlottedProgram program(settingsOf(Projection::Miller));
    expectSteps(program,
                {// An overlay is drawn over what stands; to take it off, the plot is made again.
                 {&Commands::mnuMeridian, "world home graticule plot ", "", "Meridian=True "},
                 {&Commands::mnuShowMe, "world graticule plot ", "timer off", "ShowMe=False ", 1},
                 {&Commands::mnuMeridian, "world plot ", "timer off", "Meridian=False ", 1},
                 {&Commands::mnuShowMe, "world home plot ", "", "ShowMe=True "},
                 {&Commands::mnuMiller, "world home plot ", "hide,show,timer off", "", 1},
                 {&Commands::mnuRecreateMap, "world home ", "timer off,timer on", ""},
                 {&Commands::mnuLoadADIF, "world home plot ", "timer off", "", 1},
                 {&Commands::mnuResetBaseColors, "world home ", "timer off,timer on",
                  "LandColor=12648384 WaterColor=16698789 "},
                 {&Commands::mnuMiller, "world home plot ", "hide,show,timer off", "", 1},
                 {&Commands::mnuClearMap, "world home ", "", ""},
                 {&Commands::mnuShowMe, "world ", "", "ShowMe=False "}, // nothing to plot again
                 {&Commands::mnuMiller, "world ", "hide,show", ""}});
    EXPECT_EQ(tipAtContact(program), "");
    const StatusLists& lists = program.data->stats.lists();
    EXPECT_EQ(lists.lstConfirmed.size() + lists.lstStats.size(), 0U);
}

TEST(Commands, OfTheCompassResetTheMapAndLeaveMapPlotted) {
    PlottedProgram program(home +
                           "[GCMapOptions]\r\nShowComp=False\r\n15Deg=True\r\n45Deg=False\r\n");
    int told = 0;
    const Connection marks = program.data->run.marksChanged.connect([&] { ++told; });
    expectSteps(program,
                {{&Commands::mnuShowCompass, "world home ", "", "ShowComp=True "},
                 {&Commands::mnuBoldCompass, "world home ", "", "CompBold=True CompNorm=False "},
                 {&Commands::mnuBoldCompass, "world home ", "", ""},
                 {&Commands::mnuLightCompass, "world home ", "", "CompBold=False CompNorm=True "},
                 {&Commands::mnu45Degrees, "world home ", "", "15Deg=False 45Deg=True "},
                 {&Commands::mnu15Degrees, "world home ", "", "15Deg=True 45Deg=False "},
                 {&Commands::mnuShowCompass, "world home ", "", "ShowComp=False "}});
    EXPECT_EQ(told, 7);
    EXPECT_TRUE(program.data->run.MapPlotted);
    std::vector<int> dark;
    for (const Command command : {&Commands::mnuShowCompass, &Commands::mnuBoldCompass,
                                  &Commands::mnu45Degrees, &Commands::mnuShowCompass}) {
        (*program.commands.*command)();
        dark.push_back(inkOf(program.map->Picture1, black).count);
    }
    EXPECT_TRUE(dark[0] < dark[1] && dark[1] > dark[2] && dark[2] > dark[3]);
}

TEST(LoadADIF, WithoutALogAsksForOneAndTellsWhenThereIsNone) {
    for (const Command command : {&Commands::mnuLoadADIF, &Commands::mnuGoogle}) {
        PlottedProgram program(home + "[Log]\r\nadifile=/logs/2011/log.adi\r\n");
        const std::string before = program.data->run.LogFileName;
        std::filesystem::remove(before);
        (*program.commands.*command)();
        EXPECT_EQ(
            program.window.fileDialogs,
            std::vector<std::string>{"Load Log Input File|/logs/2011/|ADIF Files (*.ADI)|*.ADI"});
        EXPECT_EQ(program.data->run.LogFileName, before) << "cancelled";
        EXPECT_EQ(program.takeChanges(), "");
        EXPECT_EQ(
            program.prompt.told,
            (std::vector<std::string>{"You must select an ADIF file before continuing.\r\n"
                                      "From the menu bar select File -> Open ADIF file.\r\n"}));
        EXPECT_EQ(program.prompt.icons[0], MessageIcon::None);
        EXPECT_EQ(program.listener.begun, 0);
        const bool plot = command == &Commands::mnuLoadADIF;
        EXPECT_EQ(program.look(), plot ? "world home " : "world home plot ")
            << "reset all the same";
        program.window.chosenFile = program.folder.write("other.adi", "");
        (*program.commands.*command)();
        EXPECT_EQ(program.setting("Log", "adifile"), *program.window.chosenFile);
        EXPECT_EQ(program.listener.begun, 1);
    }
}

TEST(LoadADIF, EndsTheProgramWhenTheDictionaryHasGoneAndNotWhenItCantBeRead) {
    for (const Command command : {&Commands::mnuLoadADIF, &Commands::mnuGoogle}) {
        PlottedProgram program;
        std::filesystem::remove(program.folder.path("TVADIF.txt"));
        (*program.commands.*command)();
        EXPECT_EQ(program.window.takeCalls(), "close");
        std::filesystem::create_directory(program.folder.path("TVADIF.txt"));
        (*program.commands.*command)();
        EXPECT_EQ(program.window.takeCalls(), "");
    }
}

TEST(LoadADIF, KeepsNoListOfAPlotBeforeOrOfAnExport) {
    PlottedProgram program;
    program.prompt.answer = false;
    const StatusLists& lists = program.data->stats.lists();
    for (int plot = 0; plot < 2; ++plot) {
        program.commands->mnuLoadADIF();
        EXPECT_EQ(lists.lstConfirmed.size(), 1U);
        EXPECT_EQ(lists.lstStats.at(0), " 1 QSOs Read");
        program.data->stats.unload(); // its window was closed
        program.commands->mnuGoogle();
        EXPECT_TRUE(program.data->stats.loaded());
        EXPECT_EQ(lists.lstStats.at(0), "Google File:");
    }
    program.commands->mnuLoadADIF();
    program.commands->mnuGoogle();
    EXPECT_EQ(lists.lstConfirmed.size(), 0U);
}

TEST(MapOptionCommands, ApplyShowsTheFilterOfItsWindow) {
    PlottedProgram program;
    program.data->maps.of(Projection::Azimuthal).filter.band.set(1, true);
    program.commands->applyMapOptions(Projection::Azimuthal);
    EXPECT_EQ(program.data->stats.filterText(Criterion::Band), "BAND\r\n--------\r\n2M\r\n");
    program.commands->applyMapOptions(Projection::Miller);
    EXPECT_EQ(program.data->stats.filterText(Criterion::Band), "BAND\r\n--------\r\nOFF\r\n")
        << "of the window that was applied, whatever map is on show";
}

TEST(Home, OfTheAzimuthalMapChangesOnlyWithTheBaseMap) {
    PlottedProgram program;
    program.data->ini.WriteIniValue("Globals", "Latitude", "-30");
    program.data->ini.WriteIniValue("Globals", "Longitude", "20");
    program.commands->applyMapOptions(Projection::Azimuthal);
    program.data->run.marks.mnuTopo = true;
    program.data->maps.inForce().filter.band.set(3, true);
    program.data->maps.loadBoxes(Projection::Azimuthal); // as a window that is closed
    EXPECT_TRUE(program.data->maps.inForce().filter.band.selected(0));
    EXPECT_TRUE(program.data->run.marks.mnuTopo) << "no mark of the menu is taken back";
    program.commands->mnuLoadADIF();
    program.commands->mnuGreatCircle(); // it is on
    program.commands->mnuMeridian();
    EXPECT_EQ(program.data->run.HomeLatitude, 50.0F);
    EXPECT_EQ(program.look(), "world home graticule plot ");
    program.commands->mnuRecreateMap();
    EXPECT_EQ(program.data->run.HomeLatitude, -30.0F);
    EXPECT_EQ(program.look(), "world home graticule ");
    EXPECT_EQ(program.mapAt(-30, 20), homeColour);
    const QImage now = program.map->Picture2.Image();
    program.restart(); // its cache knows the home
    program.start();
    EXPECT_EQ(program.map->Picture2.Image(), now);
    program.commands->mnuMiller();
    program.data->ini.WriteIniValue("Globals", "Latitude", "10");
    program.data->run.marks.mnuShowMe = false; // its mark asks, too
    program.chooseLog();
    program.commands->mnuLoadADIF();
    EXPECT_EQ(program.data->run.HomeLatitude, 10.0F) << "that map is not centred on it";
}

TEST(Hover, EndsWithTheMapAndWithAPlotThatFindsNoLog) {
    for (const Command end :
         {&Commands::mnuClearMap, &Commands::mnuMiller, &Commands::mnuLoadADIF}) {
        PlottedProgram program;
        EXPECT_EQ(tipAtContact(program), "KH6A  ");
        std::filesystem::remove(program.data->run.LogFileName);
        (*program.commands.*end)();
        EXPECT_EQ(tipAtContact(program), "");
    }
}

TEST(SaveMap, WritesTheMapOnShowAndTellsHowItWent) {
    PlottedProgram program;
    const QImage before = program.map->Picture2.Image();
    program.commands->mnuSaveMap();
    const std::string name = "TovrelAP_20110302-070509.bmp";
    EXPECT_EQ(program.prompt.told.at(0), name + " has been saved.");
    EXPECT_EQ(program.map->Picture2.Image(), before);
    const LoadedPicture image = LoadPicture(program.folder.path(name));
    ASSERT_TRUE(image);
    EXPECT_EQ(image.image.size(), before.size());
    EXPECT_EQ(image.image.copy(0, 0, before.width(), 200), before.copy(0, 0, before.width(), 200));
    EXPECT_NE(image.image, before) << "stamped";
    std::filesystem::remove(program.folder.path(name));
    std::filesystem::create_directory(program.folder.path(name));
    program.commands->mnuSaveMap();
    const std::string& failed = program.prompt.told.at(1);
    EXPECT_TRUE(failed.starts_with(name + " could not be saved.\r\n")) << failed;
    EXPECT_TRUE(failed.ends_with(".bmp\r\nIs a directory")) << failed;
}

} // namespace
} // namespace tovrel
