#include "export/ZipClass.h"

#include "export/WriteLimit.h"
#include "platform/TestFolder.h"

#include <QDateTime>
#include <array>
#include <gtest/gtest.h>
#include <random>
#include <zlib.h>

namespace tovrel {
namespace {

/// Number at `offset` of an archive, little-endian.
std::uint32_t number(const std::string& bytes, std::size_t offset, int size) {
    std::uint32_t value = 0;
    for (int i = size - 1; i >= 0; --i)
        value = value << 8U |
                static_cast<unsigned char>(bytes.at(offset + static_cast<std::size_t>(i)));
    return value;
}

struct Field {
    const char* name;
    std::size_t offset;
    int size;
    std::uint32_t value;
};

template <std::size_t n>
void expectFields(const std::string& bytes, std::size_t start, const Field (&fields)[n]) {
    for (const Field& field : fields)
        EXPECT_EQ(number(bytes, start + field.offset, field.size), field.value) << field.name;
}

void stamp(const std::string& path, const QDateTime& time) {
    QFile file(QString::fromStdString(path));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
}

/// What the one entry of an archive unpacks to; its name is `nameLength` bytes long.
std::string unpacked(const std::string& archive, std::size_t nameLength) {
    const std::size_t start = 30 + nameLength;
    std::string data = archive.substr(start, number(archive, 18, 4));
    std::string content(number(archive, 22, 4) + 1, '\0');
    z_stream stream{};
    EXPECT_EQ(inflateInit2(&stream, -MAX_WBITS), Z_OK);
    stream.next_in = reinterpret_cast<Bytef*>(data.data());
    stream.avail_in = static_cast<uInt>(data.size());
    stream.next_out = reinterpret_cast<Bytef*>(content.data());
    stream.avail_out = static_cast<uInt>(content.size());
    EXPECT_EQ(inflate(&stream, Z_FINISH), Z_STREAM_END);
    EXPECT_EQ(stream.avail_in, 0U) << "bytes behind the stream";
    content.resize(stream.total_out);
    inflateEnd(&stream);
    return content;
}

TEST(ZipClass, writesEachFieldOfItsHeaders) {
    const TestFolder folder;
    const std::string digits = folder.write("digits.txt", "123456789");
    const std::string zeros = folder.write("zeros", std::string(1000, '0'));
    stamp(digits, QDateTime({2024, 2, 29}, {13, 45, 59}));
    stamp(zeros, QDateTime({1999, 12, 31}, {0, 0, 1}));
    ZipClass zip;
    ASSERT_TRUE(zip.AddFile(digits, "a.kml", "first"));
    ASSERT_TRUE(zip.AddFile(zeros));
    EXPECT_EQ(zip.FileCount(), 2);
    zip.setComment("all of it");
    ASSERT_TRUE(zip.WriteZip(folder.path("out.zip"))) << zip.error();
    const std::string bytes = folder.read("out.zip");

    const std::uint32_t date = 29 | 2 << 5 | (2024 - 1980) << 9;
    const std::uint32_t time = 29 | 45 << 5 | 13 << 11;
    const std::uint32_t crc = 0xCBF43926; // of "123456789", as everybody has it
    const std::uint32_t size = number(bytes, 18, 4);
    const Field local[] = {
        {"signature", 0, 4, 0x04034B50},
        {"version", 4, 2, 20},
        {"flags", 6, 2, 2},
        {"method", 8, 2, 8},
        {"time", 10, 2, time},
        {"date", 12, 2, date},
        {"crc", 14, 4, crc},
        {"size", 22, 4, 9},
        {"name length", 26, 2, 5},
        {"extra length", 28, 2, 0},
    };
    expectFields(bytes, 0, local);
    EXPECT_EQ(bytes.substr(30, 5), "a.kml");
    EXPECT_EQ(unpacked(bytes, 5), "123456789");

    const std::size_t second = 30 + 5 + size;
    const Field secondLocal[] = {{"signature", 0, 4, 0x04034B50},
                                 {"time", 10, 2, 0},
                                 {"date", 12, 2, 31 | 12 << 5 | (1999 - 1980) << 9},
                                 {"size", 22, 4, 1000},
                                 {"name length", 26, 2, 5}};
    expectFields(bytes, second, secondLocal);
    EXPECT_EQ(bytes.substr(second + 30, 5), "zeros");

    const std::size_t directory = second + 30 + 5 + number(bytes, second + 18, 4);
    const Field central[] = {
        {"signature", 0, 4, 0x02014B50},
        {"made by", 4, 2, 20},
        {"version", 6, 2, 20},
        {"flags", 8, 2, 2},
        {"method", 10, 2, 8},
        {"time", 12, 2, time},
        {"date", 14, 2, date},
        {"crc", 16, 4, crc},
        {"compressed", 20, 4, size},
        {"size", 24, 4, 9},
        {"name length", 28, 2, 5},
        {"extra length", 30, 2, 0},
        {"comment length", 32, 2, 5},
        {"disk", 34, 2, 0},
        {"internal", 36, 2, 0x20},
        {"external", 38, 4, 0},
        {"local header", 42, 4, 0},
    };
    expectFields(bytes, directory, central);
    EXPECT_EQ(bytes.substr(directory + 46, 10), "a.kmlfirst");
    const std::size_t secondCentral = directory + 46 + 10;
    EXPECT_EQ(number(bytes, secondCentral + 42, 4), second);
    EXPECT_EQ(number(bytes, secondCentral + 32, 2), 0U);

    const std::size_t end = secondCentral + 46 + 5;
    const Field endRecord[] = {
        {"signature", 0, 4, 0x06054B50},
        {"disk", 4, 2, 0},
        {"directory's disk", 6, 2, 0},
        {"entries here", 8, 2, 2},
        {"entries", 10, 2, 2},
        {"directory size", 12, 4, static_cast<std::uint32_t>(end - directory)},
        {"directory", 16, 4, static_cast<std::uint32_t>(directory)},
        {"comment length", 20, 2, 9},
    };
    expectFields(bytes, end, endRecord);
    EXPECT_EQ(bytes.substr(end + 22), "all of it");
}

TEST(ZipClass, writesAnArchiveWithoutEntries) {
    const TestFolder folder;
    ZipClass zip;
    zip.setComment("none");
    ASSERT_TRUE(zip.WriteZip(folder.path("out.zip")));
    EXPECT_EQ(folder.read("out.zip"),
              std::string("PK\5\6") + std::string(16, '\0') + std::string("\4\0none", 6));
}

TEST(ZipClass, packsAnEmptyFileAsAnEmptyStream) {
    const TestFolder folder;
    ZipClass zip;
    ASSERT_TRUE(zip.AddFile(folder.write("e", ""))) << zip.error();
    ASSERT_TRUE(zip.WriteZip(folder.path("out.zip")));
    const std::string bytes = folder.read("out.zip");
    const Field local[] = {{"crc", 14, 4, 0}, {"compressed", 18, 4, 2}, {"size", 22, 4, 0}};
    expectFields(bytes, 0, local);
    EXPECT_EQ(unpacked(bytes, 1), "");
}

TEST(ZipClass, packsWhatDoesNotCompressAndWhatIsLarge) {
    const TestFolder folder;
    std::mt19937 random(5);
    for (const std::size_t length : {1U, 20U, 100U, 65'535U, 1'000'000U}) {
        std::string noise(length, '\0');
        for (char& c : noise)
            c = static_cast<char>(random());
        ZipClass zip;
        ASSERT_TRUE(zip.AddFile(folder.write("n", noise))) << length << zip.error();
        ASSERT_TRUE(zip.WriteZip(folder.path("out.zip"), true));
        EXPECT_EQ(unpacked(folder.read("out.zip"), 1), noise) << length;
    }
    std::string lines;
    for (int i = 0; lines.size() < 8'000'000; ++i)
        lines += "line " + std::to_string(i) + "\r\n";
    ZipClass zip;
    ASSERT_TRUE(zip.AddFile(folder.write("n", lines)));
    ASSERT_TRUE(zip.WriteZip(folder.path("out.zip"), true));
    EXPECT_TRUE(unpacked(folder.read("out.zip"), 1) == lines);
}

TEST(ZipClass, keepsTwoEntriesOfOneName) {
    const TestFolder folder;
    const std::string path = folder.write("a", "x");
    ZipClass zip;
    EXPECT_TRUE(zip.AddFile(path));
    EXPECT_TRUE(zip.AddFile(path));
    EXPECT_EQ(zip.FileCount(), 2);
}

TEST(ZipClass, needsASourceOnlyUntilItIsAdded) {
    const TestFolder folder;
    ZipClass zip;
    ASSERT_TRUE(zip.AddFile(folder.write("a", "gone")));
    std::filesystem::remove(folder.path("a"));
    ASSERT_TRUE(zip.WriteZip(folder.path("out.zip")));
    EXPECT_EQ(unpacked(folder.read("out.zip"), 1), "gone");
}

TEST(ZipClass, refusesWhatItCannotHold) {
    const TestFolder folder;
    const std::string small = folder.write("small", "x");
    const std::string large = folder.write("large", "");
    std::filesystem::resize_file(large, std::uintmax_t{1} << 31U);
    std::filesystem::create_directory(folder.path("folder"));
    const std::string tooLong(32'768, 'n');
    const struct {
        std::string path;
        std::string name;
        std::string comment;
    } cases[] = {{folder.path("missing"), "", ""},
                 {"", "", ""},
                 {folder.path("folder"), "", ""},
                 {large, "", ""},
                 {small, tooLong, ""},
                 {small, "", tooLong}};
    ZipClass zip;
    for (const auto& c : cases) {
        EXPECT_FALSE(zip.AddFile(c.path, c.name, c.comment)) << c.path;
        EXPECT_FALSE(zip.error().empty());
        EXPECT_EQ(zip.FileCount(), 0);
    }
    EXPECT_TRUE(zip.AddFile(small, tooLong.substr(1), tooLong.substr(1)));

    zip.setComment(tooLong);
    EXPECT_FALSE(zip.WriteZip(folder.path("out.zip")));
    EXPECT_FALSE(std::filesystem::exists(folder.path("out.zip")));
    zip.setComment(tooLong.substr(1));
    EXPECT_TRUE(zip.WriteZip(folder.path("out.zip")));
}

TEST(ZipClass, holdsNoMoreEntriesThanASignedCount) {
    const TestFolder folder;
    const std::string path = folder.write("a", "");
    ZipClass zip;
    for (int i = 0; i < 32'767; ++i)
        ASSERT_TRUE(zip.AddFile(path));
    EXPECT_FALSE(zip.AddFile(path));
    EXPECT_EQ(zip.FileCount(), 32'767);
    ASSERT_TRUE(zip.WriteZip(folder.path("out.zip")));
    const std::string bytes = folder.read("out.zip");
    EXPECT_EQ(number(bytes, bytes.size() - 22 + 10, 2), 32'767U);
}

TEST(ZipClass, replacesAFileOnlyWhenToldTo) {
    const TestFolder folder;
    const std::string out = folder.write("out.zip", "old");
    ZipClass zip;
    EXPECT_FALSE(zip.WriteZip(out));
    EXPECT_EQ(folder.read("out.zip"), "old");
    EXPECT_TRUE(zip.WriteZip(out, true));
    EXPECT_EQ(folder.read("out.zip").size(), 22U);
    EXPECT_EQ(folder.names(), "out.zip ");
}

TEST(ZipClass, leavesNothingBehindWhereItCannotWrite) {
    const TestFolder folder;
    ZipClass zip;
    std::string noise(300'000, '\0');
    std::mt19937 random(7);
    for (char& c : noise)
        c = static_cast<char>(random());
    ASSERT_TRUE(zip.AddFile(folder.write("noise", noise)));
    EXPECT_FALSE(zip.WriteZip(folder.path("missing/out.zip")));
    std::filesystem::create_directory(folder.path("folder.zip"));
    EXPECT_FALSE(zip.WriteZip(folder.path("folder.zip"), true));
    EXPECT_FALSE(zip.error().empty());
#ifdef __unix__
    const std::string out = folder.write("out.zip", "old");
    {
        const WriteLimit fullDisk(100'000);
        EXPECT_FALSE(zip.WriteZip(out, true));
    }
    {
        const ReadOnlyFolder readOnly(folder);
        EXPECT_FALSE(zip.WriteZip(out, true));
    }
    EXPECT_EQ(folder.read("out.zip"), "old");
    EXPECT_EQ(folder.names(), "noise out.zip ");
    EXPECT_TRUE(zip.WriteZip(out, true)) << "a second try, when there is room again";
    EXPECT_EQ(unpacked(folder.read("out.zip"), 5), noise);
#endif
}

TEST(ZipFile, storesNoPath) {
    const std::pair<std::string, std::string> cases[] = {{"C:\\logs\\my.kml", "my.kml"},
                                                         {"/home/op/my.kml", "my.kml"},
                                                         {"my.kml", "my.kml"},
                                                         {"C:/logs\\x/my.kml", "my.kml"},
                                                         {"logs/", ""}};
    for (const auto& [path, name] : cases)
        EXPECT_EQ(ZipFile::NameFromPath(path), name) << path;
}

TEST(ZipFile, stampsDosTimes) {
    const struct {
        QDateTime time;
        int date;
        int clock;
    } cases[] = {
        {QDateTime({1980, 1, 1}, {0, 0, 0}), 0x0021, 0},
        {QDateTime({2107, 12, 31}, {23, 59, 59}), 0xFF9F, 23 << 11 | 59 << 5 | 29},
        {QDateTime({2000, 7, 15}, {8, 1, 3}), 20 << 9 | 7 << 5 | 15, 8 << 11 | 1 << 5 | 1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ZipFile::DosDate(c.time), c.date);
        EXPECT_EQ(ZipFile::DosTime(c.time), c.clock);
    }
}

} // namespace
} // namespace tovrel
