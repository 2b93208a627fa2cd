#include "export/GoogleExport.h"

#include "batch/BatchWindow.h"
#include "export/ExportFixture.h"
#include "export/WriteLimit.h"
#include "run/Commands.h"
#include "run/MapRun.h"

namespace tovrel {
namespace {

using Lines = std::vector<std::string>;

std::size_t count(const std::string& text, std::string_view part) {
    std::size_t found = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; ++at)
        ++found;
    return found;
}

TEST_F(ExportTest, namesTheArchiveAfterTheDocument) {
    const ExportFiles files = exportFilesFor("/home/op/my.log.adi");
    EXPECT_EQ(files.KmlFileName, "/home/op/mylog.kml");
    EXPECT_EQ(files.archive, "/home/op/mylog.kmz");
}

TEST_F(ExportTest, showsItsPhasesAndLetsTheBarFallBackInTheLastPass) {
    useLog(record("A1A", "<QSL_RCVD:1>Y ") + record("B1B"));
    EXPECT_EQ(exportLog(), ExportEnd::Done);
    EXPECT_EQ(listener.caption, "Creating Google Map Plot File");
    EXPECT_EQ(listener.maximum, 100.0F);
    EXPECT_FALSE(listener.open);
    // Line ends are not counted, so that a pass stays a little short of its end.
    const double size = static_cast<double>(std::filesystem::file_size(data.run.LogFileName));
    const auto bar = [size](double base, double bytes) {
        return decimalText(toSingle((bytes / 3) / (size / 3) * 30.0 + base));
    };
    const double first = static_cast<double>(record("A1A", "<QSL_RCVD:1>Y ").size()) - 2;
    const Lines expected = {"Creating Header Records",
                            "5",
                            "Processing Confirmed QSOs",
                            bar(5, first),
                            bar(5, size - 4),
                            "35",
                            "Processing Worked QSOs",
                            bar(35, first),
                            bar(35, size - 4),
                            "65",
                            "Processing Heard QSOs",
                            bar(60, first),
                            bar(60, size - 4),
                            "95",
                            "Packaging Google Data ... Please QRX",
                            "98",
                            "99",
                            "Deleting Temp File",
                            "100"};
    EXPECT_EQ(listener.trace, expected);
}

TEST_F(ExportTest, countsWhatOnePassReads) {
    std::string log;
    for (const char* call : {"A1A", "A1B", "A1C"})
        log += record(call, "<LOTW_QSL_RCVD:1>Y ");
    log += record("B1A") + record("B1B") + record("C1A=");
    for (int i = 0; i < 4; ++i)
        log += "<CALL:1>N <EOR>\r\n";
    useLog(log);
    EXPECT_EQ(exportLog(), ExportEnd::Done);
    const Lines expected = {"Google File:",          " ",
                            " 10 QSOs Read",         " --------------------",
                            " 6 QSOs Plotted",       "   2 Worked",
                            "   3 Confirmed",        "   1 Heard",
                            " --------------------", " 4 Not Plotted"};
    EXPECT_EQ(data.stats.lists().lstStats, expected);
    EXPECT_EQ(data.stats.lists().lstPfxNotPlotted.size(), 0U);
    EXPECT_EQ(data.tables.counters.QsosPlotted, 0);
}

TEST_F(ExportTest, replacesTheArchiveAndRemovesTheDocument) {
    useLog(record("A1A"));
    logs.write("log.kmz", "an old one");
    EXPECT_EQ(exportLog(), ExportEnd::Done);
    EXPECT_EQ(logs.names(), "log.adi log.kmz ");
    const std::string archive = logs.read("log.kmz");
    std::size_t at = 0;
    for (const char* name :
         {"log.kml", "Google_Confirmed.png", "Google_Worked.png", "Google_Heard.png"}) {
        at = archive.find(name, at + 1);
        EXPECT_NE(at, std::string::npos) << name;
    }
    EXPECT_EQ(archive.find(logs.path()), std::string::npos);
}

TEST_F(ExportTest, findsTheIconsInAnyCaseAndDoesWithoutThem) {
    useLog(record("A1A"));
    std::filesystem::rename(program.path("Google_Worked.png"), program.path("google_worked.PNG"));
    std::filesystem::remove(program.path("Google_Heard.png"));
    EXPECT_EQ(exportLog(), ExportEnd::Done);
    const std::string archive = logs.read("log.kmz");
    EXPECT_EQ(count(archive, "Google_Confirmed.png"), 2U);
    EXPECT_EQ(count(archive, "Google_Worked.png"), 2U);
    EXPECT_EQ(count(archive, "Google_Heard.png"), 0U);
    EXPECT_TRUE(prompt.told.empty());
}

TEST_F(ExportTest, offersToOpenTheArchive) {
    useLog(record("A1A"));
    EXPECT_EQ(exportLog(), ExportEnd::Done);
    ASSERT_EQ(prompt.asked.size(), 1U);
    const Question& question = prompt.asked[0];
    EXPECT_EQ(question.title, "Tovrel - Display Google Earth");
    EXPECT_EQ(question.text, "Google Earth File: " + logs.path("log.kmz") +
                                 "\r\nHas been created. \r\n\r\n"
                                 "Do you wish to launch Google Earth ?");
    EXPECT_EQ(question.buttons, Question::Buttons::YesNo);
    EXPECT_FALSE(question.defaultYes);
    EXPECT_TRUE(opened.empty());

    prompt.answer = true;
    EXPECT_EQ(exportLog(), ExportEnd::Done);
    EXPECT_EQ(opened, Lines{logs.path("log.kmz")});
    EXPECT_TRUE(prompt.told.empty());

    canOpen = false;
    EXPECT_EQ(exportLog(), ExportEnd::Done);
    ASSERT_EQ(prompt.told.size(), 1U);
    EXPECT_NE(prompt.told[0].find(logs.path("log.kmz")), std::string::npos);
}

TEST_F(ExportTest, tellsWhenNoRecordGotAPlacemark) {
    useLog("<CALL:1>N <EOR>\r\n");
    EXPECT_EQ(exportLog(), ExportEnd::NothingPlaced);
    useLog(record("A1A"));
    data.google.filter.band.set(1, true);
    EXPECT_EQ(exportLog(), ExportEnd::NothingPlaced);
    useLog("A log with a header alone\r\n<EOH>\r\n");
    EXPECT_EQ(exportLog(), ExportEnd::NothingPlaced);
    useLog("");
    EXPECT_EQ(exportLog(), ExportEnd::NothingPlaced);

    const std::string noMatch = "There were no QSOs matching your filter selections.";
    const std::string noRecord = "Tovrel could not plot any of your QSOs.\r\n"
                                 "Your log file did not contain Latitude & Longitude coordinates.";
    EXPECT_EQ(prompt.told, (Lines{noMatch, noMatch, noRecord, noRecord}));
    EXPECT_TRUE(listener.open);
    EXPECT_EQ(logs.names(), "log.adi log.kml ");
    EXPECT_TRUE(logs.read("log.kml").ends_with(" </Document>\r\n</kml>\r\n"));
    EXPECT_TRUE(data.stats.lists().lstStats.empty());
    EXPECT_TRUE(prompt.asked.empty());
}

TEST_F(ExportTest, stopsBehindTheRecordInWhichTheUserAborts) {
    useLog(record("A1A", "<QSL_RCVD:1>Y ") + "\r\n" + record("B1B") + record("C1C="));
    constexpr int yieldsOfAPass = 4; // the blank line has one too
    for (int yield = 1; yield <= 3 * yieldsOfAPass; ++yield) {
        const int passesDone = (yield - 1) / yieldsOfAPass;
        data.tables.counters.QsosPlotted = 7;
        inYield(yield, [this] { data.run.AbortRequested = true; });
        EXPECT_EQ(exportLog(), ExportEnd::Aborted);
        EXPECT_EQ(listener.yields, yield);
        EXPECT_FALSE(data.run.AbortRequested);
        EXPECT_TRUE(listener.open);
        EXPECT_EQ(logs.names(), "log.adi log.kml ");
        const std::string document = logs.read("log.kml");
        EXPECT_EQ(count(document, "  <Folder>\r\n"), static_cast<std::size_t>(passesDone + 1));
        EXPECT_EQ(count(document, "  </Folder>\r\n"), static_cast<std::size_t>(passesDone + 1));
        EXPECT_TRUE(document.ends_with("  </Folder>\r\n"));
        EXPECT_EQ(data.tables.counters.QsosPlotted, passesDone > 0 ? 0 : 7);
        EXPECT_TRUE(data.stats.lists().lstStats.empty());
    }
    EXPECT_TRUE(prompt.told.empty());
    EXPECT_TRUE(prompt.asked.empty());
}

TEST_F(ExportTest, actsOnAnAbortThatWasRequestedBeforeItsStart) {
    useLog(record("A1A") + record("B1B"));
    data.run.AbortRequested = true;
    EXPECT_EQ(exportLog(), ExportEnd::Aborted);
    EXPECT_EQ(listener.yields, 1);
    EXPECT_FALSE(data.run.AbortRequested);
    EXPECT_EQ(exportLog(), ExportEnd::Done);
}

TEST_F(ExportTest, obeysOptionsThatChangeMeanwhile) {
    useLog(record("A1A") + record("B1B") + record("C1C") + record("D1D", "<BAND:2>2M "));
    listener.onYield = [this](int yield) {
        if (yield == 5) // behind the first record of the second pass
            data.google.chkCall = false;
        if (yield == 6)
            data.google.filter.band.set(1, true);
        if (yield == 12)
            data.run.AbortRequested = true;
    };
    EXPECT_EQ(exportLog(), ExportEnd::Aborted);
    const std::string document = logs.read("log.kml");
    EXPECT_EQ(count(document, "<name>A1A</name>"), 1U);
    EXPECT_EQ(count(document, "<name>B1B</name>"), 0U);
    EXPECT_EQ(count(document, "lookup for B1B<"), 1U);
    EXPECT_EQ(count(document, "lookup for C1C<"), 0U);
    EXPECT_EQ(count(document, "lookup for D1D<"), 1U);
}

TEST_F(ExportTest, staysWithItsLogWhenTheUserChoosesAnother) {
    useLog(record("A1A"));
    const std::string other = logs.write("other.adi", record("B1B"));
    inYield(1, [&] { data.run.LogFileName = other; });
    EXPECT_EQ(exportLog(), ExportEnd::Done);
    EXPECT_EQ(data.stats.lists().lstStats[5], "   1 Worked");
}

TEST_F(ExportTest, takesRecordsThatAreAddedToTheLogMeanwhile) {
    useLog(record("A1A"));
    inYield(1, [this] { useLog(record("A1A") + record("B1B") + record("C1C=")); });
    EXPECT_EQ(exportLog(), ExportEnd::Done);
    EXPECT_EQ(data.stats.lists().lstStats[5], "   2 Worked");
    EXPECT_EQ(data.stats.lists().lstStats[7], "   1 Heard");
}

TEST_F(ExportTest, tellsThatTheLogCannotBeRead) {
    const std::string missing = logs.path("gone.adi");
    const std::string aFolder = logs.path("folder.adi");
    std::filesystem::create_directory(aFolder);
    for (const std::string& log : {missing, aFolder, std::string()}) {
        prompt.told.clear();
        data.run.LogFileName = log;
        EXPECT_EQ(exportLog(), ExportEnd::LogUnreadable);
        ASSERT_EQ(prompt.told.size(), 1U);
        EXPECT_TRUE(
            prompt.told[0].starts_with("The ADIF file could not be read.\r\n" + log + "\r\n"));
        EXPECT_FALSE(listener.open);
        EXPECT_EQ(logs.names(), "");
    }
    useLog(record("A1A"));
    inYield(1, [this] { std::filesystem::remove(logs.path("log.adi")); });
    EXPECT_EQ(exportLog(), ExportEnd::LogUnreadable);
    EXPECT_FALSE(listener.open);
    EXPECT_EQ(logs.names(), "") << "nothing half-written";
}

TEST_F(ExportTest, neverWritesOverTheLog) {
    for (const char* name : {"log.kml", "log.kmz"}) {
        data.run.LogFileName = logs.write(name, record("A1A"));
        EXPECT_EQ(exportLog(exportFilesFor(data.run.LogFileName)), ExportEnd::DocumentFailed);
        EXPECT_EQ(logs.read(name), record("A1A"));
        EXPECT_EQ(logs.names(), std::string(name) + " ");
        EXPECT_NE(prompt.told.back().find(name), std::string::npos);
        std::filesystem::remove(logs.path(name));
    }
}

TEST_F(ExportTest, endsWhenTheDictionaryHasGone) {
    useLog(record("A1A"));
    std::filesystem::remove(program.path(FieldTable::fileName));
    EXPECT_EQ(exportLog(), ExportEnd::DictionaryMissing);
    EXPECT_EQ(prompt.told, Lines{std::string(FieldTable::missingMessage)});
    EXPECT_EQ(prompt.icons.back(), MessageIcon::Critical);
    EXPECT_FALSE(listener.open);
    EXPECT_EQ(logs.names(), "log.adi ");
}

TEST_F(ExportTest, tellsThatTheDocumentCannotBeWritten) {
    std::string log;
    for (int i = 0; i < 2000; ++i)
        log += record("A1A");
    useLog(log);
    Lines documents = {logs.path("missing/log.kml"), logs.path("folder.kml")};
    std::filesystem::create_directory(logs.path("folder.kml"));
#ifdef __linux__
    documents.push_back(logs.path("full.kml"));
    std::filesystem::create_symlink("/dev/full", logs.path("full.kml"));
#endif
    for (const std::string& document : documents) {
        prompt.told.clear();
        EXPECT_EQ(exportLog({document, logs.path("log.kmz")}), ExportEnd::DocumentFailed);
        ASSERT_EQ(prompt.told.size(), 1U);
        EXPECT_TRUE(prompt.told[0].starts_with(
            "The Google Earth document could not be written.\r\n" + document + "\r\n"));
        EXPECT_FALSE(listener.open);
        EXPECT_TRUE(data.stats.lists().lstStats.empty());
        EXPECT_TRUE(prompt.asked.empty());
    }
    EXPECT_EQ(logs.names(), "log.adi ");
    // The disk that is full is seen at once, not at the end of the last pass.
    EXPECT_LT(listener.yields, 2 * 2000);
}

TEST_F(ExportTest, keepsTheDocumentWhenTheArchiveCannotBeWritten) {
    useLog(record("A1A"));
    const auto expectFailure = [this](const std::string& archive) {
        prompt.told.clear();
        EXPECT_EQ(exportLog({logs.path("log.kml"), archive}), ExportEnd::ArchiveFailed);
        ASSERT_EQ(prompt.told.size(), 1U);
        const std::string named =
            "The Google Earth file could not be created.\r\n" + archive + "\r\n";
        EXPECT_TRUE(prompt.told[0].starts_with(named));
        EXPECT_GT(prompt.told[0].size(), named.size());
        EXPECT_FALSE(listener.open);
        EXPECT_TRUE(prompt.asked.empty());
        EXPECT_TRUE(data.stats.lists().lstStats.empty());
        EXPECT_TRUE(logs.read("log.kml").ends_with("</kml>\r\n"));
    };
    std::filesystem::create_directory(logs.path("folder.kmz"));
    expectFailure(logs.path("folder.kmz"));
    expectFailure(logs.path("missing/log.kmz"));
    EXPECT_EQ(logs.names(), "log.adi log.kml ");

    logs.write("log.kmz", "an old one");
#ifdef __unix__
    {
        // Room for the document, but not for the document and three icons that don't compress.
        std::string noise;
        for (unsigned i = 1; noise.size() < 100'000; i = i * 1664525U + 1013904223U)
            noise += static_cast<char>(i >> 24U);
        program.write("Google_Heard.png", noise);
        const WriteLimit fullDisk(50'000);
        expectFailure(logs.path("log.kmz"));
    }
    EXPECT_EQ(logs.read("log.kmz"), "an old one");
#endif
    // The document goes before it is packed.
    inYield(3, [this] {
        std::filesystem::remove(logs.path("log.kml"));
        std::filesystem::create_directory(logs.path("log.kml"));
    });
    prompt.told.clear();
    EXPECT_EQ(exportLog(), ExportEnd::ArchiveFailed);
    EXPECT_EQ(prompt.told.size(), 1U);
    EXPECT_EQ(logs.read("log.kmz"), "an old one");
}

TEST_F(ExportTest, asksForALogFirst) {
    BatchWindow window(1000.0F, 1000.0F);
    MapRun map(data, window, listener, prompt);
    Commands commands(data, map, window, listener, prompt);
    data.run.LogFileName = logs.path("gone.adi");
    commands.mnuGoogle();
    EXPECT_EQ(prompt.told, Lines{"You must select an ADIF file before continuing.\r\n"
                                 "From the menu bar select File -> Open ADIF file.\r\n"});
    EXPECT_EQ(listener.begun, 0);
    EXPECT_EQ(logs.names(), "");

    useLog(record("A1A"));
    commands.mnuGoogle();
    EXPECT_EQ(data.stats.lists().lstStats.size(), 10U);
}

} // namespace
} // namespace tovrel
