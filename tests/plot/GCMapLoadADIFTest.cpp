#include "plot/GCMapLoadADIF.h"

#include "plot/PlotLog.h"

#include <filesystem>

namespace tovrel {
namespace {

using Texts = std::vector<std::string>;

TEST(GCMapLoadADIF, CountsListsAndSumsUpASmallLog) {
    PlotRun run(
        "A header <EOH>\r\n" + record({"W1A", "41.5", "72.5", "20M", "CW", "", ""}) +
        record({"DL1A", " 50 ", " -10.5 ", "40M", "SSB", "", "<QSL_RCVD:1>Y"}) + "\r\n" +
        record({"ZS1A=", "-33", "-18", "", "", "", "<LOTW_QSL_RCVD:1>Y<COUNTRY:5>Japan"}) +
        record({"G1A", "51", "0", "", "", "", ""}) + record({"AA1A", "", "7", "", "", "", ""}) +
        record({"N1A", "N45", "-0"}) +
        record({"JA1A", "35N", "-1.39e2", "", "", "", "<eqsl_qsl_rcvd:1>Y<COUNTRY:5>Japan"}));
    EXPECT_EQ(run.plot(), PassEnd::Done);
    const StatusLists& lists = run.data.stats.lists();
    EXPECT_EQ(lists.lstStats,
              (Texts{" 7 QSOs Read", " --------------------", " 4 QSOs Plotted", "   1 Worked",
                     "   2 Confirmed", "   1 Heard", " --------------------", " 3 Not Plotted"}));
    EXPECT_EQ(run.calls(lists.lstConfirmed), "DL1A JA1A ");
    EXPECT_EQ(run.calls(lists.lstWorked), "W1A ");
    EXPECT_EQ(run.calls(lists.lstHeard), "ZS1A= ");
    EXPECT_EQ(run.calls(lists.lstPfxNotPlotted), "AA1A G1A N1A ");
    const PlotTable& table = run.data.tables.plotTable;
    ASSERT_EQ(table.size(), 4U);
    EXPECT_EQ(table.rows()[0].latitude, 41.5F);
    EXPECT_EQ(table.rows()[0].longitude, -72.5F) << "the log counts west positive";
    EXPECT_EQ(table.country(table.rows()[0]), "");
    EXPECT_EQ(table.country(table.rows()[3]), "Japan");
    EXPECT_EQ(run.listener.status, "Processing: log.adi");
    EXPECT_EQ(run.listener.maximum, 100.0F);
    EXPECT_FALSE(run.listener.open);
    EXPECT_EQ(run.listener.yields, 8) << "after each record and each blank line between them";
    EXPECT_TRUE(run.data.run.MapPlotted);
    EXPECT_TRUE(run.prompt.told.empty());
    const QImage picture = run.surface.Image();
    run.plot();
    EXPECT_EQ(run.counters(), "7 4 2 1 1 3") << "a second pass gives the same";
    EXPECT_EQ(table.size(), 4U);
    EXPECT_EQ(run.surface.Image(), picture);
}

TEST(GCMapLoadADIF, ShowsTheShareOfTheBytesDone) {
    const std::string one = record({"W1A", "41", "72"}); // ends in CR LF
    PlotRun run(one + "\r\n" + one + "after the last record");
    run.plot();
    const auto line = static_cast<double>(one.size() - 2);
    const auto share = static_cast<float>(line / (2.0 * line + 6.0 + 21.0) * 100.0);
    EXPECT_EQ(run.listener.progress,
              (std::vector<float>{0.0F, share, share, 2.0F * share, 2.0F * share}));
}

TEST(GCMapLoadADIF, SaysWhyThereIsNothingToShow) {
    const struct {
        std::string log;
        bool filterOn;    ///< 40M alone
        const char* told; ///< a part of it; empty for nothing
    } cases[] = {
        {"", false, "Latitude & Longitude data"},
        {record({"W1A", "", "72"}), false, ""}, // a longitude counts, a latitude does not
        {record({"W1A", "41", ""}), false, "Latitude & Longitude data"},
        {record({"W1A", "41", "72"}), true, "filter settings"},
        {record({"W1A"}), true, "Latitude & Longitude data"},
        {record({"W1A", "", "", "40M"}) + record({"W2A", "1", "2"}), true, ""}}; // passed, placed
    for (const auto& c : cases) {
        PlotRun run(c.log);
        run.data.maps.inForce().filter.band.set(9, c.filterOn);
        EXPECT_EQ(run.plot(), PassEnd::Done) << c.log;
        ASSERT_EQ(run.prompt.told.empty(), c.told[0] == '\0') << c.log;
        if (!run.prompt.told.empty()) {
            EXPECT_NE(run.prompt.told[0].find(c.told), std::string::npos) << run.prompt.told[0];
        }
        EXPECT_FALSE(run.listener.open) << c.log;
    }
}

TEST(GCMapLoadADIF, AnAbortStopsAfterTheNextRecord) {
    const std::string one = record({"W1A", "41", "72"});
    PlotRun run(one + record({"W2A"}) + one + "\r\n\r\n" + record({"W4A"}) + one);
    run.data.run.AbortRequested = true; // made before the pass: dropped
    run.listener.onYield = [&](int n) { run.data.run.AbortRequested |= n == 3; };
    EXPECT_EQ(run.plot(), PassEnd::Aborted);
    EXPECT_EQ(run.counters(), "4 2 0 0 0 2");
    EXPECT_EQ(run.listener.yields, 5) << "blank lines don't look for it, and it has no yield";
    EXPECT_EQ(run.listener.progress.size(), 6U) << "and no progress";
    EXPECT_FALSE(run.data.tables.plotTable.rows()[0].shown());
    const StatusLists& lists = run.data.stats.lists();
    EXPECT_EQ(run.calls(lists.lstPfxNotPlotted), "W2A W4A ");
    EXPECT_EQ(lists.lstWorked.size() + lists.lstStats.size(), 0U);
    EXPECT_TRUE(run.data.run.MapPlotted);
    EXPECT_FALSE(run.data.run.AbortRequested);
    EXPECT_TRUE(run.listener.open) << "the progress window stays";
    EXPECT_TRUE(run.prompt.told.empty());
    EXPECT_EQ(run.ink().count, 0);
    run.listener.onYield = [&](int n) { run.data.run.AbortRequested |= n == 7; };
    EXPECT_EQ(run.plot(), PassEnd::Done) << "too late, after the last record";
    EXPECT_FALSE(run.data.run.AbortRequested);
}

TEST(GCMapLoadADIF, AChangedOptionHoldsFromTheNextRecordOn) {
    std::string log;
    for (int i = 0; i < 6; ++i)
        log += record({"W1A", "41", "72", "20M"});
    PlotRun run(log);
    run.listener.onYield = [&](int n) {
        if (n == 2 || n == 4)
            run.data.maps.inForce().filter.band.set(9, n == 2);
    };
    run.plot();
    EXPECT_EQ(run.counters(), "6 4 0 4 0 0");
}

TEST(GCMapLoadADIF, ALogThatCantBeReadLeavesNothingBehind) {
    std::string log;
    while (log.size() < 1'000'000) // more than a block
        log += record({"W1A", "", "72", "", "", "", adif("COMMENT", std::string(3000, 'x'))});
    PlotRun run(log);
    run.prompt.onTell = [&] { EXPECT_FALSE(run.listener.open) << "closed before the message"; };
    run.listener.onYield = [&](int n) {
        if (n == 20)
            std::filesystem::resize_file(run.data.run.LogFileName, 500'000);
    };
    for (const std::string& path : {run.data.run.LogFileName, run.folder.path("gone.adi")}) {
        run.data.run.LogFileName = path;
        run.data.stats.lists().lstStats = {"of an earlier pass"};
        EXPECT_EQ(run.plot(), PassEnd::LogUnreadable);
        EXPECT_NE(run.prompt.told.back().find(path), std::string::npos);
        const StatusLists& lists = run.data.stats.lists();
        EXPECT_EQ(lists.lstPfxNotPlotted.size() + lists.lstStats.size(), 0U) << path;
        EXPECT_FALSE(run.data.run.MapPlotted) << path;
        EXPECT_EQ(run.counters(), "0 0 0 0 0 0");
        EXPECT_EQ(run.ink().count, 0);
    }
    EXPECT_EQ(run.prompt.told.size(), 2U);
}

TEST(GCMapLoadADIF, TheTagListIsReadAtTheFirstRecordOfAPassAndThereAlone) {
    const std::string one = record({"W1A", "41", "72"});
    PlotRun empty("\r\n");
    std::filesystem::remove(empty.folder.path("TVADIF.txt"));
    EXPECT_EQ(empty.plot(), PassEnd::Done) << "without a record nobody asks for it";
    PlotRun run(one + one);
    run.listener.onYield = [&](int) { std::filesystem::remove(run.folder.path("TVADIF.txt")); };
    EXPECT_EQ(run.plot(), PassEnd::Done);
    EXPECT_EQ(run.counters(), "2 2 0 2 0 0");
    EXPECT_EQ(run.plot(), PassEnd::DictionaryMissing);
    EXPECT_EQ(run.prompt.told, Texts{std::string(FieldTable::missingMessage)});
    EXPECT_EQ(run.prompt.icons[0], MessageIcon::Critical);
    EXPECT_FALSE(run.data.run.MapPlotted);
    std::filesystem::create_directory(run.folder.path("TVADIF.txt"));
    EXPECT_EQ(run.plot(), PassEnd::DictionaryUnreadable);
    EXPECT_EQ(run.prompt.told.back(), "The tag list could not be read.\r\n" +
                                          run.folder.path("TVADIF.txt") + "\r\nIs a directory");
}

} // namespace
} // namespace tovrel
