#include "export/ZipClass.h"

#include "export/Unpacked.h"
#include "platform/TestFolder.h"

#include <QDateTime>
#include <random>

namespace tovrel {
namespace {

/// Bytes of a number, little-endian.
std::string le(int size, std::size_t value) {
    std::string bytes;
    for (; size > 0; --size, value >>= 8U)
        bytes += static_cast<char>(value & 0xFFU);
    return bytes;
}

void stamp(const std::string& path, const QDateTime& time) {
    QFile file(QString::fromStdString(path));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
}

class ZipTest : public testing::Test {
protected:
    TestFolder folder;
    std::string out = folder.path("out.zip");
    ZipClass zip;
};

TEST_F(ZipTest, writesAnArchiveToTheByte) {
    const std::string digits = folder.write("digits.txt", "123456789");
    const std::string empty = folder.write("empty", "");
    stamp(digits, QDateTime({2024, 2, 29}, {13, 45, 59}));
    stamp(empty, QDateTime({1999, 12, 31}, {0, 0, 1}));
    ASSERT_TRUE(zip.AddFile(digits, "a.kml"));
    ASSERT_TRUE(zip.AddFile(empty));
    std::filesystem::remove(digits); // needed only until it is added
    ASSERT_TRUE(zip.WriteZip(out)) << zip.error();
    const std::string bytes = folder.read("out.zip");
    EXPECT_EQ(firstEntryOf(bytes), "123456789");

    const std::size_t size = numberAt(bytes, 18, 4);
    // Version, flags and method; time and date; CRC-32, as everybody has it of "123456789"; sizes.
    const std::string first = le(2, 20) + le(2, 2) + le(2, 8) + le(2, 29 | 45 << 5 | 13 << 11) +
                              le(2, 29 | 2 << 5 | (2024 - 1980) << 9) + le(4, 0xCBF43926) +
                              le(4, size) + le(4, 9) + le(2, 5) + le(2, 0);
    const std::string second = le(2, 20) + le(2, 2) + le(2, 8) + le(2, 0) +
                               le(2, 31 | 12 << 5 | (1999 - 1980) << 9) + le(4, 0) + le(4, 2) +
                               le(4, 0) + le(2, 5) + le(2, 0);
    const std::string entries = "PK\3\4" + first + "a.kml" + bytes.substr(35, size) + "PK\3\4" +
                                second + "empty" + std::string("\3\0", 2);
    const std::string text = le(2, 0) + le(2, 0x20) + le(4, 0); // disk, a text, no attributes
    const std::string directory = "PK\1\2" + le(2, 20) + first + le(2, 0) + text + le(4, 0) +
                                  "a.kml" + "PK\1\2" + le(2, 20) + second + le(2, 0) + text +
                                  le(4, 35 + size) + "empty";
    EXPECT_EQ(bytes, entries + directory + "PK\5\6" + le(4, 0) + le(2, 2) + le(2, 2) +
                         le(4, directory.size()) + le(4, entries.size()) + le(2, 0));
}

// What is read in blocks gives the stream that zlib makes of the whole, wherever the file ends.
TEST_F(ZipTest, packsToTheBytesOfZlibsCompress) {
    constexpr std::size_t block = 262'144;
    std::mt19937 random(3);
    std::string text;
    while (text.size() < 3 * block)
        text += "<call>" + std::to_string(random() % 5000) + "</call>\r\n";
    while (text.size() < 5 * block) // what does not compress
        text += static_cast<char>(random());
    for (const std::size_t length :
         {std::size_t{1}, block - 1, block, block + 1, 3 * block, 4 * block + 261, text.size()}) {
        const std::string content = text.substr(0, length);
        ZipClass one;
        ASSERT_TRUE(one.AddFile(folder.write("n", content)) && one.WriteZip(out)) << one.error();
        const std::string archive = folder.read("out.zip");
        // A length and two bytes before the stream, a sum behind it.
        const std::string whole = qCompress(QByteArray::fromStdString(content)).toStdString();
        EXPECT_TRUE(archive.substr(31, numberAt(archive, 18, 4)) ==
                    whole.substr(6, whole.size() - 10))
            << length;
        EXPECT_TRUE(firstEntryOf(archive) == content);
    }
}

TEST_F(ZipTest, refusesWhatItCannotHold) {
    const std::string small = folder.write("small", "x");
    const std::string large = folder.write("large", "");
    std::filesystem::resize_file(large, std::uintmax_t{1} << 31U);
    const std::string tooLong(32'768, 'n');
    const std::pair<std::string, std::string> cases[] = {
        {folder.path("missing"), ""}, {folder.path(), ""}, {large, ""}, {small, tooLong}};
    for (const auto& [path, name] : cases) {
        EXPECT_FALSE(zip.AddFile(path, name)) << path;
        EXPECT_FALSE(zip.error().empty());
    }
    EXPECT_TRUE(zip.AddFile(small, tooLong.substr(1)));
    EXPECT_TRUE(zip.WriteZip(out));
    EXPECT_EQ(entryNames(folder.read("out.zip")), tooLong.substr(1) + ' ') << "nothing else";
}

TEST_F(ZipTest, holdsNoMoreEntriesThanASignedCount) {
    const std::string path = folder.write("a", "");
    for (int i = 0; i < 32'767; ++i) // all of one name
        ASSERT_TRUE(zip.AddFile(path));
    EXPECT_FALSE(zip.AddFile(path));
    ASSERT_TRUE(zip.WriteZip(out));
    const std::string bytes = folder.read("out.zip");
    EXPECT_EQ(numberAt(bytes, bytes.size() - 22 + 10, 2), 32'767U);
}

TEST(ZipFile, stampsDosTimesFromTheirFirstYearToTheirLast) {
    const QDateTime before({1970, 1, 1}, {5, 5, 5});
    EXPECT_EQ(ZipFile::DosDate(before), 0x0021);
    EXPECT_EQ(ZipFile::DosTime(before), 0);
    const QDateTime after({2242, 3, 16}, {0, 0, 0});
    EXPECT_EQ(ZipFile::DosDate(after), 0xFF9F);
    EXPECT_EQ(ZipFile::DosTime(after), 29 | 59 << 5 | 23 << 11);
}

} // namespace
} // namespace tovrel
