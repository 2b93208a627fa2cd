#include "export/GoogleExport.h"

#include "export/ExportFixture.h"
#include "export/Unpacked.h"
#include "platform/WriteLimit.h"

namespace tovrel {
namespace {

using Lines = std::vector<std::string>;

std::size_t count(const std::string& text, std::string_view part) {
    std::size_t found = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; ++at)
        ++found;
    return found;
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

TEST_F(ExportTest, packsTheDocumentAndWhatIconsThereAreInAnyCase) {
    useLog(record("A1A"));
    logs.write("log.kmz", "an old one");
    std::filesystem::rename(program.path("Google_Worked.png"), program.path("google_worked.PNG"));
    EXPECT_EQ(exportLog(), ExportEnd::Done);
    EXPECT_EQ(logs.names(), "log.adi log.kmz ");
    EXPECT_EQ(entryNames(logs.read("log.kmz")),
              "log.kml Google_Confirmed.png Google_Worked.png Google_Heard.png ");
    std::filesystem::remove(program.path("Google_Heard.png"));
    EXPECT_EQ(exportLog(), ExportEnd::Done);
    EXPECT_EQ(entryNames(logs.read("log.kmz")), "log.kml Google_Confirmed.png Google_Worked.png ");
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

TEST_F(ExportTest, stopsAfterTheRecordInWhichTheUserAborts) {
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
    EXPECT_TRUE(prompt.told.empty() && prompt.asked.empty());
    listener.onYield = nullptr;
    data.run.AbortRequested = true; // before the start, it counts as well
    EXPECT_EQ(exportLog(), ExportEnd::Aborted);
    EXPECT_EQ(listener.yields, 1);
}

TEST_F(ExportTest, obeysOptionsThatChangeMeanwhile) {
    useLog(record("A1A") + record("B1B") + record("C1C") + record("D1D", "<BAND:2>2M "));
    listener.onYield = [this](int yield) {
        if (yield == 5) // after the first record of the second pass
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

TEST_F(ExportTest, readsTheLogThatItOpenedAsFarAsItReachedThen) {
    const std::function<void()> acts[] = {
        [this] { std::ofstream(logs.path("log.adi"), std::ios::app) << record("B1B"); },
        [this] { std::filesystem::remove(logs.path("log.adi")); },
        [this] {
            std::filesystem::rename(logs.path("log.adi"), logs.path("old.adi"));
            useLog(record("C1C=") + record("C2C="));
        },
        [this] { data.run.LogFileName = logs.write("other.adi", record("D1D=")); }};
    for (const auto& act : acts) {
        useLog(record("A1A"));
        inYield(1, act);
        EXPECT_EQ(exportLog(), ExportEnd::Done);
        EXPECT_EQ(data.stats.lists().lstStats[5], "   1 Worked");
        EXPECT_EQ(data.stats.lists().lstStats[7], "   0 Heard");
    }
}

TEST_F(ExportTest, leavesTheDocumentInThePlaceOfALinkAndNotOverWhatThatNames) {
    const std::string other = logs.write("other", "mine");
    std::filesystem::create_symlink(other, logs.path("log.kml"));
    useLog(record("A1A"));
    data.google.filter.band.set(1, true);
    EXPECT_EQ(exportLog(), ExportEnd::NothingPlaced);
    EXPECT_TRUE(logs.read("log.kml").ends_with("</kml>\r\n"));
    EXPECT_EQ(logs.read("other"), "mine");
}

/// Exports that fail: each tells so once and shows nothing else.
class ExportFailureTest : public ExportTest {
protected:
    void expectFailure(ExportEnd end, const std::string& message, const std::string& left) {
        prompt.told.clear();
        data.stats.lists().lstStats = {"of an earlier pass"};
        EXPECT_EQ(exportLog(files), end);
        ASSERT_EQ(prompt.told.size(), 1U);
        EXPECT_TRUE(prompt.told[0].starts_with(message)) << prompt.told[0];
        EXPECT_FALSE(listener.open);
        EXPECT_TRUE(data.stats.lists().lstStats.empty());
        EXPECT_TRUE(prompt.asked.empty() && opened.empty());
        EXPECT_EQ(logs.names(), left);
    }

    ExportFiles files{logs.path("log.kml"), logs.path("log.kmz")};
};

TEST_F(ExportFailureTest, ofALogThatCannotBeReadLeavesNothing) {
    std::filesystem::create_directory(logs.path("folder.adi"));
    for (const std::string& log : {logs.path("gone.adi"), logs.path("folder.adi"), std::string()}) {
        data.run.LogFileName = log;
        expectFailure(ExportEnd::LogUnreadable,
                      "The ADIF file could not be read.\r\n" + log + "\r\n", "");
    }
    logs.write("log.kmz", "old");
    const std::function<void()> acts[] = {
        [this] { std::filesystem::resize_file(logs.path("log.adi"), 5); },
        [this] { // a record in front would move all others to the next one's folder
            std::ofstream(logs.path("log.adi"))
                << record("B1B") + record("A1A", "<QSL_RCVD:1>Y ") + record("C1C=");
        }};
    for (const auto& act : acts) {
        useLog(record("A1A", "<QSL_RCVD:1>Y ") + record("C1C="));
        inYield(2, act);
        expectFailure(ExportEnd::LogUnreadable, "The ADIF file could not be read.\r\n",
                      "log.adi log.kmz ");
        EXPECT_EQ(logs.read("log.kmz"), "old");
    }
}

TEST_F(ExportFailureTest, ofFilesThatWouldReplaceTheLogLeavesIt) {
    for (const char* name : {"log.kml", "log.kmz"}) {
        data.run.LogFileName = logs.write(name, record("A1A"));
        expectFailure(ExportEnd::DocumentFailed, "", name + std::string(" "));
        EXPECT_EQ(logs.read(name), record("A1A"));
        EXPECT_NE(prompt.told.back().find(name), std::string::npos);
        std::filesystem::remove(logs.path(name));
    }
}

TEST_F(ExportFailureTest, ofAMissingDictionaryEnds) {
    useLog(record("A1A"));
    std::filesystem::remove(program.path(FieldTable::fileName));
    expectFailure(ExportEnd::DictionaryMissing, std::string(FieldTable::missingMessage),
                  "log.adi ");
    EXPECT_EQ(prompt.icons.back(), MessageIcon::Critical);
}

TEST_F(ExportFailureTest, ofADictionaryThatCannotBeReadTellsWhy) {
    useLog(record("A1A"));
    std::filesystem::remove(program.path(FieldTable::fileName));
    std::filesystem::create_directory(program.path(FieldTable::fileName));
    expectFailure(ExportEnd::DictionaryUnreadable, "The tag list could not be read.\r\n",
                  "log.adi ");
}

TEST_F(ExportFailureTest, ofTheDocumentIsSeenAtOnceAndToldWithItsPlace) {
    std::string log;
    for (int i = 0; i < 2000; ++i)
        log += record("A1A");
    useLog(log);
    const std::string told = "The Google Earth document could not be written.\r\n";
    files.KmlFileName = logs.path("missing/log.kml");
    expectFailure(ExportEnd::DocumentFailed,
                  told + files.KmlFileName + "\r\nNo such file or directory", "log.adi ");
    files.KmlFileName = logs.path("log.kml");
    {
        const WriteLimit fullDisk(300'000);
        expectFailure(ExportEnd::DocumentFailed, told + files.KmlFileName + "\r\nFile too large",
                      "log.adi ");
    }
    EXPECT_LT(listener.yields, 2 * 2000) << "not at the end of the last pass";

    std::filesystem::create_directory(logs.path("log.kml"));
    data.google.filter.band.set(1, true); // so that the document is left, where a folder stands
    EXPECT_EQ(exportLog(), ExportEnd::DocumentFailed);
    EXPECT_EQ(prompt.told.back(), told + files.KmlFileName + "\r\nIs a directory");
}

TEST_F(ExportFailureTest, ofTheArchiveLeavesTheDocumentAndTheOldArchive) {
    useLog(record("A1A"));
    const auto expectArchiveFailure = [this](const char* archive, const std::string& left) {
        files.archive = logs.path(archive);
        expectFailure(ExportEnd::ArchiveFailed,
                      "The Google Earth file could not be created.\r\n" + files.archive + "\r\n",
                      left);
    };
    std::filesystem::create_directory(logs.path("folder.kmz"));
    expectArchiveFailure("folder.kmz", "log.adi log.kml ");
    expectArchiveFailure("missing/log.kmz", "log.adi log.kml ");
    EXPECT_TRUE(logs.read("log.kml").ends_with("</kml>\r\n"));

    logs.write("log.kmz", "an old one");
#ifdef __unix__
    {
        // Room for the document, but not for the document and three icons that don't compress.
        std::string noise;
        for (unsigned i = 1; noise.size() < 100'000; i = i * 1664525U + 1013904223U)
            noise += static_cast<char>(i >> 24U);
        program.write("Google_Heard.png", noise);
        const WriteLimit fullDisk(50'000);
        expectArchiveFailure("log.kmz", "log.adi log.kml log.kmz ");
    }
#endif
    EXPECT_EQ(logs.read("log.kmz"), "an old one");

    // Whoever meddles with the work files gets no archive of half a document.
    constexpr int records = 1000; // more than a buffer holds
    std::string log;
    for (int i = 0; i < records; ++i)
        log += record("A1A");
    useLog(log);
    inYield(2 * records + 1, [this] {
        for (const auto& entry : std::filesystem::directory_iterator(logs.path())) {
            if (entry.is_directory() && entry.path().filename().string().starts_with(".tovrel-"))
                std::ofstream(entry.path() / "log.kml") << "cut short";
        }
    });
    expectArchiveFailure("log.kmz", "log.adi log.kml log.kmz ");
    EXPECT_TRUE(prompt.told.back().ends_with("the document was changed before it was packed"));
    EXPECT_TRUE(logs.read("log.kmz") == "an old one");
}

} // namespace
} // namespace tovrel
