// Of a folder that nobody may write in: on other systems no test can make one.
#include "platform/Files.h"
#include "platform/ProgramFolder.h"
#include "platform/ReadOnlyFolder_unix.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(ProgramFolderTest, IsTheUsersWithCopiesOfTheDataFilesWhenThatOfTheExecutableIsReadOnly) {
    const TestFolder executable;
    const TestFolder user;
    const std::string own = user.path("own");
    for (const char* name : {"mapper.pnt", "paintma.txt", "Tovrel-Help.pdf", "tovrel"})
        executable.write(name, "supplied");
    EXPECT_EQ(programFolder(executable.path(), own), executable.path());
    EXPECT_EQ(existingProgramFolder(executable.path(), user.path()), executable.path());
    // The user that it switches to shall have a folder to write in.
    std::filesystem::permissions(user.path(), std::filesystem::perms::all);
    const ReadOnlyFolder readOnly(executable);

    EXPECT_EQ(existingProgramFolder(executable.path(), own), executable.path());
    ASSERT_EQ(programFolder(executable.path(), own), own);
    EXPECT_EQ(user.read("own/mapper.pnt"), "supplied");
    EXPECT_EQ(user.read("own/Tovrel-Help.pdf"), "supplied");
    EXPECT_FALSE(fileExists(joinPath(own, "tovrel")));
    user.write("own/paintma.txt", "changed");
    user.write("own/Tovrel-Help.pdf", "that of an older version");
    EXPECT_EQ(programFolder(executable.path(), own), own);
    EXPECT_EQ(user.read("own/paintma.txt"), "changed");
    EXPECT_EQ(user.read("own/Tovrel-Help.pdf"), "supplied");
    EXPECT_EQ(existingProgramFolder(executable.path(), own), own);
}

} // namespace
} // namespace tovrel
