#include "platform/Files.h"

#include "platform/ByteText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <system_error>
#ifdef Q_OS_WIN
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace tovrel {

namespace {

constexpr char separator =
#ifdef Q_OS_WIN
    '\\';
#else
    '/';
#endif

QString fileName(std::string_view path) {
    return QString::fromUtf8(path.data(), static_cast<qsizetype>(path.size()));
}

std::string reasonOf(std::errc error) { return std::make_error_code(error).message(); }

/// What a path leads to that is no plain file.
FileContent notAPlainFile(const std::string& path) {
    std::error_code failure;
    const std::filesystem::file_type type =
        std::filesystem::status(systemPath(path), failure).type();
    if (path.empty() || type == std::filesystem::file_type::not_found)
        return {};
    std::string reason = "Not a plain file";
    if (failure) {
        reason = failure.message();
    } else if (type == std::filesystem::file_type::directory) {
        reason = reasonOf(std::errc::is_a_directory);
    }
    return FileContent::unreadable(std::move(reason));
}

/// Brings an open file to the disk, as far as the file system knows of such a thing.
/// @return empty when that is done
std::string sync(int handle) {
#ifdef Q_OS_WIN
    const bool synced = _commit(handle) == 0;
#else
    const bool synced = fsync(handle) == 0;
#endif
    if (synced || errno == EINVAL || errno == ENOTSUP)
        return {};
    return std::generic_category().message(errno);
}

/// Where a path leads in the end, links followed. The last part need not exist.
std::filesystem::path resolved(const std::string& path) {
    constexpr int mostLinks = 40; // as the system follows
    std::error_code ignored;
    std::filesystem::path place = systemPath(path);
    for (int links = 0; links < mostLinks && std::filesystem::is_symlink(place, ignored); ++links)
        place = place.parent_path() / std::filesystem::read_symlink(place, ignored);
    const std::filesystem::path folder = place.has_parent_path() ? place.parent_path() : ".";
    return std::filesystem::weakly_canonical(folder, ignored) / place.filename();
}

} // namespace

PathParts splitPath(std::string_view path) {
    const std::size_t cut = path.find_last_of("/\\") + 1;
    return {path.substr(0, cut), path.substr(cut)};
}

std::string joinPath(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (!path.empty() && path.back() != '/' && path.back() != separator)
        path += separator;
    return path.append(name);
}

std::filesystem::path systemPath(const std::string& path) {
    return QFileInfo(fileName(path)).filesystemFilePath();
}

bool fileExists(const std::string& path) {
    return !path.empty() && QFileInfo(fileName(path)).isFile();
}

bool isSameFile(const std::string& a, const std::string& b) {
    std::error_code oneIsMissing;
    return std::filesystem::equivalent(systemPath(a), systemPath(b), oneIsMissing);
}

bool isSamePlace(const std::string& a, const std::string& b) {
    return isSameFile(a, b) || resolved(a) == resolved(b);
}

bool isWritableFolder(const std::string& folder) {
#ifdef Q_OS_UNIX
    return faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
#else
    return QFileInfo(fileName(folder)).isWritable();
#endif
}

std::string faultOfPlace(const std::string& path) {
    const QFileInfo place(resolved(path));
    const QFileInfo folder(place.path());
    if (path.empty() || !folder.exists())
        return reasonOf(std::errc::no_such_file_or_directory);
    if (!folder.isDir())
        return reasonOf(std::errc::not_a_directory);
    if (place.exists() && !place.isFile())
        return notAPlainFile(path).reason;
    const bool allowed =
        isWritableFolder(byteText(place.path())) && (!place.exists() || place.isWritable());
    return allowed ? std::string() : reasonOf(std::errc::permission_denied);
}

std::string findFile(const std::string& folder, std::string_view name) {
    std::string exact = joinPath(folder, name);
    if (fileExists(exact))
        return exact;
    const QStringList names = QDir(fileName(folder)).entryList(QDir::Files, QDir::Name);
    for (const QString& candidate : names) {
        const std::string bytes = byteText(candidate);
        if (equalIgnoringCase(bytes, name))
            return joinPath(folder, bytes);
    }
    return {};
}

std::string filePath(const std::string& folder, std::string_view name) {
    const std::string found = findFile(folder, name);
    return found.empty() ? joinPath(folder, name) : found;
}

FileContent readFile(const std::string& path, std::int64_t most) {
    if (!fileExists(path))
        return notAPlainFile(path);
    QFile file(fileName(path));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        // It may have gone since it was looked at.
        return file.exists() ? FileContent::unreadable(byteText(file.errorString()))
                             : FileContent();
    }
    // One byte more than the file is said to have tells whether it is longer by now.
    std::string bytes;
    std::int64_t wanted = std::min<std::int64_t>(most, file.size() + 1);
    std::int64_t length = 0;
    while (length < wanted) {
        bytes.resize(static_cast<std::size_t>(wanted));
        const qint64 got = file.read(bytes.data() + length, wanted - length);
        if (got < 0)
            return FileContent::unreadable(byteText(file.errorString()));
        if (got == 0)
            break;
        length += got;
        if (length == wanted)
            wanted = std::min<std::int64_t>(most, wanted * 2);
    }
    bytes.resize(static_cast<std::size_t>(length));
    return FileContent::of(std::move(bytes));
}

std::string writeAll(QFileDevice& file, std::string_view bytes) {
    while (!bytes.empty()) {
        // A disk that is nearly full takes a part of it and tells why when it is asked again.
        const qint64 written = file.write(bytes.data(), static_cast<qint64>(bytes.size()));
        if (written <= 0)
            return byteText(file.errorString());
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

FileReplacement::FileReplacement(const std::string& path)
    : file_(fileName(path)), error_(faultOfPlace(path)) {
    // Unbuffered, so that each write tells what became of it: what fails in a buffer that is
    // emptied by the commit goes unnoticed, and a short file replaces the good one.
    if (error_.empty() && !file_.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        error_ = byteText(file_.errorString());
}

bool FileReplacement::write(std::string_view bytes) {
    if (error_.empty())
        error_ = writeAll(file_, bytes);
    size_ += static_cast<std::int64_t>(bytes.size());
    return error_.empty();
}

WriteEnd FileReplacement::commit() {
    if (error_.empty())
        error_ = sync(file_.handle());
    if (error_.empty() && !file_.commit())
        error_ = byteText(file_.errorString());
    return {error_};
}

WriteEnd writeFile(const std::string& path, std::string_view bytes) {
    FileReplacement file(path);
    file.write(bytes);
    return file.commit();
}

WriteEnd moveFile(const std::string& from, const std::string& to) {
    QFile file(fileName(from));
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        return {byteText(file.errorString())};
    std::string reason = sync(file.handle());
    file.close();
    if (!reason.empty())
        return {std::move(reason)};
    std::error_code failure;
    std::filesystem::rename(systemPath(from), systemPath(to), failure);
    return {failure ? failure.message() : std::string()};
}

} // namespace tovrel
