#include "export/LogBook.h"

#include "log/FieldTable.h"
#include "log/RecordReader.h"
#include "platform/TestFolder.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace tovrel {
namespace {

const std::string goldenFolder = TOVREL_DATA_DIR "/../tests/data/export/";

/// A record line as a QSO.
struct LineQso : Qso {
    explicit LineQso(std::string_view line) : Qso({}, entities_) {
        table_.loadFrom(FieldTable::defaultFieldDictionary());
        table_.ResolveFieldRows();
        table_.ParseRecordLine(line);
        table_.read(fields_);
        take(fields_, line.size());
    }

private:
    EntityTable entities_;
    FieldTable table_;
    QsoFields fields_;
};

std::string documentOf(const std::string& log, bool withName) {
    const TestFolder folder;
    LogBook book;
    EXPECT_TRUE(book.WriteKmlHead(folder.path("log.kml"), "W1TVR", "0.33"));
    for (const QsoStatus status : {QsoStatus::Confirmed, QsoStatus::Worked, QsoStatus::Heard}) {
        book.WriteFolderHead(status);
        LogFile file(log);
        RecordReader reader(file);
        for (Cut cut = reader.next(); cut != Cut::End; cut = reader.next()) {
            if (cut == Cut::Record) {
                const LineQso qso(reader.line());
                if (qso.folder() == status)
                    book.WritePlacemark(qso, withName);
            }
        }
        book.WriteFolderEnd();
    }
    book.WriteKmlTail();
    EXPECT_TRUE(book.close()) << book.error();
    return folder.read("log.kml");
}

struct Placed {
    std::string text;
    GoogleCounters counters;
};

/// A document with the three folders, each offered one record.
Placed placed(const std::string& record) {
    const TestFolder folder;
    const LineQso qso(record);
    LogBook book;
    EXPECT_TRUE(book.WriteKmlHead(folder.path("log.kml"), "", "1"));
    for (const QsoStatus status : {QsoStatus::Confirmed, QsoStatus::Worked, QsoStatus::Heard}) {
        book.WriteFolderHead(status);
        if (qso.folder() == status)
            book.WritePlacemark(qso, true);
    }
    EXPECT_TRUE(book.close());
    return {folder.read("log.kml"), book.counters()};
}

TEST(LogBook, namesTheDocumentAfterTheLogWithoutItsOtherDots) {
    const std::pair<std::string, std::string> cases[] = {
        {"/home/op/log.adi", "/home/op/log.kml"},
        {"/home/op/my.log.adi", "/home/op/mylog.kml"},
        {"/home/op/logs.d/my.log.adi", "/home/op/logs.d/mylog.kml"},
        {"/home/op.x/log", "/home/op.x/.kml"},
        {"../log", "../.kml"},
        {"/home/op/log.", "/home/op/log.kml"},
        {"C:\\logs\\a.b.ADI", "C:\\logs\\ab.kml"},
        {"", ".kml"}};
    for (const auto& [log, document] : cases)
        EXPECT_EQ(kmlFileNameFor(log), document) << log;
}

TEST(LogBook, scalesTheIconsByTheMarkerOfTheSettings) {
    const std::pair<std::string, std::string> cases[] = {
        {"Small", "0.33"}, {"Medium", "0.66"}, {"Large", "1"}, {"1", "0.66"},
        {"1.0", "0.66"},   {"small", "1"},     {"2", "1"},     {"", "1"}};
    for (const auto& [marker, scale] : cases)
        EXPECT_EQ(iconScaleOf(marker), scale) << marker;
}

TEST(LogBook, writesTheDocumentToTheByte) {
    const FileContent golden = readFile(goldenFolder + "golden.kml");
    ASSERT_TRUE(golden);
    EXPECT_EQ(documentOf(goldenFolder + "golden.adi", true), golden.bytes);
}

TEST(LogBook, leavesOutTheNamesAloneWhenTheCallIsNotToBeShown) {
    std::string expected = documentOf(goldenFolder + "golden.adi", true);
    for (std::size_t at = 0; (at = expected.find("\r\n    <name>", at)) != std::string::npos;)
        expected.erase(at, expected.find("\r\n", at + 2) - at);
    EXPECT_EQ(documentOf(goldenFolder + "golden.adi", false), expected);
}

TEST(LogBook, sortsARecordIntoItsFolder) {
    const struct {
        std::string call;
        std::string fields;
        std::optional<QsoStatus> folder;
    } cases[] = {{"W1AW", "<QSL_RCVD:1>Y", QsoStatus::Confirmed},
                 {"W1AW", "<QSL_RCVD:1> Y  ", QsoStatus::Confirmed},
                 {"W1AW", "<QSL_RCVD:1>N <LOTW_QSL_RCVD:1>Y", QsoStatus::Confirmed},
                 {"W1AW", "<QSL_RCVD:1>N <eqsl_qsl_rcvd:1>Y", QsoStatus::Confirmed},
                 {"W1AW", "<QSL_RCVD:1>y <LOTW_QSL_RCVD:1>y <EQSL_QSL_RCVD:1>y", QsoStatus::Worked},
                 {"W1AW", "<QSL_RCVD:1>YES", QsoStatus::Worked},
                 {"W1AW", "", QsoStatus::Worked},
                 {"", "<QSL_RCVD:1>Y", QsoStatus::Confirmed},
                 {"", "", QsoStatus::Worked},
                 {"W1AW=", "", QsoStatus::Heard},
                 {" W1AW= ", "<QSL_RCVD:1>N", QsoStatus::Heard},
                 {"=", "", QsoStatus::Heard},
                 {"W1=AW", "", QsoStatus::Worked},
                 // On the map these are heard.
                 {"W1AW=", "<QSL_RCVD:1>Y", std::nullopt},
                 {"W1AW=", "<LOTW_QSL_RCVD:1>Y", std::nullopt}};
    for (const auto& c : cases) {
        const Placed result = placed("<APP_LOGGER32_LNG:1>5 <APP_LOGGER32_LAT:1>5 <CALL:4>" +
                                     c.call + "<X:1>" + c.fields);
        const GoogleCounters& n = result.counters;
        EXPECT_EQ(n.GoogleConfirmed, c.folder == QsoStatus::Confirmed) << c.call << c.fields;
        EXPECT_EQ(n.GoogleWorked, c.folder == QsoStatus::Worked) << c.call << c.fields;
        EXPECT_EQ(n.GoogleHeard, c.folder == QsoStatus::Heard) << c.call << c.fields;
        EXPECT_EQ(result.text.find("=<"), std::string::npos) << c.call;
    }
}

TEST(LogBook, turnsTheSignOfTheLongitudeAndDropsWhatIsNone) {
    const std::pair<std::string, std::string> cases[] = {
        {"73.5", "-73.5"}, {"-0.5", "0.5"},        {".5", "-0.5"},
        {"12,5", "-12"},   {"  -7.50  ", "7.5"},   {"1e2", "-100"},
        {"4W", "-4"},      {"0.000001", "-1e-06"}, {"100.12345678901234567", "-100.123456789012"}};
    const auto placedAt = [](const std::string& field) {
        return placed("<CALL:4>W1AW <APP_LOGGER32_LNG:1>" + field +
                      "<APP_LOGGER32_LAT:1> 0,0 <EOR>");
    };
    for (const auto& [field, longitude] : cases) {
        const Placed result = placedAt(field);
        EXPECT_EQ(result.counters.GooglePlaced(), 1) << field;
        for (const std::string& line : {"<longitude>" + longitude + "</longitude>\r\n",
                                        "<coordinates>" + longitude + ",0,0</coordinates>"})
            EXPECT_NE(result.text.find(line), std::string::npos) << field;
    }
    for (const char* none : {"0", "0.000", "-0", "", "   ", "W73", "nan", "inf"})
        EXPECT_EQ(placedAt(none).counters.GooglePlaced(), 0) << none;
}

TEST(LogBook, takesValuesLongerThanItsBuffer) {
    const std::string call(600'000, 'X');
    const std::string text = placed("<CALL:1>" + call + "<APP_LOGGER32_LNG:1>5").text;
    EXPECT_NE(text.find("    <name>" + call + "</name>\r\n    <description>"), std::string::npos);
    EXPECT_TRUE(text.ends_with("   </Placemark>\r\n"
                               "  <Folder>\r\n"
                               "   <name> Heard</name>\r\n"
                               "   <description>Stations heard by </description>\r\n"));
}

} // namespace
} // namespace tovrel
