#include "log/AdifReader.h"

#include "platform/TestFolder.h"

#include <gtest/gtest.h>
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
    const std::string blanks(58, ' '); // its tag has 65 characters behind the "<"
    const std::pair<std::string, Records> cases[] = {
        {"", {}},
        {"a log without any <tag", {}},
        // No header, all line ends.
        {"<call:2>A1\r<BAND:3>20m\n<eor>\r\n<CALL:2>A2<Eor>", {"A1 20m", "A2 "}},
        {"\xEF\xBB\xBF<CALL:2>A1<EOR>", {"A1 "}},
        // A header has fields, its end lies within a line; after a record it is none.
        {"made by <CALL:9>somebody <eoh> <CALL:2>A1<EOR>", {"A1 "}},
        {"<VER:9>1<EOH><CALL:2>A1<EOR>", {"A1 "}},
        {"<CALL:2>A1<EOR><CALL:2>A2<EOH><BAND:2>6m<EOR>", {"A1 ", " 6m"}},
        {"< CALL : 2 : S:x >A1<BAND:2:>6m<EOR>", {"A1 6m"}},
        {"<CALL:6> A1\r\n\t<EOR>", {"A1 "}},
        {"<CALL:2>A1 ; remark <BAND:2>6m or so<EOR>", {"A1 6m"}},
        // Of two fields the last counts, an empty one too.
        {"<CALL:2>A1<BAND:2>6m<CALL:2>A2<BAND:0><EOR>", {"A2 "}},
        // No field makes no record, one that nobody looks at does, and the file's end ends none.
        {"<EOR> x <EOR><CALL:2>A1<EOR><A><EOR>", {"A1 "}},
        {"<X:0><EOR>", {" "}},
        {"<CALL:2>A1<EOR><CALL:2>A2", {"A1 "}},
        {"<CALL:2>A1<EOR ><EOR:1>x< EOR><EOR>", {"A1 "}}, // marks with more in them are none
        // Tags without a length, a name, digits; within a tag; too long; within a value.
        {"<CALL:2>A1<BAND:>6m<:2>6m<BAND:+2>6m<BAND:2.0>6m<EOR>", {"A1 "}},
        {"<CA<CALL:2>A1<BAND<EOR>", {"A1 "}},
        {"<CALL" + blanks + ":2>A2<BAND:2>6m<EOR>", {" 6m"}},
        {"<NOTE:9><CALL:1>B<CALL:2>A1<EOR>", {"A1 "}},

        // Lengths that lie: too short; over the end of the record, of the file and of numbers;
        // into the next tag, its value and what stands behind it.
        {"<CALL:2>A1BCD<BAND:2>20m<EOR>", {"A1BCD 20m"}},
        {"<CALL:0>A1<EOR>", {"A1 "}},
        {"<CALL:18>A1<BAND:2>6m<EOR>\n<CALL:2>A2<EOR>", {"A1 6m", "A2 "}},
        {"<CALL:999999999999999999>A1<BAND:2>6m<EOR>", {"A1 6m"}},
        {"<CALL:" + std::string(50, '9') + ">A1<EOR>", {"A1 "}},
        {"<CALL:5>A1<BAND:2>6m<EOR>", {"A1 6m"}},
        {"<CALL:11>A1<BAND:2>6m<EOR>", {"A1 6m"}},
        {"<CALL:13>A1 <BAND:2>6m or so <EOR>", {"A1 6m"}},
        // Counted in characters, once with a blank at the cut; right, with white space behind.
        {"<CALL:5>\xC3\x84\xC3\x96 A1<BAND:2>6m<EOR>", {"\xC3\x84\xC3\x96 A1 6m"}},
        {"<CALL:4>\xC3\x84\xC3\x96 \xC3\x9C<EOR>", {"\xC3\x84\xC3\x96 \xC3\x9C "}},
        {"<CALL:2>\xC3\x84 \r\n <BAND:2>6m<EOR>", {"\xC3\x84 6m"}},
    };
    const TestFolder folder;
    for (const auto& [log, records] : cases) {
        const std::string path = folder.write("log.adi", log);
        for (const std::size_t blockSize : {std::size_t{1}, std::size_t{7}, ReadBlock::defaultSize})
            EXPECT_EQ(recordsOf(path, blockSize), records) << log << ", blocks of " << blockSize;
    }
}

TEST(AdifReader, refusesXmlAndUtf16) {
    const TestFolder folder;
    const std::pair<std::string, const char*> logs[] = {
        {"<?xml version=\"1.0\"?><ADX/>", "XML file (ADX)"},
        {"\xEF\xBB\xBF\r\n <adx><RECORDS>", "XML file (ADX)"},
        {std::string("\xFF\xFE<\0E\0O\0R\0>\0", 12), "UTF-16"},
        {std::string("\xFE\xFF\0<\0E\0O\0R\0>", 12), "UTF-16"}};
    for (const auto& [text, told] : logs) {
        LogFile file(folder.write("log.adx", text));
        AdifReader reader(file);
        EXPECT_EQ(reader.next(), Cut::Failed) << text;
        EXPECT_NE(reader.error().find(told), std::string::npos) << reader.error();
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
    const std::string text = "<CALL:2>A2 <BAND:3>20m <GRIDSQUARE:6>JO62qm <EOR>\r\n";
    const TestFolder folder;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::string before = "header <EOH><CALL:2>A1<EOR>\r\n" + text.substr(0, at);
        const std::string after = text.substr(at + 1) + "<CALL:2>A3 <BAND:2>6m <EOR>\r\n";
        for (const std::string damaged : {"", "<", ">", ":", "9", "\xFF", "\r\n"}) {
            const std::string log = std::string(before).append(damaged).append(after);
            const Records records = recordsOf(folder.write("log.adi", log), 64);
            ASSERT_GE(records.size(), 2U) << log;
            EXPECT_EQ(records.front(), "A1 ") << log;
            EXPECT_EQ(records.back(), "A3 6m") << log;
        }
    }
}

} // namespace
} // namespace tovrel
