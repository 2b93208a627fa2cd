// Of rights of files and folders, which the superuser of a test has on any system but these.
#include "platform/PrivateProfile.h"
#include "platform/ReadOnlyFolder_unix.h"

#include <gtest/gtest.h>
#include <vector>

namespace tovrel {
namespace {

constexpr std::size_t size = 512;

TEST(PrivateProfile, leavesWhatItCannotReadOrWriteAloneAndTellsWhy) {
    const TestFolder folder;
    PrivateProfile profile(folder.write("a.ini", "[Main]\nKey=1\n"));
    std::vector<std::string> told;
    const Connection failed = profile.failed.connect([&told](const auto& failure) {
        const bool reading = failure.of == PrivateProfile::Failure::Of::Reading;
        told.push_back((reading ? "r " : "w ") + failure.reason);
    });
    {
        const ReadOnlyFolder locked(folder);
        EXPECT_FALSE(profile.write("Main", "Key", "new"));
        PrivateProfile::Batch batch(profile);
        EXPECT_TRUE(profile.write("Main", "Key", "newer")) << "in memory so far";
        EXPECT_FALSE(batch.finish());
        EXPECT_EQ(profile.read("Main", "Key", "", size), "1");
    }
    EXPECT_EQ(told, std::vector<std::string>(2, "w Permission denied"));
    std::filesystem::permissions(profile.path(), std::filesystem::perms::none);
    {
        const ReadOnlyFolder strangers(folder, 0777); // might replace the file
        EXPECT_EQ(profile.read("Main", "Key", "default", size), "1") << "as it was read last";
        EXPECT_FALSE(profile.write("Main", "Key", "new"));
        EXPECT_EQ(told.back(), "r Permission denied");
        const PrivateProfile other(profile.path());
        EXPECT_EQ(other.read("Main", "Key", "default", size), "default");
    }
    std::filesystem::permissions(profile.path(), std::filesystem::perms::owner_all);
    EXPECT_EQ(folder.read("a.ini"), "[Main]\nKey=1\n");
    EXPECT_EQ(folder.names(), "a.ini ");
}

} // namespace
} // namespace tovrel
