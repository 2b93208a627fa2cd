// Of open files that can't be replaced, letters and devices in paths, and the registry: only
// Windows has these.
#include "platform/Registry.h"
#include "platform/TestFolder.h"
#include "platform/WindowsPaths.h"
#include "platform/WorkFolder.h"

#include <QDir>
#include <gtest/gtest.h>
#include <windows.h>

namespace tovrel {
namespace {

TEST(Files, keepsAFileThatAProgramHoldsOpenAndTellsSo) {
    const TestFolder folder;
    const std::string path = folder.write("file", "old");
    for (const DWORD sharing : {0, FILE_SHARE_READ | FILE_SHARE_WRITE}) {
        const HANDLE held = CreateFileW(widePath(path).c_str(), GENERIC_READ, sharing, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(held, INVALID_HANDLE_VALUE);
        EXPECT_EQ(readFile(path).reason,
                  sharing == 0 ? windowsReason(ERROR_SHARING_VIOLATION) : "");
        EXPECT_EQ(writeFile(path, "new").reason, windowsReason(ERROR_SHARING_VIOLATION));
        EXPECT_EQ(moveFile(folder.write("other", "new"), path).reason,
                  windowsReason(ERROR_SHARING_VIOLATION));
        CloseHandle(held);
        EXPECT_EQ(folder.read("file"), "old");
        EXPECT_EQ(folder.names(), "file other ");
    }
    EXPECT_TRUE(writeFile(path, "new"));
    EXPECT_EQ(folder.read("file"), "new");
}

TEST(Files, knowsPathsByWhateverSpelling) {
    const TestFolder folder;
    const std::string path = folder.write("Ä Ж 世.adi", "x");
    std::string slashes = path;
    std::replace(slashes.begin(), slashes.end(), '\\', '/');
    std::string small = folder.path("ä ж 世.ADI");
    for (const std::string& other :
         {slashes, small, "\\\\?\\" + path, folder.path(".\\Ä Ж 世.adi")})
        EXPECT_TRUE(isSamePlace(path, other)) << other;
    EXPECT_TRUE(isSamePlace(folder.path("new.kmz"), folder.path("NEW.kmz")));
    EXPECT_FALSE(isSamePlace(folder.path("new.kmz"), folder.path("newer.kmz")));
    EXPECT_EQ(fullPath("//server/share/a/../log.adi"), L"\\\\server\\share\\log.adi");
    EXPECT_EQ(splitPath("\\\\server\\share\\log.adi").folder, "\\\\server\\share\\");
    for (const char* device : {"NUL", "nul", "\\\\.\\pipe\\none"}) {
        EXPECT_TRUE(isDevice(device));
        EXPECT_EQ(readFile(device).reason, "Not a plain file");
        EXPECT_EQ(writeFile(device, "x").reason, "Not a plain file");
    }
}

TEST(Files, readsAndReplacesAtTheEndOfALongPath) {
    const TestFolder folder;
    std::string deep = folder.path();
    for (int i = 0; i < 4; ++i)
        deep = joinPath(deep, std::string(100, 'x'));
    ASSERT_TRUE(QDir().mkpath(QString::fromStdString(deep)));
    const std::string path = joinPath(deep, "file");
    for (const char* bytes : {"old", "new"}) {
        EXPECT_EQ(writeFile(path, bytes).reason, "");
        EXPECT_EQ(readFile(path).bytes, bytes);
    }
    EXPECT_EQ(moveFile(path, joinPath(deep, "moved")).reason, "");
    EXPECT_TRUE(WorkFolder(deep).isValid());
}

TEST(WorkFolder, isHidden) {
    const TestFolder place;
    const WorkFolder folder(place.path());
    const std::string path(splitPath(folder.path("a")).folder);
    EXPECT_NE(GetFileAttributesW(widePath(path).c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
}

TEST(Registry, givesTextsAndNumbers) {
    constexpr const wchar_t* key = L"Software\\TovrelTest";
    const auto set = [](const wchar_t* name, DWORD type, const void* value, DWORD size) {
        ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, key, name, type, value, size), ERROR_SUCCESS);
    };
    const std::wstring text = L"C:\\Größe\\世界.exe";
    const std::wstring longText(600, L'x');
    const DWORD number = 0x1A2B;
    set(L"closed", REG_SZ, text.data(), static_cast<DWORD>(2 * text.size() + 2));
    set(L"open", REG_SZ, text.data(), static_cast<DWORD>(2 * text.size()));
    set(L"long", REG_SZ, longText.data(), static_cast<DWORD>(2 * longText.size()));
    set(L"number", REG_DWORD, &number, sizeof(number));
    set(L"bytes", REG_BINARY, &number, sizeof(number));
    const std::pair<const char*, std::optional<std::string>> cases[] = {
        {"closed", "C:\\Größe\\世界.exe"},
        {"OPEN", "C:\\Größe\\世界.exe"},
        {"number", "&h00001A2B"},
        {"bytes", ""},
        {"long", std::nullopt},
        {"none", std::nullopt}};
    for (const auto& [name, value] : cases)
        EXPECT_EQ(GetKeyValue(RegistryRoot::CurrentUser, "Software\\TovrelTest", name), value)
            << name;
    RegDeleteKeyW(HKEY_CURRENT_USER, key);
    EXPECT_FALSE(GetKeyValue(RegistryRoot::CurrentUser, "Software\\TovrelTest", "closed"));
}

} // namespace
} // namespace tovrel
