#include "log/RecordReader.h"

#include "platform/TestFolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <vector>

namespace tovrel {
namespace {

using Items = std::vector<std::string>; ///< record lines, "" for a blank, then "End" or "Failed"

Items itemsOf(LogFile& file, std::size_t blockSize) {
    RecordReader reader(file, blockSize);
    Items items;
    Cut cut = reader.next();
    for (; cut == Cut::Record || cut == Cut::Blank; cut = reader.next())
        items.emplace_back(reader.line());
    items.emplace_back(cut == Cut::End ? "End" : "Failed");
    EXPECT_EQ(reader.next(), cut);
    return items;
}

TEST(RecordReader, cutsLogsOfEveryShape) {
    const TestFolder folder;
    const std::string a = "<A:1>x<EOR>";
    const std::string b = "<B:1>y<EOR>";
    const std::pair<std::string, Items> cases[] = {
        {"", {"End"}},
        {a + "\r\n", {a, "End"}},
        {"\xEF\xBB\xBF" + a, {a, "End"}},
        {"\xEF\xBB\xBF", {"End"}},
        // A header of text, blanks and a mark with blanks after it.
        {"made by\r\n\r\n  \r\n<ver:1>1 <eoh>  \r\n " + a, {" " + a, "End"}},
        // One with a field on a line of its own joins the first record.
        {"<ver:1>1\r\n<EOH>\r\n" + a, {"<ver:1>1 <EOH> " + a, "End"}},
        {"x <EOH> y\r\n" + a, {a, "End"}},
        // The mark has any case, and blanks may follow it; a tab or text hides it.
        {"<A:1>x<eOr>   \r\n", {"<A:1>x<eOr>   ", "End"}},
        {a + "\t\r\n" + b, {a + "\t " + b, "End"}},
        {a + " y\r\n" + b, {a + " y " + b, "End"}},
        {a + b + "\r\n", {a + b, "End"}},
        {"  <A:1>x  \r\n  <B:1>y  \r\n<EOR>  \r\n", {"<A:1>x     <B:1>y <EOR>", "End"}},
        {"<A:1>x\r\n\r\n   \r\n<EOR>\r\n", {"<A:1>x <EOR>", "End"}},
        {a + "\r\n\r\n\r\n" + b, {a, "", "", b, "End"}},
        // A line of blanks joins the next record; with an empty line it is a blank.
        {a + "\r\n  \r\n " + b + " \r\n", {a, b, "End"}},
        {a + "\r\n  \r\n\r\n" + b, {a, "", b, "End"}},
        {a + "\r\n<B:1>y\r\n", {a, "End"}}, // unfinished
        {a + "\r" + b + "\n\r" + a + "\r\r\n" + b + "\r\n", {a, b, "", a, "", b, "End"}},
        {std::string("<A:1>\0\x1A\xFF<EOR>\n", 14),
         {std::string("<A:1>\0\x1A\xFF<EOR>", 13), "End"}},
    };
    for (const auto& [log, items] : cases) {
        const std::string path = folder.write("log.adi", log);
        for (const std::size_t blockSize : {1U, 2U, 3U, 5U, 16U, 4096U}) {
            LogFile file(path);
            EXPECT_EQ(itemsOf(file, blockSize), items) << log << ", blocks of " << blockSize;
        }
    }
}

// The logs take minutes together if the work on a line grows with what was joined before it.
TEST(RecordReader, takesLinearTimeForGiantRecordsAndLines) {
    const TestFolder folder;
    constexpr std::size_t count = 400000;
    std::string lines = "<A:1>";
    std::string carriageReturns = "<A:1>x<EOR>";
    for (std::size_t i = 0; i < count; ++i) {
        lines += i % 3 == 0 ? " \n" : "x \n";
        carriageReturns += "\r<A:1>x<EOR>";
    }
    const std::pair<std::string, std::size_t> cases[] = {
        {lines + "<EOR>", 1},
        {"<A:1>" + std::string(5 * ReadBlock::defaultSize, 'x') + "<EOR>\n", 1},
        {carriageReturns + "\n", count + 1}};
    for (const auto& [log, records] : cases) {
        const std::string path = folder.write("log.adi", log);
        for (const std::size_t blockSize : {ReadBlock::defaultSize, log.size()}) {
            LogFile file(path);
            EXPECT_EQ(itemsOf(file, blockSize).size() - 1, records);
        }
    }
}

TEST(RecordReader, laterPassesHaveToFindTheBytesOfTheFirst) {
    const TestFolder folder;
    const std::string path = folder.write("log.adi", "<A:1>x<EOR>\n");
    LogFile file(path, LogFile::Check::SameBytes);
    const Items whole = {"<A:1>x<EOR>", "End"};
    EXPECT_EQ(itemsOf(file, 4), whole);
    std::ofstream(path, std::ios::app) << "<B:1>y<EOR>\n";
    EXPECT_EQ(itemsOf(file, 4), whole) << "a logger may append";
    std::filesystem::rename(path, folder.path("other.adi"));
    folder.write("log.adi", "another one");
    EXPECT_EQ(itemsOf(file, 4), whole) << "and put another file in its place";
    std::fstream(folder.path("other.adi"), std::ios::in | std::ios::out) << "<A:1>z";
    EXPECT_EQ(itemsOf(file, 4), (Items{"<A:1>z<EOR>", "Failed"}));
    EXPECT_EQ(file.error(), "the file was changed while it was read");
}

} // namespace
} // namespace tovrel
