#include "platform/ByteText.h"
#include "platform/Files.h"
#include "platform/SystemFiles.h"
#include "platform/WindowsPaths.h"

#include <QFileInfo>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <memory>
#include <optional>
#include <windows.h>

namespace tovrel {

namespace {

constexpr DWORD anySharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// A file or folder that stands at a path, opened for a question about it.
class OpenPlace {
public:
    explicit OpenPlace(const std::string& path, DWORD access = 0)
        : handle_(CreateFileW(widePath(path).c_str(), access, anySharing, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {}
    ~OpenPlace() {
        if (*this)
            CloseHandle(handle_);
    }
    OpenPlace(const OpenPlace&) = delete;
    OpenPlace& operator=(const OpenPlace&) = delete;

    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE handle() const { return handle_; }

private:
    HANDLE handle_;
};

/// Path of what stands there, without links and short names; empty when nothing does.
std::string finalPath(const std::string& path) {
    const OpenPlace place(path);
    std::wstring final(place ? GetFinalPathNameByHandleW(place.handle(), nullptr, 0, 0) : 0, L'\0');
    if (!final.empty())
        final.resize(GetFinalPathNameByHandleW(place.handle(), final.data(),
                                               static_cast<DWORD>(final.size()), 0));
    constexpr std::wstring_view server = L"\\\\?\\UNC\\";
    constexpr std::wstring_view drive = L"\\\\?\\";
    if (final.starts_with(server)) {
        final.replace(0, server.size(), L"\\\\");
    } else if (final.starts_with(drive)) {
        final.erase(0, drive.size());
    }
    return QString::fromStdWString(final).toStdString();
}

std::optional<BY_HANDLE_FILE_INFORMATION> informationOf(const std::string& path) {
    const OpenPlace place(path);
    BY_HANDLE_FILE_INFORMATION information;
    return place && GetFileInformationByHandle(place.handle(), &information) != 0
               ? std::optional(information)
               : std::nullopt;
}

/// Whether a program has a file open and lets nobody else replace it.
bool isHeld(const std::string& path) {
    const OpenPlace place(path, DELETE);
    return !place && GetLastError() == ERROR_SHARING_VIOLATION;
}

} // namespace

char pathSeparator() { return '\\'; }

std::string whyNoPlainFile(const std::string& path) {
    if (path.empty())
        return {};
    const DWORD attributes = GetFileAttributesW(widePath(path).c_str());
    if (isDevice(path))
        return "Not a plain file";
    if (attributes != INVALID_FILE_ATTRIBUTES)
        return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? reasonOf(std::errc::is_a_directory)
                                                            : "Not a plain file";
    const DWORD error = GetLastError();
    constexpr std::array<DWORD, 3> nothingThere = {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND,
                                                   ERROR_INVALID_NAME};
    const bool missing =
        std::find(nothingThere.begin(), nothingThere.end(), error) != nothingThere.end();
    return missing ? std::string() : windowsReason(error);
}

std::string openForReading(QFile& file) {
    // As Qt opens it, a file could be neither renamed nor replaced.
    const HANDLE handle =
        CreateFileW(widePath(byteText(file.fileName())).c_str(), GENERIC_READ, anySharing, nullptr,
                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return windowsReason(GetLastError());
    const int number =
        _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), _O_RDONLY | _O_BINARY);
    constexpr QIODevice::OpenMode mode = QIODevice::ReadOnly | QIODevice::Unbuffered;
    return file.open(number, mode, QFileDevice::AutoCloseHandle) ? std::string() : reasonOf(file);
}

std::string syncFile(int handle) {
    if (_commit(handle) == 0 || errno == EINVAL)
        return {};
    return reasonOf(static_cast<std::errc>(errno));
}

std::string renameOver(const std::string& from, const std::string& to) {
    // Programs that look for viruses or keep an index open what is new for a moment.
    constexpr int attempts = 10;
    constexpr DWORD pause = 30; // milliseconds
    constexpr DWORD flags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    DWORD error = ERROR_SUCCESS;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (MoveFileExW(widePath(from).c_str(), widePath(to).c_str(), flags) != 0)
            return {};
        error = GetLastError();
        // Whatever is in the way, a folder or a program that holds the old file, Windows says that
        // access is denied.
        if (QFileInfo(QString::fromStdString(to)).isDir())
            return reasonOf(std::errc::is_a_directory);
        if (isHeld(to) || isHeld(from))
            error = ERROR_SHARING_VIOLATION;
        if (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED)
            break;
        Sleep(pause);
    }
    return windowsReason(error);
}

std::string pathOfHandle(int /*handle*/) { return {}; }

std::string resolvedPlace(const std::string& path) {
    if (std::string final = finalPath(path); !final.empty())
        return final;
    const auto [folder, name] = splitPath(path);
    const std::string final = finalPath(folder.empty() ? "." : std::string(folder));
    return final.empty() ? path : joinPath(final, name);
}

bool equalPaths(const std::string& a, const std::string& b) {
    const std::wstring wideA = widePath(a);
    const std::wstring wideB = widePath(b);
    return CompareStringOrdinal(wideA.c_str(), -1, wideB.c_str(), -1, TRUE) == CSTR_EQUAL;
}

bool isSameFile(const std::string& a, const std::string& b) {
    const auto first = informationOf(a);
    const auto second = informationOf(b);
    return first && second && first->dwVolumeSerialNumber == second->dwVolumeSerialNumber &&
           first->nFileIndexHigh == second->nFileIndexHigh &&
           first->nFileIndexLow == second->nFileIndexLow;
}

bool isDevice(const std::string& path) { return fullPath(path).starts_with(L"\\\\.\\"); }

bool isWritableFolder(const std::string& folder) {
    return static_cast<bool>(OpenPlace(folder, FILE_ADD_FILE | FILE_ADD_SUBDIRECTORY));
}

void hideFolder(const std::string& path) {
    SetFileAttributesW(widePath(path).c_str(), FILE_ATTRIBUTE_HIDDEN);
}

} // namespace tovrel
