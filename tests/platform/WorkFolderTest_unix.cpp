// Of rights and of the words of a reason, which are the system's own.
#include "platform/TestFolder.h"
#include "platform/WorkFolder.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(WorkFolder, isOfItsUserAloneAndTellsWhyItCouldNotBeMade) {
    const TestFolder place;
    const WorkFolder folder(place.path());
    EXPECT_EQ(std::filesystem::status(splitPath(folder.path("a")).folder).permissions(),
              std::filesystem::perms::owner_all);
    EXPECT_EQ(WorkFolder(place.path("missing")).error(), "No such file or directory");
}

} // namespace
} // namespace tovrel
