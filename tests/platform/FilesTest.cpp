#include "platform/Files.h"

#include "platform/TestFolder.h"
#include "platform/WriteLimit.h"

#include <gtest/gtest.h>

#ifdef __unix__
#include <sys/stat.h>
#endif

namespace tovrel {
namespace {

TEST(Files, splitsAndJoinsPaths) {
    const struct {
        std::string_view path, folder, name;
    } cases[] = {{"/a/b.adi", "/a/", "b.adi"},
                 {"C:\\a\\b.adi", "C:\\a\\", "b.adi"},
                 {"b.adi", "", "b.adi"},
                 {"/a/", "/a/", ""},
                 {"", "", ""}};
    for (const auto& c : cases) {
        EXPECT_EQ(splitPath(c.path).folder, c.folder);
        EXPECT_EQ(splitPath(c.path).name, c.name);
    }
    EXPECT_EQ(joinPath("/a/", "b"), "/a/b");
    EXPECT_EQ(joinPath("", "b"), "b");
    EXPECT_EQ(splitPath(joinPath("a", "b")).name, "b");
}

TEST(Files, findsAPlainFileInAnyCaseTheExactNameFirst) {
    const TestFolder folder;
    folder.write("NAME.txt", "upper");
    EXPECT_EQ(findFile(folder.path(), "name.TXT"), folder.path("NAME.txt"));
    folder.write("name.txt", "lower");
    EXPECT_EQ(findFile(folder.path(), "name.txt"), folder.path("name.txt"));
    EXPECT_EQ(findFile(folder.path(), "NAME.txt"), folder.path("NAME.txt"));
    EXPECT_EQ(findFile(folder.path(), "other.txt"), "");
    EXPECT_EQ(findFile(folder.path("missing"), "name.txt"), "");

    std::filesystem::create_directory(folder.path("sub"));
    EXPECT_EQ(findFile(folder.path(), "sub"), "");
    EXPECT_FALSE(fileExists(folder.path("sub")));
    EXPECT_FALSE(fileExists(""));
}

TEST(Files, readsBackWhatItWrote) {
    const TestFolder folder;
    const std::string bytes("a\r\n\0\xFF\x1A z", 8);
    const std::string path = folder.path("\xC3\xA4.bin");
    EXPECT_TRUE(writeFile(path, "longer than the next content"));
    EXPECT_TRUE(writeFile(path, bytes));
    EXPECT_EQ(readFile(path), bytes);
    EXPECT_TRUE(writeFile(path, ""));
    EXPECT_EQ(readFile(path), "");
    EXPECT_EQ(readFile(folder.path()), std::nullopt);
    EXPECT_EQ(readFile(folder.path("missing")), std::nullopt);
    EXPECT_FALSE(writeFile(folder.path(), "x"));
    EXPECT_FALSE(writeFile(folder.path("missing/file"), "x"));
    EXPECT_FALSE(writeFile("", "x"));
}

#ifdef __unix__
TEST(Files, doesNotWaitForAPipe) {
    const TestFolder folder;
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(fileExists(folder.path("pipe")));
    EXPECT_EQ(readFile(folder.path("pipe")), std::nullopt);
}

TEST(Files, keepsTheOldFileWhenTheNewOneCannotBeWritten) {
    const TestFolder folder;
    const std::string path = folder.write("file", "old");
    {
        const ReadOnlyFolder readOnly(folder);
        EXPECT_FALSE(writeFile(path, "new"));
    }
    {
        const WriteLimit fullDisk(100);
        EXPECT_FALSE(writeFile(path, std::string(1000000, 'x')));
    }
    EXPECT_EQ(folder.read("file"), "old");
    EXPECT_EQ(folder.names(), "file ");
}
#endif

} // namespace
} // namespace tovrel
