#include "run/TestProgram.h"

namespace tovrel {
namespace {

/// A program with a log that tells no coordinates but a locator, a country, and nothing.
struct OtherLog : TestProgram {
    OtherLog() {
        start();
        data->run.LogFileName =
            folder.write("log.adi", adif("CALL", "DL1ABC") + adif("GRIDSQUARE", "JO62") +
                                        "<EOR>\r\n" + adif("CALL", "K1ABC") + "<EOR>\r\n" +
                                        adif("CALL", "TO5AB") + "<EOR>\r\n");
    }
};

TEST(LogFormat, ALogWithoutCoordinatesIsOfferedInTheOtherFormat) {
    const std::string question =
        "This log tells 2 places by other fields (LAT, LON, GRIDSQUARE) or "
        "by the country of the call.\r\nDo you wish to ";
    for (const bool yes : {false, true}) {
        OtherLog program;
        program.prompt.answer = yes;
        program.commands->mnuLoadADIF();
        ASSERT_EQ(program.prompt.told.size(), 1U) << "the message comes first, and once";
        ASSERT_EQ(program.prompt.asked.size(), 1U);
        EXPECT_EQ(program.prompt.asked[0].text, question + "plot them?");
        EXPECT_EQ(program.prompt.asked[0].buttons, Question::Buttons::YesNo);
        EXPECT_FALSE(program.prompt.asked[0].defaultYes);
        EXPECT_EQ(program.setting("Log", "LogFormat"), yes ? "ADIF" : "");
        EXPECT_EQ(program.data->tables.counters.QsosPlotted, yes ? 2 : 0);
        EXPECT_FALSE(program.listener.open);
    }
    OtherLog exported;
    exported.commands->mnuGoogle();
    ASSERT_EQ(exported.prompt.asked.size(), 2U) << "the other is of the archive";
    EXPECT_EQ(exported.prompt.asked[0].text, question + "export them?");
    EXPECT_TRUE(fileExists(exported.folder.path("log.kmz")));

    OtherLog byCountry;
    byCountry.data->run.reading.placeByCountry = false;
    byCountry.prompt.answer = false;
    byCountry.commands->mnuLoadADIF();
    EXPECT_NE(byCountry.prompt.asked.at(0).text.find("tells 1 places"), std::string::npos);
}

TEST(LogFormat, NobodyIsAskedWithoutNeed) {
    OtherLog filtered; // one contact has coordinates, though the filter is against it
    filtered.data->run.LogFileName = filtered.folder.write(
        "log.adi", record({.latitude = "5", .longitude = "5"}) + record({.call = "DL1ABC"}));
    filtered.data->maps.inForce().filter.band.set(1, true);
    filtered.data->google.filter.band.set(1, true);
    filtered.commands->mnuLoadADIF();
    filtered.commands->mnuGoogle();
    OtherLog none; // nothing has a place
    none.data->run.LogFileName = none.folder.write("log.adi", record({.call = "TO5AB"}));
    none.commands->mnuLoadADIF();
    OtherLog aborted;
    aborted.listener.onYield = [&aborted](int) {
        aborted.data->run.AbortRequested = aborted.listener.begun == 2;
    };
    aborted.commands->mnuLoadADIF();
    for (const OtherLog* program : {&filtered, &none, &aborted})
        EXPECT_TRUE(program->prompt.asked.empty());
}

TEST(LogFormat, IsStoredAtOnceAndCountsFromTheNextPassOn) {
    OtherLog program;
    int marksShown = 0;
    const Connection shown = program.data->run.marksChanged.connect([&] { ++marksShown; });
    program.listener.onYield = [&program](int yield) {
        if (yield == 1)
            program.commands->mnuAnyLogger();
    };
    program.prompt.answer = false;
    program.commands->mnuLoadADIF();
    EXPECT_EQ(program.data->tables.counters.QsosPlotted, 0);
    program.listener.onYield = {};
    program.commands->mnuLoadADIF();
    EXPECT_EQ(program.data->tables.counters.QsosPlotted, 2);
    program.commands->mnuPlaceByCountry();
    EXPECT_EQ(program.setting("Log", "PlaceByCountry"), "False");
    EXPECT_EQ(marksShown, 2);

    program.restart();
    program.start();
    EXPECT_EQ(program.data->run.reading, (LogReading{LogFormat::Adif, false}));
    program.commands->mnuOpenADIFFile();
    EXPECT_TRUE(program.window.fileDialogs.back().ends_with(
        "|ADIF Files (*.ADI)|*.ADI|All ADIF Files (*.adi;*.adif)|*.adi;*.adif"));
    program.commands->mnuLogger32();
    EXPECT_EQ(program.setting("Log", "LogFormat"), "Logger32");
    program.data->ini.WriteIniValue("Log", "LogFormat", "ADI");
    program.data->ini.WriteIniValue("Log", "PlaceByCountry", "no");
    EXPECT_EQ(readLogReading(program.data->ini), LogReading()) << "for any other text";
}

} // namespace
} // namespace tovrel
