#include "export/LogBook.h"

#include "export/ExportFixture.h"
#include "export/Unpacked.h"

namespace tovrel {
namespace {

class LogBookTest : public ExportTest {
protected:
    /// The document of a log; empty when nothing is placed.
    std::string documentOf(const std::string& log) {
        useLog(log);
        return exportLog() == ExportEnd::Done ? firstEntryOf(logs.read("log.kmz")) : "";
    }
};

TEST(LogBook, namesTheDocumentAfterTheLogWithoutItsOtherDots) {
    const std::pair<std::string, std::string> cases[] = {
        {"/home/op/logs.d/my.log.adi", "/home/op/logs.d/mylog.kml"},
        {"/home/op.x/log", "/home/op.x/.kml"},
        {"/home/op/log.", "/home/op/log.kml"},
        {"C:\\logs\\a.b.ADI", "C:\\logs\\ab.kml"},
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

TEST_F(LogBookTest, writesTheDocumentToTheByteAndLeavesOutNamesAlone) {
    const std::string golden = TOVREL_DATA_DIR "/../tests/data/export/golden";
    const std::string log = readFile(golden + ".adi").bytes;
    std::string expected = readFile(golden + ".kml").bytes;
    data.google.pickMarker(data.ini, MarkerSize::Small);
    EXPECT_EQ(documentOf(log), expected);
    for (std::size_t at = 0; (at = expected.find("\r\n    <name>", at)) != std::string::npos;)
        expected.erase(at, expected.find("\r\n", at + 2) - at);
    data.google.chkCall = false;
    EXPECT_EQ(documentOf(log), expected);
}

TEST_F(LogBookTest, sortsARecordIntoItsFolder) {
    // Beside what the golden log has.
    const std::pair<const char*, const char*> cases[] = {{"W1AW<QSL_RCVD:1> Y  ", "Confirmed"},
                                                         {"W1AW<QSL_RCVD:3>YES", "Worked"},
                                                         {"W1=AW", "Worked"},
                                                         {"", "Worked"},
                                                         {" W1AW= ", "Heard"}};
    for (const auto& [call, folder] : cases) {
        const std::string text = documentOf(record(call));
        EXPECT_NE(text.find(std::string("#Tovrel") + folder), std::string::npos) << call;
        EXPECT_EQ(text.find("#Tovrel"), text.rfind("#Tovrel")) << call;
    }
}

TEST_F(LogBookTest, turnsTheSignOfTheLongitudeAndDropsWhatIsNone) {
    const std::pair<std::string, std::string> cases[] = {
        {"-.5", "0.5"}, {"4W", "-4"}, {"0.000001", "-1e-06"}, {"-0", ""}, {"   ", ""}, {"nan", ""}};
    for (const auto& [field, longitude] : cases) {
        const std::string text = documentOf("<APP_LOGGER32_LNG:1>" + field + "<EOR>");
        EXPECT_EQ(text.empty(), longitude.empty()) << field;
        for (const std::string& line : {"<longitude>" + longitude + "</longitude>\r\n",
                                        "<coordinates>" + longitude + ",</coordinates>"})
            EXPECT_EQ(text.find(line) == std::string::npos, text.empty()) << field;
    }
}

TEST_F(LogBookTest, takesValuesLongerThanItsBuffer) {
    const std::string call(600'000, 'X');
    const std::string text = documentOf(record(call));
    EXPECT_NE(text.find("    <name>" + call + "</name>\r\n    <description>"), std::string::npos);
    EXPECT_TRUE(text.ends_with("  </Folder>\r\n </Document>\r\n</kml>\r\n"));
}

} // namespace
} // namespace tovrel
