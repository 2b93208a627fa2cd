#include "platform/ProgramFolder.h"
#include "platform/Files.h"
#include "platform/TestFolder.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(ProgramFolderTest, OfAnInstalledProgramIsTheUsersThoughThatOfTheExecutableCanBeWrittenTo) {
    const TestFolder executable;
    const TestFolder user;
    const std::string own = user.path("own");
    executable.write("mapper.pnt", "supplied");
    executable.write(installedMark, "");

    EXPECT_EQ(existingProgramFolder(executable.path(), own), executable.path());
    EXPECT_EQ(programFolder(executable.path(), own), own);
    EXPECT_EQ(user.read("own/mapper.pnt"), "supplied");
    EXPECT_EQ(existingProgramFolder(executable.path(), own), own);
}

} // namespace
} // namespace tovrel
