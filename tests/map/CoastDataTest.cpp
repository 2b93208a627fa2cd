#include "map/CoastData.h"

#include "map/CoastFile.h"
#include "platform/TestDoubles.h"
#include "platform/TestFolder.h"

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(CoastData, IsTheFineCoastOnlyWhereTheSuppliedOneWouldServe) {
    using Change = std::function<void(const TestFolder&)>;
    const auto remove = [](const char* name) {
        return [name](const TestFolder& folder) { std::filesystem::remove(folder.path(name)); };
    };
    const auto write = [](const char* name, const std::string& bytes) {
        return [=](const TestFolder& folder) { folder.write(name, bytes); };
    };
    const std::string own = coastAlong(0, -180, 180);
    const struct {
        const char* what;
        double resolution;
        Change change;
        bool fine;
        std::string told;
    } cases[] = {
        {"resolution 1", 1, [](const TestFolder&) {}, false, ""},
        {"resolution 2", 2, [](const TestFolder&) {}, true, ""},
        {"a coast of the user's own", 3, write("mapper.pnt", own), false, ""},
        {"seeds of the user's own", 3, write("paintma.txt", "0,0\r\n"), false, ""},
        {"no fine coast", 3, remove("mapper-fine.pnt"), false, ""},
        {"no fine seeds", 3, remove("paintma-fine.txt"), false, ""},
        {"a damaged fine coast", 3, write("mapper-fine.pnt", "\1"), false,
         "The databse file 'mapper-fine.pnt' could not be read."},
        {"no coast", 3, remove("mapper.pnt"), false, "The databse file 'Mapper.pnt' not found."},
    };
    for (const auto& c : cases) {
        const TestFolder folder;
        for (const char* name :
             {"mapper.pnt", "paintma.txt", "mapper-fine.pnt", "paintma-fine.txt"})
            std::filesystem::copy_file(joinPath(TOVREL_DATA_DIR, name), folder.path(name));
        c.change(folder);
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
