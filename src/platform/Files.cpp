#include "platform/Files.h"

#include "platform/ByteText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

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

bool fileExists(const std::string& path) {
    return !path.empty() && QFileInfo(fileName(path)).isFile();
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

std::optional<std::string> readFile(const std::string& path) {
    QFile file(fileName(path));
    if (!fileExists(path) || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return bytes.toStdString();
}

bool writeFile(const std::string& path, std::string_view bytes) {
    QSaveFile file(fileName(path));
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const auto size = static_cast<qint64>(bytes.size());
    return file.write(bytes.data(), size) == size && file.commit();
}

} // namespace tovrel
