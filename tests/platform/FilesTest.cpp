#include "platform/Files.h"

#include "platform/ByteText.h"
#include "platform/TestFolder.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(Files, joinsPaths) {
    EXPECT_EQ(joinPath("/a/", "b"), "/a/b");
    EXPECT_EQ(joinPath("", "b"), "b");
    EXPECT_EQ(splitPath(joinPath("a", "b")).name, "b");
}

TEST(Files, findsAPlainFileInAnyCase) {
    const TestFolder folder;
    folder.write("NAME.txt", "upper");
    EXPECT_EQ(findFile(folder.path(), "name.TXT"), folder.path("NAME.txt"));
    std::filesystem::create_directory(folder.path("sub"));
    for (const char* none : {"other.txt", "sub"})
        EXPECT_EQ(findFile(folder.path(), none), "");
}

TEST(Files, readsBackWhatItWrote) {
    const TestFolder folder;
    const std::string path = folder.path("\xC3\xA4.bin");
    for (const std::string& bytes : {std::string("a\r\n\0\xFF\x1A z", 8), std::string(),
                                     std::string(3, 'x'), std::string(1'000'000, 'y')}) {
        EXPECT_TRUE(writeFile(path, bytes));
        const FileContent content = readFile(path);
        EXPECT_EQ(content.end, ReadEnd::Content);
        EXPECT_TRUE(content.bytes == bytes);
    }
    EXPECT_EQ(readFile(path, 5).bytes, "yyyyy");
}

TEST(Files, tellsMissingFromUnreadableAndWhyNothingIsWritten) {
    const TestFolder folder;
    folder.write("file", "x");
    const struct {
        std::string path, unreadable, unwritable;
    } cases[] = {{"", "", "No such file or directory"},
                 {folder.path("missing/file"), "", "No such file or directory"},
                 {folder.path("file/file"), "", "Not a directory"},
                 {folder.path(), "Is a directory", "Is a directory"},
                 {folder.path("missing"), "", ""}};
    for (const auto& c : cases) {
        const FileContent content = readFile(c.path);
        EXPECT_EQ(content.end, c.unreadable.empty() ? ReadEnd::Missing : ReadEnd::Unreadable);
        EXPECT_EQ(content.reason, c.unreadable) << c.path;
        EXPECT_EQ(writeFile(c.path, "x").reason, c.unwritable) << c.path;
    }
}

} // namespace
} // namespace tovrel
