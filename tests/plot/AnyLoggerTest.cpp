#include "plot/PlotLog.h"

namespace tovrel {
namespace {

// The logs are the first inputs of a fuzz target, too.
TEST(AnyLogger, plotsTheLogsOfTenKindsOfLogger) {
    const std::pair<const char*, const char*> kinds[] = {
        {"contest", "DL1ABC W locator Germany; K1ABC W country United States of America; "
                    "EA3ABC/8 W country Canary Islands; "},
        {"digital", "G4ABC W locator England; VK9XYZ W country Christmas Island; "
                    "G4ABC/P/1 C locator England; "},
        {"web", "OE1ABC W coordinates Austria; LU1ABC W coordinates Argentina; "
                "EI1ABC W country Ireland; "},
        {"service",
         "JA1ABC C locator JAPAN; Y22ABC C country GERMANY (EAST); W1AW/KH6 C country HAWAII; "},
        {"mobile", "SP1ABC W coordinates Poland; ZS1ABC W coordinates South Africa; "
                   "LA1ABC W country Norway; "},
        {"old", "ZS6ABC W country South Africa; ZL1ABC W country New Zealand; TO5AB "},
        {"joined", "G4ABC W locator England; F5ABC W country France; I2ABC W country Italy; "},
        {"satellite", "DK1ABC W locator Germany; PY1ABC W locator Brazil; RS0ISS/AM "},
        {"field", "ON4ABC W country Belgium; PA3ABC W country Netherlands; "
                  "W1AW/KP4 W country Puerto Rico; DL1ABC= H locator Germany; PA3ABC/MM "},
        {"logger32",
         "VE3ABC C coordinates Canada; VE7ABC W locator Canada; VE1ABC W country Canada; "},
    };
    for (const auto& [kind, plotted] : kinds) {
        const FileContent log =
            readFile(std::string(TOVREL_DATA_DIR "/../tests/data/fuzz/adif/") + kind + ".adi");
        ASSERT_TRUE(log) << kind;
        PlotRun run(log.bytes);
        run.data.run.reading.format = LogFormat::Adif;
        EXPECT_EQ(run.plot(), PassEnd::Done);
        std::string all; // "call class source country" of each, then what could not be plotted
        for (const PlotRow& row : run.data.tables.plotTable.rows()) {
            all.append(row.call).append(1, ' ').append(1, static_cast<char>(row.status));
            all.append(" ").append(wordOf(row.from)).append(" ");
            all.append(run.data.tables.plotTable.country(row)).append("; ");
        }
        EXPECT_EQ(all + run.calls(run.data.stats.lists().lstPfxNotPlotted), plotted) << kind;
    }
}

TEST(AnyLogger, filtersInAnyCaseAndCountsWhereThePlacesCameFrom) {
    const std::string filtered = adif("BAND", "20m") + adif("IOTA", "eu-005");
    std::string log;
    for (const char* mode : {"usb", "LSB", "am", "FM", "DigitalVoice", "c4fm", "phone", "SSB"})
        log += adif("CALL", "DL1ABC") + adif("MODE", mode) + filtered + "<EOR>";
    log += adif("CALL", "DL2ABC") + adif("MODE", "cw") + filtered + "<GRIDSQUARE:4>JO62<EOR>";
    log += adif("CALL", "TO5AB") + adif("MODE", "PSK31") + "<EOR>";
    const struct {
        int mode;
        bool byCountry;
        const char *counters, *sources;
    } cases[] = {{1, true, "10 8 0 8 0 0", "   0 by Coordinates   0 by Locator   8 by Country"},
                 {2, true, "10 1 0 1 0 0", "   0 by Coordinates   1 by Locator   0 by Country"},
                 {1, false, "10 0 0 0 0 8", "   0 by Coordinates   0 by Locator   0 by Country"}};
    for (const auto& c : cases) {
        PlotRun run(log);
        run.data.run.reading.format = LogFormat::Adif;
        Filter& filter = run.data.maps.inForce().filter;
        filter.band.set(7, true);
        filter.iota.set(4, true);
        filter.mode.set(c.mode, true);
        run.data.run.reading.placeByCountry = c.byCountry;
        EXPECT_EQ(run.plot(), PassEnd::Done);
        EXPECT_EQ(run.counters(), c.counters);
        const std::vector<std::string>& lines = run.data.stats.lists().lstStats;
        EXPECT_EQ(lines.at(3) + lines.at(4) + lines.at(5), c.sources) << lines.at(2);
    }
}

} // namespace
} // namespace tovrel
