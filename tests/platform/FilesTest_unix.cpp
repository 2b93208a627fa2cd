// Of names that differ in case, devices, pipes, rights of folders, full disks and links: other
// systems have none of these, others, or need an administrator to make them.
#include "platform/Files.h"
#include "platform/ReadOnlyFolder_unix.h"
#include "platform/WriteLimit_unix.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tovrel {
namespace {

TEST(Files, findsTheExactNameFirst) {
    const TestFolder folder;
    for (const char* name : {"name.txt", "NAME.txt"})
        folder.write(name, "");
    for (const char* exact : {"name.txt", "NAME.txt"})
        EXPECT_EQ(findFile(folder.path(), exact), folder.path(exact));
}

TEST(Files, neitherReadsNorReplacesADeviceOrAPipe) {
    const TestFolder folder;
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0600), 0);
    for (const std::string& path : {std::string("/dev/full"), folder.path("pipe")}) {
        EXPECT_TRUE(isDevice(path));
        EXPECT_EQ(readFile(path).reason, "Not a plain file");
        EXPECT_EQ(writeFile(path, "x").reason, "Not a plain file");
    }
}

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

} // namespace
} // namespace tovrel
