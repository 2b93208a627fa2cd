#include "export/GoogleExport.h"

#include "export/ExportFixture.h"
#include "platform/Numbers.h"

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
    const std::string one = record("A1A", "<QSL_RCVD:1>Y ");
    useLog(one + one);
    Lines phases;
    listener.onYield = [&](int) {
        if (phases.empty() || phases.back() != listener.status)
            phases.push_back(listener.status);
    };
    EXPECT_EQ(exportLog(), ExportEnd::Done);
    EXPECT_EQ(phases, (Lines{"Processing Confirmed QSOs", "Processing Worked QSOs",
                             "Processing Heard QSOs"}));
    EXPECT_EQ(listener.status, "Deleting Temp File");
    EXPECT_EQ(listener.maximum, 100.0F);
    EXPECT_FALSE(listener.open);
    // Line ends are not counted, so that a pass stays a little short of its end.
    const double half =
        (static_cast<double>(one.size()) - 2) / (2.0 * static_cast<double>(one.size()));
    const auto bar = [half](double base, double records) {
        return toSingle(half * records * 30.0 + base);
    };
    EXPECT_EQ(listener.progress,
              (std::vector<float>{0, 5, bar(5, 1), bar(5, 2), 35, bar(35, 1), bar(35, 2), 65,
                                  bar(60, 1), bar(60, 2), 95, 98, 99, 100}));
}

TEST_F(ExportTest, packsTheDocumentAndWhatIconsThereAreInAnyCase) {
    useLog(record("A1A"));
    logs.write("log.kmz", "an old one");
    std::filesystem::rename(program.path("Google_Worked.png"), program.path("google_worked.PNG"));
    std::filesystem::remove(program.path("Google_Heard.png"));
    EXPECT_EQ(exportLog(), ExportEnd::Done);
    EXPECT_EQ(logs.names(), "log.adi log.kmz ");
    EXPECT_EQ(entryNames(logs.read("log.kmz")), "log.kml Google_Confirmed.png Google_Worked.png ");
    EXPECT_TRUE(prompt.told.empty());
}

TEST_F(ExportTest, offersToOpenTheArchive) {
    useLog(record("A1A"));
    EXPECT_EQ(exportLog(), ExportEnd::Done);
    ASSERT_EQ(prompt.asked.size(), 1U);
    EXPECT_NE(prompt.asked[0].text.find(logs.path("log.kmz")), std::string::npos);
    EXPECT_EQ(prompt.asked[0].buttons, Question::Buttons::YesNo);
    EXPECT_FALSE(prompt.asked[0].defaultYes);
    EXPECT_TRUE(opened.empty());
    prompt.answer = true;
    EXPECT_EQ(exportLog(), ExportEnd::Done);
    EXPECT_EQ(opened, Lines{logs.path("log.kmz")});
    EXPECT_TRUE(prompt.told.empty());
    canOpen = false;
    EXPECT_EQ(exportLog(), ExportEnd::Done);
    EXPECT_NE(prompt.told.at(0).find(logs.path("log.kmz")), std::string::npos);
}

TEST_F(ExportTest, tellsWhenNoRecordGotAPlacemark) {
    data.google.filter.band.set(1, true);
    const std::pair<std::string, std::string> cases[] = {
        {record("A1A"), "There were no QSOs matching your filter selections."},
        {"A log with a header alone\r\n<EOH>\r\n", "Tovrel could not plot any of your QSOs."}};
    for (const auto& [log, told] : cases) {
        useLog(log);
        EXPECT_EQ(exportLog(), ExportEnd::NothingPlaced);
        EXPECT_TRUE(prompt.told.back().starts_with(told)) << prompt.told.back();
    }
    EXPECT_EQ(prompt.told.size(), 2U);
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
        EXPECT_TRUE(document.ends_with("  </Folder>\r\n"));
        EXPECT_EQ(data.tables.counters.QsosPlotted, passesDone > 0 ? 0 : 7);
        EXPECT_TRUE(data.stats.lists().lstStats.empty());
    }
    EXPECT_TRUE(prompt.told.empty() && prompt.asked.empty());
}

TEST_F(ExportTest, obeysOptionsThatChangeMeanwhile) {
    listener.onYield = [this](int yield) {
        data.google.chkCall = yield < 5; // the first record of the second pass
        data.google.filter.band.set(1, yield > 5);
    };
    const std::string document =
        documentOf(record("A1A") + record("B1B") + record("C1C") + record("D1D", "<BAND:2>2M "));
    EXPECT_EQ(count(document, "<name>A1A</name>"), 1U);
    EXPECT_EQ(count(document, "<name>B1B</name>"), 0U);
    for (const auto& [call, times] : {std::pair{"B1B<", 1U}, {"C1C<", 0U}, {"D1D<", 1U}})
        EXPECT_EQ(count(document, std::string("lookup for ") + call), times) << call;
}

TEST_F(ExportFailureTest, ofALogThatCannotBeReadLeavesNothing) {
    data.run.LogFileName = logs.path("gone.adi");
    expectFailure(ExportEnd::LogUnreadable,
                  "The ADIF file could not be read.\r\n" + logs.path("gone.adi") + "\r\n", "");
    logs.write("log.kmz", "old");
    useLog(record("A1A", "<QSL_RCVD:1>Y ") + record("C1C="));
    inYield(2, [this] { // a record in front would move all others to the next one's folder
        std::ofstream(logs.path("log.adi"))
            << record("B1B") + record("A1A", "<QSL_RCVD:1>Y ") + record("C1C=");
    });
    expectFailure(ExportEnd::LogUnreadable, "The ADIF file could not be read.\r\n",
                  "log.adi log.kmz ");
    EXPECT_EQ(logs.read("log.kmz"), "old");
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

TEST_F(ExportFailureTest, ofTheDocumentIsToldWithItsPlace) {
    useLog(manyRecords());
    const std::string told = "The Google Earth document could not be written.\r\n";
    files.KmlFileName = logs.path("missing/log.kml");
    expectFailure(ExportEnd::DocumentFailed, told + files.KmlFileName + "\r\n", "log.adi ");
    files.KmlFileName = logs.path("log.kml");
    std::filesystem::create_directory(logs.path("log.kml"));
    data.google.filter.band.set(1, true); // so that the document is left, where a folder stands
    EXPECT_EQ(exportLog(), ExportEnd::DocumentFailed);
    EXPECT_EQ(prompt.told.back(), told + files.KmlFileName + "\r\nIs a directory");
}

TEST_F(ExportFailureTest, ofTheArchiveLeavesTheDocumentAndTheOldArchive) {
    useLog(record("A1A"));
    const std::string told = "The Google Earth file could not be created.\r\n";
    files.archive = logs.path("missing/log.kmz");
    expectFailure(ExportEnd::ArchiveFailed, told + files.archive, "log.adi log.kml ");
    EXPECT_TRUE(logs.read("log.kml").ends_with("</kml>\r\n"));
    files.archive = logs.path("log.kmz");
    logs.write("log.kmz", "old");
    // Whoever meddles with the work files gets no archive of half a document.
    useLog(manyRecords());
    inYield(2 * many + 1, [this] {
        for (const auto& entry : std::filesystem::directory_iterator(logs.path())) {
            if (entry.is_directory())
                std::ofstream(entry.path() / "log.kml") << "cut short";
        }
    });
    expectFailure(ExportEnd::ArchiveFailed, told + files.archive, "log.adi log.kml log.kmz ");
    EXPECT_TRUE(prompt.told.back().ends_with("the document was changed before it was packed"));
    EXPECT_EQ(logs.read("log.kmz"), "old");
}

} // namespace
} // namespace tovrel
