#include "platform/ProgramFolder.h"
#include "platform/Files.h"
#include "platform/TestFolder.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(ProgramFolderTest, IsThatOfTheExecutableWhenItCanBeWrittenTo) {
    const TestFolder executable;
    const TestFolder user;
    EXPECT_EQ(programFolder(executable.path(), user.path("own")), executable.path());
    EXPECT_EQ(existingProgramFolder(executable.path(), user.path()), executable.path());
}

TEST(ProgramFolderTest, IsTheUsersWithCopiesOfTheDataFilesWhenItCannot) {
    const TestFolder executable;
    const TestFolder user;
    const std::string own = user.path("own");
    ASSERT_TRUE(writeFile(executable.path("mapper.pnt"), "coast"));
    ASSERT_TRUE(writeFile(executable.path("paintma.txt"), "seeds"));
    ASSERT_TRUE(writeFile(executable.path("tovrel"), "program"));
    // The user that it switches to shall have a folder to write in.
    std::filesystem::permissions(user.path(), std::filesystem::perms::all);
    const ReadOnlyFolder readOnly(executable);

    EXPECT_EQ(existingProgramFolder(executable.path(), own), executable.path());
    ASSERT_EQ(programFolder(executable.path(), own), own);
    EXPECT_EQ(readFile(joinPath(own, "mapper.pnt")).bytes, "coast");
    EXPECT_FALSE(fileExists(joinPath(own, "tovrel")));

    // What the user changed stays.
    ASSERT_TRUE(writeFile(joinPath(own, "paintma.txt"), "mine"));
    EXPECT_EQ(programFolder(executable.path(), own), own);
    EXPECT_EQ(readFile(joinPath(own, "paintma.txt")).bytes, "mine");
    EXPECT_EQ(existingProgramFolder(executable.path(), own), own);
}

} // namespace
} // namespace tovrel
