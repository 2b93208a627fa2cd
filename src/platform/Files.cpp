#include "platform/Files.h"

#include "platform/ByteText.h"
#include "platform/SystemFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace tovrel {

namespace {

QString fileName(std::string_view path) {
    return QString::fromUtf8(path.data(), static_cast<qsizetype>(path.size()));
}

/// What a path leads to that is no plain file.
FileContent notAPlainFile(const std::string& path) {
    std::string reason = whyNoPlainFile(path);
    return reason.empty() ? FileContent() : FileContent::unreadable(std::move(reason));
}

} // namespace

std::string withoutStop(const QString& text) {
    QString reason = text.trimmed();
    while (reason.endsWith(QLatin1Char('.')))
        reason.chop(1);
    return byteText(reason);
}

std::string reasonOf(std::errc error) { return std::make_error_code(error).message(); }

std::string reasonOf(const QIODevice& file) { return withoutStop(file.errorString()); }

PathParts splitPath(std::string_view path) {
    const std::size_t cut = path.find_last_of("/\\") + 1;
    return {path.substr(0, cut), path.substr(cut)};
}

std::string joinPath(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (!path.empty() && path.back() != '/' && path.back() != pathSeparator())
        path += pathSeparator();
    return path.append(name);
}

std::string nativePath(const QString& path) { return byteText(QDir::toNativeSeparators(path)); }

std::filesystem::path systemPath(const std::string& path) {
    return QFileInfo(fileName(path)).filesystemFilePath();
}

bool fileExists(const std::string& path) {
    return !path.empty() && QFileInfo(fileName(path)).isFile();
}

bool isSamePlace(const std::string& a, const std::string& b) {
    return isSameFile(a, b) || equalPaths(resolvedPlace(a), resolvedPlace(b));
}

std::string faultOfPlace(const std::string& path) {
    const QFileInfo place(fileName(resolvedPlace(path)));
    const QFileInfo folder(place.path());
    if (isDevice(path))
        return whyNoPlainFile(path);
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
    // The folder is asked how it spells the name, even where case never counts.
    std::string found;
    const QStringList names = QDir(fileName(folder)).entryList(QDir::Files, QDir::Name);
    for (const QString& candidate : names) {
        const std::string bytes = byteText(candidate);
        if (bytes == name || (found.empty() && equalIgnoringCase(bytes, name)))
            found = joinPath(folder, bytes);
        if (bytes == name)
            break;
    }
    if (found.empty() && fileExists(joinPath(folder, name)))
        found = joinPath(folder, name); // of a folder that can't be listed, or a path in it
    return found;
}

std::string filePath(const std::string& folder, std::string_view name) {
    const std::string found = findFile(folder, name);
    return found.empty() ? joinPath(folder, name) : found;
}

FileContent readFile(const std::string& path, std::int64_t most) {
    if (!fileExists(path))
        return notAPlainFile(path);
    QFile file(fileName(path));
    if (std::string reason = openForReading(file); !reason.empty()) {
        // It may have gone since it was looked at.
        return file.exists() ? FileContent::unreadable(std::move(reason)) : FileContent();
    }
    // One byte more than the file is said to have tells whether it is longer by now.
    std::string bytes;
    std::int64_t wanted = std::min<std::int64_t>(most, file.size() + 1);
    std::int64_t length = 0;
    while (length < wanted) {
        bytes.resize(static_cast<std::size_t>(wanted));
        const qint64 got = file.read(bytes.data() + length, wanted - length);
        if (got < 0)
            return FileContent::unreadable(reasonOf(file));
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
            return reasonOf(file);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

bool FileReplacement::write(std::string_view bytes) {
    if (error_.empty())
        error_ = writeAll(*file_, bytes);
    size_ += static_cast<std::int64_t>(bytes.size());
    return error_.empty();
}

WriteEnd FileReplacement::commit() {
    if (error_.empty())
        error_ = syncFile(file_->handle());
    if (error_.empty())
        takePlace();
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
        return {reasonOf(file)};
    std::string reason = syncFile(file.handle());
    file.close();
    if (!reason.empty())
        return {std::move(reason)};
    return {renameOver(from, to)};
}

} // namespace tovrel
