#include "platform/WorkFolder.h"

#include "platform/TestFolder.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(WorkFolder, isHiddenInItsPlaceAndGoesWithAllThatIsInIt) {
    const TestFolder place;
    {
        const WorkFolder first(place.path());
        const WorkFolder second(place.path());
        ASSERT_TRUE(first.isValid() && second.isValid());
        EXPECT_TRUE(first.path("a.kml").starts_with(place.path(".tovrel-")));
        std::ofstream(first.path("a.kml")) << "x";
    }
    EXPECT_TRUE(std::filesystem::is_empty(place.path()));
    const WorkFolder nowhere(place.path("missing"));
    EXPECT_FALSE(nowhere.isValid());
    EXPECT_NE(nowhere.error(), "");
}

TEST(WorkFolder, clearsOnlyWhatIsKnownToBeDead) {
    const TestFolder place;
    const std::string dead = "99999999\ntovrel\n\n\n"; // no process has that number
    for (const char* name : {".tovrel-dead", ".tovrel-plain", ".other-dead"})
        std::filesystem::create_directory(place.path(name));
    place.write(".tovrel-dead/lock", dead);
    place.write(".tovrel-dead/log.kml", "half");
    place.write(".tovrel-plain/log.kml", "somebody's");
    place.write(".other-dead/lock", dead);
    const WorkFolder living(place.path());
    const WorkFolder mine(place.path());
    EXPECT_FALSE(std::filesystem::exists(place.path(".tovrel-dead")));
    for (const std::string& kept :
         {living.path({}), place.path(".tovrel-plain/log.kml"), place.path(".other-dead/lock")})
        EXPECT_TRUE(std::filesystem::exists(kept)) << kept;
}

} // namespace
} // namespace tovrel
