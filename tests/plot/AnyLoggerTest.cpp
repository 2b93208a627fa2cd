#include "plot/PlotLog.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

/// A run that reads its log as one of any logger.
struct AdifRun : PlotRun {
    explicit AdifRun(const std::string& log) : PlotRun(log) {
        data.run.reading.format = LogFormat::Adif;
    }

    /// The plotted contacts, "call class source country", each followed by a line end, and what
    /// could not be plotted.
    std::string plotted() {
        EXPECT_EQ(plot(), PassEnd::Done);
        std::string all;
        for (const PlotRow& row : data.tables.plotTable.rows()) {
            all.append(row.call).append(1, ' ').append(1, static_cast<char>(row.status));
            all.append(" ").append(wordOf(row.from)).append(" ");
            all.append(data.tables.plotTable.country(row)).append("\n");
        }
        return all + calls(data.stats.lists().lstPfxNotPlotted);
    }
};

// The logs are the first inputs of a fuzz target, too.
TEST(AnyLogger, plotsTheLogsOfTenKindsOfLogger) {
    const std::pair<const char*, const char*> kinds[] = {
        {"contest", "DL1ABC W locator Germany\nK1ABC W country United States of America\n"
                    "EA3ABC/8 W country Canary Islands\n"},
        {"digital",
         "G4ABC W locator England\nVK9XYZ W country Christmas Island\nG4ABC/P/1 C locator "
         "England\n"},
        {"web", "OE1ABC W coordinates Austria\nLU1ABC W coordinates Argentina\nEI1ABC W country "
                "Ireland\n"},
        {"service",
         "JA1ABC C locator JAPAN\nY22ABC C country GERMANY (EAST)\nW1AW/KH6 C country HAWAII\n"},
        {"mobile",
         "SP1ABC W coordinates Poland\nZS1ABC W coordinates South Africa\nLA1ABC W country "
         "Norway\n"},
        {"old", "ZS6ABC W country South Africa\nZL1ABC W country New Zealand\nTO5AB "},
        {"joined", "G4ABC W locator England\nF5ABC W country France\nI2ABC W country Italy\n"},
        {"satellite", "DK1ABC W locator Germany\nPY1ABC W locator Brazil\nRS0ISS/AM "},
        {"field",
         "ON4ABC W country Belgium\nPA3ABC W country Netherlands\nW1AW/KP4 W country Puerto Rico\n"
         "DL1ABC= H locator Germany\nPA3ABC/MM "},
        {"logger32",
         "VE3ABC C coordinates Canada\nVE7ABC W locator Canada\nVE1ABC W country Canada\n"},
    };
    for (const auto& [kind, plotted] : kinds) {
        const FileContent log =
            readFile(std::string(TOVREL_DATA_DIR "/../tests/data/fuzz/adif/") + kind + ".adi");
        ASSERT_TRUE(log) << kind;
        EXPECT_EQ(AdifRun(log.bytes).plotted(), plotted) << kind;
    }
}

TEST(AnyLogger, filtersInAnyCaseAndCountsWhereThePlacesCameFrom) {
    std::string log;
    for (const char* mode : {"usb", "LSB", "am", "FM", "DigitalVoice", "c4fm", "phone", "SSB"})
        log += adif("CALL", "DL1ABC") + adif("MODE", mode) + adif("BAND", "20m") +
               adif("IOTA", "eu-005") + "<EOR>";
    log += adif("CALL", "DL2ABC") + adif("MODE", "cw") + adif("BAND", "20m") +
           adif("IOTA", "eu-005") + adif("GRIDSQUARE", "JO62") + "<EOR>";
    log += adif("CALL", "TO5AB") + adif("MODE", "PSK31") + "<EOR>";
    const auto summary = [&log](int mode, bool byCountry = true) {
        AdifRun run(log);
        Filter& filter = run.data.maps.inForce().filter;
        filter.band.set(7, true);
        filter.iota.set(4, true);
        filter.mode.set(mode, true);
        run.data.run.reading.placeByCountry = byCountry;
        EXPECT_EQ(run.plot(), PassEnd::Done);
        std::string lines;
        for (const std::string& line : run.data.stats.lists().lstStats)
            lines += line.find('-') == std::string::npos ? line + ";" : "";
        return lines;
    };
    EXPECT_EQ(summary(1),
              " 10 QSOs Read; 8 QSOs Plotted;   0 by Coordinates;   0 by Locator;   8 by Country;"
              "   8 Worked;   0 Confirmed;   0 Heard; 0 Not Plotted;");
    EXPECT_EQ(summary(2),
              " 10 QSOs Read; 1 QSOs Plotted;   0 by Coordinates;   1 by Locator;   0 by Country;"
              "   1 Worked;   0 Confirmed;   0 Heard; 0 Not Plotted;");
    EXPECT_EQ(summary(1, false),
              " 10 QSOs Read; 0 QSOs Plotted;   0 by Coordinates;   0 by Locator;   0 by Country;"
              "   0 Worked;   0 Confirmed;   0 Heard; 8 Not Plotted;");
}

} // namespace
} // namespace tovrel
