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

/// Why no file can be put in a place; empty when nothing is known against it.
std::string faultOfPlace(const std::string& path) {
    const QFileInfo place(fileName(path));
    if (path.empty())
        return reasonOf(std::errc::no_such_file_or_directory);
    if (place.exists() && !place.isFile())
        return notAPlainFile(path).reason;
    return place.exists() && !place.isWritable() ? reasonOf(std::errc::permission_denied)
                                                 : std::string();
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

FileReplacement::FileReplacement(const std::string& path)
    : file_(fileName(path)), error_(faultOfPlace(path)) {
    // Unbuffered, so that each write tells what became of it: what fails in a buffer that is
    // emptied by the commit goes unnoticed, and a short file replaces the good one.
    if (error_.empty() && !file_.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        error_ = byteText(file_.errorString());
}

bool FileReplacement::write(std::string_view bytes) {
    while (error_.empty() && !bytes.empty()) {
        // A disk that is nearly full takes a part of it and tells why when it is asked again.
        const qint64 written = file_.write(bytes.data(), static_cast<qint64>(bytes.size()));
        if (written <= 0) {
            error_ = byteText(file_.errorString());
        } else {
            size_ += written;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
    }
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
