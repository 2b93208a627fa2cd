#include "platform/WindowsPaths.h"

#include "platform/Files.h"

#include <windows.h>

namespace tovrel {

std::wstring fullPath(const std::string& path) {
    const std::wstring given = QString::fromStdString(path).toStdWString();
    std::wstring full(GetFullPathNameW(given.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(
        GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

std::wstring widePath(const std::string& path) {
    constexpr std::size_t longest = 240; // leaves room for a name of the 8.3 form in a folder
    std::wstring full = fullPath(path);
    const bool isPlain = !full.starts_with(L"\\\\?\\") && !full.starts_with(L"\\\\.\\");
    if (full.size() > longest && isPlain) {
        return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
    }
    return full;
}

std::string windowsReason(unsigned long error) {
    return withoutStop(qt_error_string(static_cast<int>(error)));
}

} // namespace tovrel
