#include "platform/Files.h"
#include "platform/FolderLock.h"
#include "platform/WindowsPaths.h"

#include <windows.h>

namespace tovrel {

FolderLock::FolderLock(const std::string& folder, bool make) {
    // Nobody else can open the file to read or write it while this process has it open. That it may
    // be deleted lets the folder be removed by the holder.
    const HANDLE file = CreateFileW(
        widePath(joinPath(folder, name)).c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_DELETE,
        nullptr, make ? OPEN_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    held_ = file != INVALID_HANDLE_VALUE;
    file_ = reinterpret_cast<std::intptr_t>(file);
}

FolderLock::~FolderLock() {
    if (held_)
        CloseHandle(reinterpret_cast<HANDLE>(file_));
}

bool isOwn(const std::string& path) {
    // Another user's file can't be opened to be written to, and so its lock not be taken.
    return GetFileAttributesW(widePath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

} // namespace tovrel
