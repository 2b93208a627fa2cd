#include "platform/Files.h"

#include "platform/TestFolder.h"
#include "platform/WriteLimit.h"

#include <gtest/gtest.h>

#ifdef __unix__
#include <sys/stat.h>
#endif

namespace tovrel {
namespace {

TEST(Files, joinsPaths) {
    EXPECT_EQ(joinPath("/a/", "b"), "/a/b");
    EXPECT_EQ(joinPath("", "b"), "b");
    EXPECT_EQ(splitPath(joinPath("a", "b")).name, "b");
}

TEST(Files, findsAPlainFileInAnyCaseTheExactNameFirst) {
    const TestFolder folder;
    folder.write("NAME.txt", "upper");
    EXPECT_EQ(findFile(folder.path(), "name.TXT"), folder.path("NAME.txt"));
    folder.write("name.txt", "lower");
    for (const char* exact : {"name.txt", "NAME.txt"})
        EXPECT_EQ(findFile(folder.path(), exact), folder.path(exact));
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
#ifdef __unix__
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0600), 0);
#endif
    const struct {
        std::string path, unreadable, unwritable;
    } cases[] = {{"", "", "No such file or directory"},
                 {folder.path("missing/file"), "", "No such file or directory"},
                 {folder.path("file/file"), "", "Not a directory"},
                 {folder.path(), "Is a directory", "Is a directory"},
#ifdef __unix__
                 {"/dev/full", "Not a plain file", "Not a plain file"},
                 {folder.path("pipe"), "Not a plain file", "Not a plain file"},
#endif
                 {folder.path("missing"), "", ""}};
    for (const auto& c : cases) {
        const FileContent content = readFile(c.path);
        EXPECT_EQ(content.end, c.unreadable.empty() ? ReadEnd::Missing : ReadEnd::Unreadable);
        EXPECT_EQ(content.reason, c.unreadable) << c.path;
        EXPECT_EQ(writeFile(c.path, "x").reason, c.unwritable) << c.path;
    }
}

#ifdef __unix__
// A small file stays in a buffer until the end, a large one fails before.
TEST(Files, keepsTheFileOfALockedFolderOrAFullDisk) {
    const TestFolder folder;
    const std::string path = folder.write("file", "old");
    {
        const ReadOnlyFolder readOnly(folder);
        EXPECT_EQ(writeFile(path, "new").reason, "Permission denied");
    }
    {
        const ReadOnlyFolder locked(folder, 0);
        EXPECT_EQ(readFile(path).reason, "Permission denied");
    }
    for (const std::size_t size : {101U, 1'000'000U}) {
        const WriteLimit fullDisk(100);
        EXPECT_EQ(writeFile(path, std::string(size, 'x')).reason, "File too large");
    }
    EXPECT_EQ(folder.read("file"), "old");
    EXPECT_EQ(folder.names(), "file ");
}

TEST(Files, movesAFileOverALinkAndNotOverWhatItNames) {
    const TestFolder folder;
    const std::string kept = folder.write("kept", "old");
    std::filesystem::create_symlink(kept, folder.path("link"));
    EXPECT_TRUE(moveFile(folder.write("from", "new"), folder.path("link")));
    EXPECT_EQ(folder.read("link"), "new");
    EXPECT_EQ(folder.read("kept"), "old");
    EXPECT_EQ(moveFile(folder.path("from"), folder.path("to")).reason, "No such file or directory");
    std::filesystem::create_directory(folder.path("sub"));
    EXPECT_EQ(moveFile(kept, folder.path("sub")).reason, "Is a directory");
    EXPECT_EQ(folder.names(), "kept link ");
}
#endif

} // namespace
} // namespace tovrel
