#include "platform/SystemInfo.h"

#include "platform/TestFolder.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(SystemInfo, namesTheToolOfTheRegistryOrOfTheFolderThatItNames) {
    const TestFolder folder;
    std::filesystem::create_directory(folder.path("shared"));
    const std::string tool = folder.path("shared") + "\\MSINFO32.EXE";
    std::optional<std::string> path;
    const KeyValues registry = [&](RegistryRoot root, const std::string& key,
                                   const std::string& value) -> std::optional<std::string> {
        EXPECT_EQ(root, RegistryRoot::LocalMachine);
        if (key == R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)" && value == "PATH")
            return path;
        EXPECT_EQ(key + " " + value, R"(SOFTWARE\Microsoft\Shared Tools Location MSINFO)");
        return folder.path("shared");
    };
    EXPECT_EQ(systemInfoTool(registry), "") << "no file stands there";
    std::ofstream(systemPath(tool)) << "x";
    EXPECT_EQ(systemInfoTool(registry), tool);
    path = "C:\\msinfo32.exe";
    EXPECT_EQ(systemInfoTool(registry), *path) << "it needs no look";
    EXPECT_EQ(systemInfoTool([](auto...) { return std::nullopt; }), "");
}

} // namespace
} // namespace tovrel
