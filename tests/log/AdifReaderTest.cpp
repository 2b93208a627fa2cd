#include "log/AdifReader.h"

#include "platform/TestFolder.h"

#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace tovrel {
namespace {

/// The records of a log, "CALL BAND" each, read in blocks of a size.
std::vector<std::string> recordsOf(const std::string& path, std::size_t blockSize) {
    LogFile file(path, LogFile::Check::SameBytes);
    AdifReader reader(file, blockSize);
    std::vector<std::string> records;
    Cut cut = reader.next();
    for (; cut == Cut::Record; cut = reader.next())
        records.push_back(std::string(reader.fields().call) + " " +
                          std::string(reader.fields().band));
    EXPECT_EQ(cut, Cut::End) << reader.error();
    EXPECT_EQ(reader.next(), cut);
    return records;
}

using Records = std::vector<std::string>;

TEST(AdifReader, readsLogsOfEveryShape) {
    const std::string longName(62, 'N'); // its tag has 65 characters behind the "<"
    const struct {
        const char* what;
        std::string log;
        Records records;
    } cases[] = {
        {"empty", "", {}},
        {"no record", "a log without any <tag", {}},
        {"no header, all line ends",
         "<call:2>A1\r<BAND:3>20m\n<eor>\r\n<CALL:2>A2<Eor>",
         {"A1 20m", "A2 "}},
        {"byte order mark", "\xEF\xBB\xBF<CALL:2>A1<EOR>", {"A1 "}},
        {"header with fields, its end within a line",
         "made by <CALL:9>somebody <eoh> <CALL:2>A1<EOR>",
         {"A1 "}},
        {"header whose length leads over its end", "<VER:9>1<EOH><CALL:2>A1<EOR>", {"A1 "}},
        {"header after a record is none",
         "<CALL:2>A1<EOR><CALL:2>A2<EOH><BAND:2>6m<EOR>",
         {"A1 ", " 6m"}},
        {"type, blanks in the tag", "< CALL : 2 : S:x ><BAND:2:>6m", {}},
        {"type, blanks in the tag, end", "< CALL : 2 : S:x >A1<BAND:2:>6m<EOR>", {"A1 6m"}},
        {"white space round a value", "<CALL:6> A1\r\n\t<EOR>", {"A1 "}},
        {"text behind a value", "<CALL:2>A1 ; remark <BAND:2>6m or so<EOR>", {"A1 6m"}},
        {"of two fields the last, an empty one too",
         "<CALL:2>A1<BAND:2>6m<CALL:2>A2<BAND:0><EOR>",
         {"A2 "}},
        {"a record without any field", "<EOR> x <EOR><CALL:2>A1<EOR><A><EOR>", {"A1 "}},
        {"a field that nobody looks at makes a record", "<X:0><EOR>", {" "}},
        {"a record that the file ends in", "<CALL:2>A1<EOR><CALL:2>A2", {"A1 "}},
        {"marks with more in them are none", "<CALL:2>A1<EOR ><EOR:1>x< EOR><EOR>", {"A1 "}},
        {"no length, no name, no digits",
         "<CALL:2>A1<BAND:>6m<:2>6m<BAND:+2>6m<BAND:2.0>6m<EOR>",
         {"A1 "}},
        {"a tag within a tag", "<CA<CALL:2>A1<BAND<EOR>", {"A1 "}},
        {"a tag that is too long", "<" + longName + ":2>A2<CALL:2>A1<EOR>", {"A1 "}},
        {"value with brackets", "<NOTE:9><CALL:1>B<CALL:2>A1<EOR>", {"A1 "}},

        // Lengths that lie.
        {"too short", "<CALL:2>A1BCD<BAND:2>20m<EOR>", {"A1BCD 20m"}},
        {"zero", "<CALL:0>A1<EOR>", {"A1 "}},
        {"over the record's end", "<CALL:20>A1<BAND:2>6m<EOR>\n<CALL:2>A2<EOR>", {"A1 6m", "A2 "}},
        {"beyond the file", "<CALL:999999999999999999>A1<BAND:2>6m<EOR>", {"A1 6m"}},
        {"far too many digits", "<CALL:" + std::string(50, '9') + ">A1<EOR>", {"A1 "}},
        {"into the next tag", "<CALL:5>A1<BAND:2>6m<EOR>", {"A1 6m"}},
        {"into the next value", "<CALL:11>A1<BAND:2>6m<EOR>", {"A1 6m"}},
        {"over a tag, with a remark behind", "<CALL:13>A1 <BAND:2>6m or so <EOR>", {"A1 6m"}},
        {"counted in characters",
         "<CALL:5>\xC3\x84\xC3\x96 A1<BAND:2>6m<EOR>",
         {"\xC3\x84\xC3\x96 A1 6m"}},
        {"counted in characters, a blank at the cut",
         "<CALL:3>\xC3\x84\xC3\x96 \xC3\x9C<EOR>",
         {"\xC3\x84\xC3\x96 \xC3\x9C "}},
        {"right, white space before the tag",
         "<CALL:2>\xC3\x84 \r\n <BAND:2>6m<EOR>",
         {"\xC3\x84 6m"}},
    };
    const TestFolder folder;
    for (const auto& c : cases) {
        const std::string path = folder.write("log.adi", c.log);
        for (const std::size_t blockSize : {std::size_t{1}, std::size_t{7}, ReadBlock::defaultSize})
            EXPECT_EQ(recordsOf(path, blockSize), c.records) << c.what << ", " << blockSize;
    }
}

TEST(AdifReader, refusesXml) {
    const TestFolder folder;
    for (const char* text : {"<?xml version=\"1.0\"?><ADX/>", "\xEF\xBB\xBF\r\n <adx><RECORDS>"}) {
        LogFile file(folder.write("log.adx", text));
        AdifReader reader(file);
        EXPECT_EQ(reader.next(), Cut::Failed) << text;
        EXPECT_EQ(reader.error(), "it is an XML file (ADX); Tovrel reads ADI files");
    }
}

// Each of these takes hours where a length, a blank or a bracket makes the reader look at the rest
// of the log once more.
TEST(AdifReader, looksAtNoByteTooOften) {
    constexpr std::size_t size = std::size_t{4} << 20U;
    const std::string white(size / 4, ' ');
    const auto repeated = [](std::string_view part) {
        std::string text;
        while (text.size() < size)
            text += part;
        return text;
    };
    const std::string logs[] = {repeated("<"),
                                repeated("<A:9>"),
                                repeated("<A:1000000>"),
                                repeated("<A:99999>\xC3 "),
                                repeated("<A:1000000>x"),
                                repeated("<A:1000000>x") + white + "x" + white,
                                "<CALL:2>A1" + white + "<EOR"};
    const TestFolder folder;
    for (const std::string& log : logs)
        EXPECT_EQ(recordsOf(folder.write("log.adi", log), ReadBlock::defaultSize), Records());
}

TEST(AdifReader, losesNoRecordBesideADamagedOne) {
    constexpr int records = 1000;
    constexpr int damagedOnes = 50;
    std::mt19937 random(7);
    std::string log = "header <EOH>\r\n";
    for (int i = 0; i < records; ++i) {
        const std::string call = "A" + std::to_string(1000 + i);
        std::string text = "<CALL:5>" + call + " <BAND:3>20m <GRIDSQUARE:6>JO62qm <EOR>\r\n";
        if (i % (records / damagedOnes) == 10) {
            const std::size_t at = random() % (text.size() - 2);
            switch (random() % 3) {
            case 0:
                text[at] = static_cast<char>(random() % 256);
                break;
            case 1:
                text.erase(at, 1);
                break;
            default:
                text.insert(at, 1, text[at]);
            }
        }
        log += text;
    }
    const TestFolder folder;
    int whole = 0;
    for (const std::string& record : recordsOf(folder.write("log.adi", log), 4096))
        whole += record.size() == 9 && record.ends_with(" 20m") ? 1 : 0;
    EXPECT_GE(whole, 940);
}

} // namespace
} // namespace tovrel
