#include "map/CoastData.h"

#include "map/CoastFile.h"
#include "platform/SuppliedFiles.h"
#include "platform/TestDoubles.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(CoastData, IsTheFineCoastOnlyWhereTheSuppliedOneWouldServe) {
    const std::string own = coastAlong(0, -180, 180);
    const struct {
        const char* what;
        double resolution;
        std::string file, bytes; ///< a file that has changed; gone when it has none
        bool fine;
        std::string told;
    } cases[] = {
        {"resolution 1", 1, "other", "", false, ""},
        {"resolution 2", 2, "other", "", true, ""},
        {"a coast of the user's own", 3, "mapper.pnt", own, false, ""},
        {"seeds of the user's own", 3, "paintma.txt", "0,0\r\n", false, ""},
        {"no fine coast", 3, "mapper-fine.pnt", "", false, ""},
        {"no fine seeds", 3, "paintma-fine.txt", "", false, ""},
        {"a damaged fine coast", 3, "mapper-fine.pnt", "\1", false,
         "The databse file 'mapper-fine.pnt' could not be read."},
        {"no coast", 3, "mapper.pnt", "", false, "The databse file 'Mapper.pnt' not found."},
    };
    for (const auto& c : cases) {
        const TestFolder folder;
        copySupplied(folder, {"mapper.pnt", "paintma.txt", "mapper-fine.pnt", "paintma-fine.txt"});
        std::filesystem::remove(folder.path(c.file));
        if (!c.bytes.empty())
            folder.write(c.file, c.bytes);
        ScriptedPrompt prompt;
        DataFilesEnd end;
        const CoastData data = readCoastData(folder.path(), c.resolution, prompt, end);
        EXPECT_EQ(data.seedRule == SeedRule::InPlace, c.fine) << c.what;
        EXPECT_EQ(data.coastline.size() > 10000, c.fine) << c.what;
        EXPECT_EQ(data.seeds->size() > 5000, c.fine) << c.what;
        ASSERT_EQ(prompt.told.size(), c.told.empty() ? 0U : 1U) << c.what;
        EXPECT_TRUE(c.told.empty() || prompt.told[0].starts_with(c.told)) << c.what;
        EXPECT_EQ(end.missing || end.unreadable, !c.told.empty()) << c.what;
    }
}

} // namespace
} // namespace tovrel
