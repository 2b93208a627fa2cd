#include "platform/Files.h"
#include "platform/SystemFiles.h"

#include <QFileInfo>
#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace tovrel {

char pathSeparator() { return '/'; }

std::string whyNoPlainFile(const std::string& path) {
    std::error_code failure;
    const std::filesystem::file_type type =
        std::filesystem::status(systemPath(path), failure).type();
    if (path.empty() || type == std::filesystem::file_type::not_found)
        return {};
    if (failure)
        return failure.message();
    return type == std::filesystem::file_type::directory ? reasonOf(std::errc::is_a_directory)
                                                         : "Not a plain file";
}

std::string openForReading(QFile& file) {
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ? std::string() : reasonOf(file);
}

std::string syncFile(int handle) {
    if (fsync(handle) == 0 || errno == EINVAL || errno == ENOTSUP)
        return {};
    return std::generic_category().message(errno);
}

std::string renameOver(const std::string& from, const std::string& to) {
    std::error_code failure;
    std::filesystem::rename(systemPath(from), systemPath(to), failure);
    return failure ? failure.message() : std::string();
}

std::string pathOfHandle(int handle) { return "/dev/fd/" + std::to_string(handle); }

std::string resolvedPlace(const std::string& path) {
    constexpr int mostLinks = 40; // as the system follows
    std::error_code ignored;
    std::filesystem::path place = systemPath(path);
    for (int links = 0; links < mostLinks && std::filesystem::is_symlink(place, ignored); ++links)
        place = place.parent_path() / std::filesystem::read_symlink(place, ignored);
    const std::filesystem::path folder = place.has_parent_path() ? place.parent_path() : ".";
    return (std::filesystem::weakly_canonical(folder, ignored) / place.filename()).string();
}

bool equalPaths(const std::string& a, const std::string& b) { return a == b; }

bool isSameFile(const std::string& a, const std::string& b) {
    std::error_code oneIsMissing;
    return std::filesystem::equivalent(systemPath(a), systemPath(b), oneIsMissing);
}

bool isDevice(const std::string& path) {
    const QFileInfo place(QString::fromStdString(path));
    return place.exists() && !place.isFile() && !place.isDir();
}

bool isWritableFolder(const std::string& folder) {
    return faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

void hideFolder(const std::string& /*path*/) {
    // Its name begins with a dot.
}

} // namespace tovrel
