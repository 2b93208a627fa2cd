#include "plot/GCMapLoadADIF.h"

#include "plot/PlotLog.h"

#include <filesystem>

namespace tovrel {
namespace {

const char* const noCoordinates = "Tovrel found nothing to display.\r\n"
                                  "It appears that your ADIF file does not contain\r\n"
                                  "Latitude & Longitude data.  Please refer to the\r\n"
                                  "Help File and create your ADIF file with the\r\n"
                                  "required Latitude & Logitude data.\r\n";
const char* const checkFilter = "Tovrel found nothing to display.\r\n"
                                " Please check you filter settings.";

TEST(GCMapLoadADIF, CountsListsAndSumsUpASmallLog) {
    PlotRun run("A header <EOH>\r\n" + record({"W1A", "41.5", "72.5", "20M", "CW", "", ""}) +
                record({"DL1A", " 50 ", " -10.5 ", "40M", "SSB", "", "<QSL_RCVD:1>Y"}) + "\r\n" +
                record({"ZS1A=", "-33", "-18", "", "", "", "<LOTW_QSL_RCVD:1>Y"}) +
                record({"G1A", "51", "0", "", "", "", ""}) +
                record({"AA1A", "", "7", "", "", "", ""}) +
                record({"JA1A", "35", "-139", "", "", "", "<eqsl_qsl_rcvd:1>Y<COUNTRY:5>Japan"}));
    EXPECT_EQ(run.plot(), PassEnd::Done);
    EXPECT_EQ(run.counters(), "6 4 2 1 1 2");
    EXPECT_EQ(run.data.stats.lists().lstStats,
              (std::vector<std::string>{" 6 QSOs Read", " --------------------", " 4 QSOs Plotted",
                                        "   1 Worked", "   2 Confirmed", "   1 Heard",
                                        " --------------------", " 2 Not Plotted"}));
    const StatusLists& lists = run.data.stats.lists();
    EXPECT_EQ(run.calls(lists.lstConfirmed), "DL1A JA1A ");
    EXPECT_EQ(run.calls(lists.lstWorked), "W1A ");
    EXPECT_EQ(run.calls(lists.lstHeard), "ZS1A= ");
    EXPECT_EQ(run.calls(lists.lstPfxNotPlotted), "AA1A G1A ");
    ASSERT_EQ(run.data.tables.plotTable.size(), 4U);
    const PlotRow& first = run.data.tables.plotTable.rows()[0];
    EXPECT_EQ(first.latitude, 41.5F);
    EXPECT_EQ(first.longitude, -72.5F) << "the log counts west positive";
    const PlotRow& last = run.data.tables.plotTable.rows()[3];
    EXPECT_EQ(last.call, "JA1A");
    EXPECT_EQ(run.data.tables.plotTable.country(last), "Japan");
    EXPECT_EQ(run.listener.caption, "Plotting ADIF File");
    EXPECT_EQ(run.listener.status, "Processing: log.adi");
    EXPECT_EQ(run.listener.maximum, 100.0F);
    EXPECT_FALSE(run.listener.open);
    EXPECT_EQ(run.listener.yields, 7) << "after each record and each blank line between them";
    EXPECT_TRUE(run.data.run.MapPlotted);
    EXPECT_TRUE(run.prompt.told.empty());
}

TEST(GCMapLoadADIF, ShowsTheShareOfTheBytesDone) {
    const std::string one = record({"W1A", "41", "72", "20M", "CW", "", ""}); // ends in CR LF
    PlotRun run(one + "\r\n\r\n" + one + "after the last record");
    run.plot();
    const double size = 2.0 * static_cast<double>(one.size()) + 4.0 + 21.0;
    const double line = static_cast<double>(one.size()) - 2.0;
    std::vector<float>& shown = run.listener.progress;
    shown.erase(std::unique(shown.begin(), shown.end()), shown.end());
    EXPECT_EQ(shown, (std::vector<float>{0.0F, static_cast<float>(line / size * 100.0),
                                         static_cast<float>(2.0 * line / size * 100.0)}));
    PlotRun empty("");
    EXPECT_EQ(empty.plot(), PassEnd::Done);
    EXPECT_EQ(empty.listener.progress.back(), 0.0F);
}

TEST(GCMapLoadADIF, TellsUsableCoordinatesFromOthers) {
    const struct {
        const char* text;
        bool usable;
    } cases[] = {{"41.7", true}, {"-0.5", true},   {"+7", true},  {"1e1", true}, {"12N", true},
                 {"0", false},   {"0.000", false}, {"-0", false}, {"", false},   {"N45", false},
                 {"0N", false},  {".", false},     {" 5", true},  {"91", true},  {"1,5", true}};
    for (const auto& c : cases) {
        for (const bool latitude : {true, false}) {
            PlotRun run(record(
                {"W1A", latitude ? c.text : "10", latitude ? "10" : c.text, "", "", "", ""}));
            run.plot();
            EXPECT_EQ(run.data.tables.counters.QsosPlotted, c.usable ? 1 : 0) << c.text;
            EXPECT_EQ(run.data.tables.counters.QsosNotPlotted, c.usable ? 0 : 1) << c.text;
            EXPECT_EQ(run.data.tables.LogHasCoordinates, latitude || c.usable) << c.text;
        }
    }
}

TEST(GCMapLoadADIF, FiltersByTheOptionsOfTheMapInForce) {
    const std::string log = record({"W1A", "41", "72", "20M", "CW"}) +
                            record({"W2A", "41", "72", "40M", "SSB", "NA-001"}) +
                            record({"W3A", "41", "72", "40M", "FT8", "EU-005"});
    const struct {
        Projection plotted, filtered;
        Criterion criterion;
        int member;
        const char* counters;
    } cases[] = {{Projection::Azimuthal, Projection::Azimuthal, Criterion::Band, 9, "3 2 0 2 0 0"},
                 {Projection::Miller, Projection::Azimuthal, Criterion::Band, 9, "3 3 0 3 0 0"},
                 {Projection::Miller, Projection::Miller, Criterion::Mode, 3, "3 1 0 1 0 0"},
                 {Projection::Azimuthal, Projection::Azimuthal, Criterion::Iota, 4, "3 1 0 1 0 0"}};
    for (const auto& c : cases) {
        PlotRun run(log, c.plotted);
        run.data.maps.of(c.filtered).filter.group(c.criterion).set(c.member, true);
        run.plot();
        EXPECT_EQ(run.counters(), c.counters) << c.member;
    }
}

TEST(GCMapLoadADIF, SaysWhyThereIsNothingToShow) {
    using Told = std::vector<std::string>;
    const struct {
        std::string log;
        bool filterOn; // 40M alone
        Told told;
    } cases[] = {
        {"", false, {noCoordinates}},
        {record({"W1A"}), false, {noCoordinates}},
        {record({"W1A", "", "72"}), false, {}}, // a longitude counts, a latitude does not
        {record({"W1A", "41", ""}), false, {noCoordinates}},
        {record({"W1A", "41", "72"}), true, {checkFilter}},
        {record({"W1A"}), true, {noCoordinates}},
        {record({"W1A", "", "", "40M"}) + record({"W2A", "1", "2"}), true, {}}, // passed, placed
        {record({"W1A", "41", "72"}), false, {}}};
    for (const auto& c : cases) {
        PlotRun run(c.log);
        if (c.filterOn)
            run.data.maps.inForce().filter.band.set(9, true);
        EXPECT_EQ(run.plot(), PassEnd::Done) << c.log;
        EXPECT_EQ(run.prompt.told, c.told) << c.log;
        EXPECT_EQ(run.prompt.icons, std::vector(c.told.size(), MessageIcon::None));
        EXPECT_EQ(run.data.stats.lists().lstStats.size(), 8U) << c.log;
        EXPECT_FALSE(run.listener.open) << c.log;
    }
}

TEST(GCMapLoadADIF, AnAbortStopsAfterTheNextRecord) {
    std::string log;
    for (const char* call : {"W1A", "W2A", "W3A", "W4A", "W5A", "W6A"})
        log += record({call, call[1] % 2 ? "41" : "", "72", "", "", "", ""});
    PlotRun run(log);
    run.data.run.AbortRequested = true; // made before the pass: dropped
    run.listener.onYield = [&](int n) {
        if (n == 3)
            run.data.run.AbortRequested = true;
    };
    EXPECT_EQ(run.plot(), PassEnd::Aborted);
    EXPECT_EQ(run.counters(), "4 2 0 0 0 2");
    EXPECT_EQ(run.listener.yields, 3) << "stopped without another yield";
    EXPECT_EQ(run.listener.progress.size(), 4U) << "and without progress";
    EXPECT_EQ(run.data.tables.plotTable.size(), 2U);
    EXPECT_FALSE(run.data.tables.plotTable.rows()[0].shown());
    const StatusLists& lists = run.data.stats.lists();
    EXPECT_EQ(run.calls(lists.lstPfxNotPlotted), "W2A W4A ");
    EXPECT_EQ(lists.lstWorked.size() + lists.lstStats.size(), 0U);
    EXPECT_TRUE(run.data.run.MapPlotted);
    EXPECT_FALSE(run.data.run.AbortRequested);
    EXPECT_TRUE(run.listener.open) << "the progress window stays";
    EXPECT_TRUE(run.prompt.told.empty());
    EXPECT_EQ(inkOver(run.surface, 0xFFFFFF).count, 0);
}

TEST(GCMapLoadADIF, BlankLinesDontLookForAnAbort) {
    const std::string one = record({"W1A", "41", "72", "", "", "", ""});
    PlotRun run(one + "\r\n\r\n\r\n" + one + one);
    run.listener.onYield = [&](int n) { run.data.run.AbortRequested |= n == 1; };
    EXPECT_EQ(run.plot(), PassEnd::Aborted);
    EXPECT_EQ(run.listener.yields, 4);
    EXPECT_EQ(run.data.tables.counters.QsosRead, 2);
    run.listener.onYield = [&](int n) { run.data.run.AbortRequested |= n == 6; };
    EXPECT_EQ(run.plot(), PassEnd::Done) << "too late, after the last record";
    EXPECT_FALSE(run.data.run.AbortRequested);
    EXPECT_EQ(run.data.stats.lists().lstStats.size(), 8U);
}

TEST(GCMapLoadADIF, ReadsTheTagListOnceAtItsFirstRecord) {
    const std::string one = record({"W1A", "41", "72", "", "", "", ""});
    PlotRun run(one + one);
    run.listener.onYield = [&](int) { std::filesystem::remove(run.folder.path("TVADIF.txt")); };
    EXPECT_EQ(run.plot(), PassEnd::Done);
    EXPECT_EQ(run.data.tables.counters.QsosPlotted, 2);
}

TEST(GCMapLoadADIF, ASecondPassGivesTheSame) {
    PlotRun run(record({"W1A", "41", "72", "", "", "", "<QSL_RCVD:1>Y"}) +
                record({"W2A=", "-41", "72"}) + record({"W3A"}));
    const auto result = [&] {
        run.plot();
        const StatusLists& lists = run.data.stats.lists();
        return run.counters() + run.calls(lists.lstConfirmed) + run.calls(lists.lstHeard) +
               run.calls(lists.lstPfxNotPlotted) + std::to_string(lists.lstStats.size()) + '/' +
               std::to_string(run.data.tables.plotTable.size());
    };
    const std::string first = result();
    const QImage picture = run.surface.Image();
    EXPECT_EQ(result(), first);
    EXPECT_EQ(run.surface.Image(), picture);
}

TEST(GCMapLoadADIF, AChangedOptionHoldsFromTheNextRecordOn) {
    std::string log;
    for (int i = 0; i < 6; ++i)
        log += record({"W1A", "41", "72", "20M", "", "", ""});
    PlotRun run(log);
    run.listener.onYield = [&](int n) {
        if (n == 2 || n == 4)
            run.data.maps.inForce().filter.band.set(9, n == 2);
    };
    run.plot();
    EXPECT_EQ(run.counters(), "6 4 0 4 0 0");
}

TEST(GCMapLoadADIF, ALogThatCantBeReadLeavesNothingBehind) {
    const std::string one =
        record({"W1A", "", "72", "", "", "", adif("COMMENT", std::string(3000, 'x'))});
    std::string big;
    while (big.size() < 3'000'000)
        big += one;
    const struct {
        const char* what;
        std::function<void(PlotRun&)> spoil;
        int inYield; // 0: before the pass
    } cases[] = {
        {"gone", [](PlotRun& run) { std::filesystem::remove(run.data.run.LogFileName); }, 0},
        {"a folder", [](PlotRun& run) { run.data.run.LogFileName = run.folder.path(); }, 0},
        {"shrinks",
         [](PlotRun& run) { std::filesystem::resize_file(run.data.run.LogFileName, 1'500'000); },
         20}};
    for (const auto& c : cases) {
        PlotRun run(big);
        run.data.stats.lists().lstStats = {"of an earlier pass"};
        run.listener.onYield = [&](int n) {
            if (n == c.inYield)
                c.spoil(run);
        };
        if (c.inYield == 0)
            c.spoil(run);
        run.prompt.onTell = [&] { EXPECT_FALSE(run.listener.open) << "closed before the message"; };
        EXPECT_EQ(run.plot(), PassEnd::LogUnreadable) << c.what;
        ASSERT_EQ(run.prompt.told.size(), 1U) << c.what;
        EXPECT_NE(run.prompt.told[0].find(run.data.run.LogFileName), std::string::npos);
        const StatusLists& lists = run.data.stats.lists();
        EXPECT_EQ(lists.lstPfxNotPlotted.size() + lists.lstStats.size(), 0U) << c.what;
        EXPECT_FALSE(run.data.run.MapPlotted) << c.what;
        EXPECT_EQ(run.counters(), "0 0 0 0 0 0");
        EXPECT_EQ(run.data.tables.plotTable.size(), 0U);
        EXPECT_EQ(inkOver(run.surface, 0xFFFFFF).count, 0);
    }
}

TEST(GCMapLoadADIF, ADictionaryThatHasGoneIsToldAtTheFirstRecord) {
    const std::string one = record({"W1A", "41", "72", "", "", "", ""});
    PlotRun empty("\r\n");
    std::filesystem::remove(empty.folder.path("TVADIF.txt"));
    EXPECT_EQ(empty.plot(), PassEnd::Done) << "without a record nobody asks for it";
    PlotRun run(one);
    std::filesystem::remove(run.folder.path("TVADIF.txt"));
    EXPECT_EQ(run.plot(), PassEnd::DictionaryMissing);
    ASSERT_EQ(run.prompt.told.size(), 1U);
    EXPECT_EQ(run.prompt.told[0], "     TVADIF.txt file not found.\r\n"
                                  "Tovrel will not function properly\r\n"
                                  "without the latest TVADIF.txt file.");
    EXPECT_EQ(run.prompt.icons[0], MessageIcon::Critical);
    EXPECT_FALSE(run.data.run.MapPlotted);
    // A changed one serves the next pass.
    run.folder.write("tvadif.TXT", "Call\r\napp_logger32_lat\r\nAPP_LOGGER32_LNG\r\n");
    EXPECT_EQ(run.plot(), PassEnd::Done);
    EXPECT_EQ(run.counters(), "1 1 0 1 0 0");

    std::filesystem::remove(run.folder.path("tvadif.TXT"));
    std::filesystem::create_directory(run.folder.path("TVADIF.txt"));
    EXPECT_EQ(run.plot(), PassEnd::DictionaryUnreadable);
    EXPECT_EQ(run.prompt.told.back(), "The tag list could not be read.\r\n" +
                                          run.folder.path("TVADIF.txt") + "\r\nIs a directory");
    EXPECT_FALSE(run.data.run.MapPlotted);
}

TEST(GCMapLoadADIF, TheMillerMapReadsHomeAfreshAndTheAzimuthalDoesNot) {
    for (const Projection projection : {Projection::Azimuthal, Projection::Miller}) {
        PlotRun run(record({"W1A", "41", "72", "", "", "", ""}), projection);
        run.data.ini.WriteIniValue("Globals", "Latitude", "10");
        run.data.ini.WriteIniValue("Globals", "Longitude", "");
        run.plot();
        const bool miller = projection == Projection::Miller;
        EXPECT_EQ(run.data.run.HomeLatitude, miller ? 10.0F : 40.0F);
        EXPECT_EQ(run.data.run.HomeLongitude, miller ? 0.0F : -74.0F);
    }
}

} // namespace
} // namespace tovrel
