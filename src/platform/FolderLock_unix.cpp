#include "platform/Files.h"
#include "platform/FolderLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tovrel {

FolderLock::FolderLock(const std::string& folder, bool make) {
    const std::string path = joinPath(folder, name);
    const int file =
        open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | (make ? O_CREAT : 0), 0600);
    file_ = file;
    held_ = file >= 0 && flock(file, LOCK_EX | LOCK_NB) == 0;
    struct stat opened {};
    struct stat named {};
    // Whoever clears may have taken the file, or the whole folder, in between.
    held_ = held_ && fstat(file, &opened) == 0 && stat(path.c_str(), &named) == 0 &&
            opened.st_ino == named.st_ino;
}

FolderLock::~FolderLock() {
    if (file_ >= 0)
        close(static_cast<int>(file_));
}

bool isOwn(const std::string& path) {
    struct stat place {};
    return stat(path.c_str(), &place) == 0 && place.st_uid == geteuid();
}

} // namespace tovrel
