#include "export/LogBook.h"

#include "export/ExportFixture.h"

namespace tovrel {
namespace {

TEST(LogBook, namesTheDocumentAfterTheLogWithoutItsOtherDots) {
    const std::pair<std::string, std::string> cases[] = {
        {"/home/op/logs.d/my.log.adi", "/home/op/logs.d/mylog.kml"},
        {"/home/op.x/log", "/home/op.x/.kml"},
        {"/home/op/log.", "/home/op/log.kml"},
        {"C:\\logs.d\\a.b.ADI", "C:\\logs.d\\ab.kml"},
        {"log.adi", "log.kml"},
        {"/home/op.x/", "/home/op.x/.kml"},
        {"", ".kml"}};
    for (const auto& [log, document] : cases)
        EXPECT_EQ(kmlFileNameFor(log), document) << log;
}

TEST(LogBook, scalesTheIconsByTheMarkerOfTheSettings) {
    const std::pair<std::string, std::string> cases[] = {
        {"Small", "0.33"}, {"Medium", "0.66"}, {"Large", "1"}, {"1.0", "0.66"}, {"small", "1"}};
    for (const auto& [marker, scale] : cases)
        EXPECT_EQ(iconScaleOf(marker), scale) << marker;
}

TEST_F(ExportTest, writesTheDocumentToTheByteAndLeavesOutNamesAlone) {
    const std::string golden = TOVREL_DATA_DIR "/../tests/data/export/golden";
    const std::string log = readFile(golden + ".adi").bytes;
    std::string expected = readFile(golden + ".kml").bytes;
    data.google.pickMarker(data.ini, MarkerSize::Small);
    EXPECT_EQ(documentOf(log), expected);
    EXPECT_EQ(
        data.stats.lists().lstStats,
        (std::vector<std::string>{"Google File:", " ", " 20 QSOs Read", " --------------------",
                                  " 13 QSOs Plotted", "   7 Worked", "   4 Confirmed", "   2 Heard",
                                  " --------------------", " 7 Not Plotted"}));
    EXPECT_EQ(data.stats.lists().lstPfxNotPlotted.size(), 0U);
    EXPECT_EQ(data.tables.counters.QsosPlotted, 0);
    for (std::size_t at = 0; (at = expected.find("\r\n    <name>", at)) != std::string::npos;)
        expected.erase(at, expected.find("\r\n", at + 2) - at);
    data.google.chkCall = false;
    EXPECT_EQ(documentOf(log), expected);
}

TEST_F(ExportTest, takesValuesLongerThanItsBuffer) {
    const std::string call(600'000, 'X');
    const std::string text = documentOf(record(call));
    EXPECT_NE(text.find("    <name>" + call + "</name>\r\n    <description>"), std::string::npos);
    EXPECT_TRUE(text.ends_with("  </Folder>\r\n </Document>\r\n</kml>\r\n"));
}

} // namespace
} // namespace tovrel
