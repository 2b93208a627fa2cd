#include "log/RecordReader.h"

#include "platform/TestFolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <vector>

namespace tovrel {
namespace {

using Items = std::vector<std::string>; ///< record lines, "" for a blank, then "End" or "Failed"

Items cutAll(RecordReader& reader) {
    Items items;
    for (;;) {
        switch (reader.next()) {
        case Cut::Record:
            items.emplace_back(reader.line());
            break;
        case Cut::Blank:
            items.emplace_back();
            break;
        case Cut::End:
            items.emplace_back("End");
            return items;
        case Cut::Failed:
            items.emplace_back("Failed");
            return items;
        }
    }
}

constexpr std::size_t blockSizes[] = {1, 2, 3, 5, 16, ReadBlock::defaultSize};

TEST(RecordReader, cutsLogsOfEveryShape) {
    const TestFolder folder;
    const struct {
        const char* what;
        std::string log;
        Items items;
    } cases[] = {
        {"empty file", "", {"End"}},
        {"header alone", "text\r\n<EOH>\r\n", {"End"}},
        {"no header", "<A:1>x<EOR>\r\n", {"<A:1>x<EOR>", "End"}},
        {"byte order mark", "\xEF\xBB\xBF<A:1>x<EOR>\r\n", {"<A:1>x<EOR>", "End"}},
        {"byte order mark alone", "\xEF\xBB\xBF", {"End"}},
        {"header of text, blanks and a mark with blanks after it",
         "made by\r\n\r\n  \r\n<ver:1>1 <eoh>  \r\n <A:1>x<EOR>\r\n",
         {" <A:1>x<EOR>", "End"}},
        {"header field on its own line joins the first record",
         "<ver:1>1\r\n<EOH>\r\n<A:1>x<EOR>\r\n",
         {"<ver:1>1 <EOH> <A:1>x<EOR>", "End"}},
        {"text in front of the mark hides it",
         "x <EOH> y\r\n<A:1>x<EOR>\r\n",
         {"<A:1>x<EOR>", "End"}},
        {"case of the mark and blanks after it", "<A:1>x<eOr>   \r\n", {"<A:1>x<eOr>   ", "End"}},
        {"a tab after the mark",
         "<A:1>x<EOR>\t\r\n<B:1>y<EOR>\r\n",
         {"<A:1>x<EOR>\t <B:1>y<EOR>", "End"}},
        {"text after the mark",
         "<A:1>x<EOR> y\r\n<B:1>y<EOR>\r\n",
         {"<A:1>x<EOR> y <B:1>y<EOR>", "End"}},
        {"two records on a line", "<A:1>x<EOR><B:1>y<EOR>\r\n", {"<A:1>x<EOR><B:1>y<EOR>", "End"}},
        {"blanks at a join",
         "  <A:1>x  \r\n  <B:1>y  \r\n<EOR>  \r\n",
         {"<A:1>x     <B:1>y <EOR>", "End"}},
        {"blank line within a record", "<A:1>x\r\n\r\n   \r\n<EOR>\r\n", {"<A:1>x <EOR>", "End"}},
        {"blank lines between records",
         "<A:1>x<EOR>\r\n\r\n\r\n<B:1>y<EOR>\r\n",
         {"<A:1>x<EOR>", "", "", "<B:1>y<EOR>", "End"}},
        {"a line of blanks joins the next record",
         "<A:1>x<EOR>\r\n  \r\n <B:1>y<EOR> \r\n",
         {"<A:1>x<EOR>", "<B:1>y<EOR>", "End"}},
        {"a line of blanks and an empty one are a blank",
         "<A:1>x<EOR>\r\n  \r\n\r\n<B:1>y<EOR>",
         {"<A:1>x<EOR>", "", "<B:1>y<EOR>", "End"}},
        {"no line end at the end",
         "<A:1>x<EOR>\n<B:1>y<EOR>",
         {"<A:1>x<EOR>", "<B:1>y<EOR>", "End"}},
        {"last record unfinished", "<A:1>x<EOR>\r\n<B:1>y\r\n", {"<A:1>x<EOR>", "End"}},
        {"all line ends",
         "<A:1>x<EOR>\r<B:1>y<EOR>\n\r<C:1>z<EOR>\r\r\n<D:1>a<EOR>\r\n",
         {"<A:1>x<EOR>", "<B:1>y<EOR>", "", "<C:1>z<EOR>", "", "<D:1>a<EOR>", "End"}},
        {"any bytes",
         std::string("<A:1>\0\x1A\xFF<EOR>\n", 14),
         {std::string("<A:1>\0\x1A\xFF<EOR>", 13), "End"}},
    };
    for (const auto& c : cases) {
        const std::string path = folder.write("log.adi", c.log);
        for (const std::size_t blockSize : blockSizes) {
            LogFile file(path);
            RecordReader reader(file, blockSize);
            EXPECT_EQ(cutAll(reader), c.items) << c.what << ", blocks of " << blockSize;
            EXPECT_EQ(reader.next(), Cut::End);
            EXPECT_EQ(file.size(), static_cast<std::int64_t>(c.log.size()));
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
    const struct {
        std::string log;
        std::size_t records;
    } cases[] = {
        {lines, 0},
        {lines + "<EOR>", 1},
        {"<A:1>" + std::string(5 * ReadBlock::defaultSize, 'x') + "<EOR>\n", 1},
        {carriageReturns, count + 1},
        {carriageReturns + "\n", count + 1},
    };
    for (const auto& c : cases) {
        const std::string path = folder.write("log.adi", c.log);
        for (const std::size_t blockSize : {ReadBlock::defaultSize, c.log.size()}) {
            LogFile file(path);
            RecordReader reader(file, blockSize);
            EXPECT_EQ(cutAll(reader).size() - 1, c.records);
        }
    }
}

TEST(RecordReader, failsWithAReasonWhereThereIsNoPlainFile) {
    const TestFolder folder;
    for (const std::string& path : {folder.path("none.adi"), folder.path(), std::string()}) {
        LogFile file(path);
        RecordReader reader(file);
        EXPECT_EQ(file.size(), 0);
        EXPECT_EQ(reader.next(), Cut::Failed);
        EXPECT_EQ(reader.next(), Cut::Failed);
        EXPECT_FALSE(reader.error().empty());
    }
}

TEST(RecordReader, failsWhenTheFileShrinksAndStopsWhereItEndedWhenItGrows) {
    const TestFolder folder;
    std::string path = folder.write("log.adi", "<A:1>x<EOR>\n<B:1>y<EOR>\n");
    LogFile shortened(path);
    RecordReader shrinking(shortened, 4);
    EXPECT_EQ(shrinking.next(), Cut::Record);
    std::filesystem::resize_file(path, 14);
    EXPECT_EQ(cutAll(shrinking), Items{"Failed"});
    EXPECT_FALSE(shrinking.error().empty());

    path = folder.write("log.adi", "<A:1>x<EOR>\n");
    LogFile appended(path);
    RecordReader growing(appended, 4);
    EXPECT_EQ(growing.next(), Cut::Record);
    std::ofstream(path, std::ios::app) << "<B:1>y<EOR>\n";
    EXPECT_EQ(cutAll(growing), Items{"End"});
    EXPECT_EQ(appended.size(), 12);
}

TEST(RecordReader, laterPassesHaveToFindTheBytesOfTheFirst) {
    const TestFolder folder;
    const std::string path = folder.write("log.adi", "<A:1>x<EOR>\n");
    LogFile file(path, LogFile::Check::SameBytes);
    const auto pass = [&file] {
        RecordReader reader(file, 4);
        return cutAll(reader);
    };
    const Items whole = {"<A:1>x<EOR>", "End"};
    EXPECT_EQ(pass(), whole);
    std::ofstream(path, std::ios::app) << "<B:1>y<EOR>\n";
    EXPECT_EQ(pass(), whole) << "a logger may append";
    std::filesystem::rename(path, folder.path("other.adi"));
    folder.write("log.adi", "another one");
    EXPECT_EQ(pass(), whole) << "and put another file in its place";
    std::fstream(folder.path("other.adi"), std::ios::in | std::ios::out) << "<A:1>z";
    EXPECT_EQ(pass(), (Items{"<A:1>z<EOR>", "Failed"}));
    EXPECT_EQ(file.error(), "the file was changed while it was read");
}

} // namespace
} // namespace tovrel
