#include "platform/WorkFolder.h"

#include "platform/ByteText.h"
#include "platform/Files.h"
#include "platform/FolderLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tovrel {

namespace {

const QString prefix = QStringLiteral(".tovrel-");

/// Removes all that is in a folder, the file of its lock last: what a kill on the way leaves is
/// known to be dead, too.
void empty(const QString& path) {
    const QString lockFile = QLatin1String(FolderLock::name);
    const QDir folder(path);
    bool isGone = true;
    for (const QFileInfo& entry : folder.entryInfoList(QDir::AllEntries | QDir::Hidden |
                                                       QDir::System | QDir::NoDotAndDotDot)) {
        if (entry.fileName() == lockFile)
            continue;
        const bool isFolder = entry.isDir() && !entry.isSymLink();
        isGone &=
            isFolder ? QDir(entry.filePath()).removeRecursively() : QFile::remove(entry.filePath());
    }
    if (isGone)
        QFile::remove(folder.filePath(lockFile));
}

} // namespace

WorkFolder::WorkFolder(const std::string& place) {
    constexpr int attempts = 10; // against a clearing that takes the new folder for a dead one
    const QString pattern =
        QString::fromStdString(joinPath(place, {})) + prefix + QStringLiteral("XXXXXX");
    clearDeadOnes(place);
    for (int attempt = 0; attempt < attempts; ++attempt) {
        folder_ = std::make_unique<QTemporaryDir>(pattern);
        if (!isValid())
            return;
        hideFolder(byteText(folder_->path()));
        lock_ = std::make_unique<FolderLock>(byteText(folder_->path()), true);
        if (lock_->isHeld())
            return;
    }
    // Where no lock can be made, as on a full disk, the folder serves all the same; but nobody
    // could tell later that its owner is dead.
}

WorkFolder::~WorkFolder() {
    if (isValid())
        empty(folder_->path());
}

std::string WorkFolder::error() const { return withoutStop(folder_->errorString()); }

std::string WorkFolder::path(std::string_view name) const {
    return joinPath(nativePath(folder_->path()), name);
}

void WorkFolder::clearDeadOnes(const std::string& place) {
    const QDir::Filters filters =
        QDir::Dirs | QDir::Hidden | QDir::NoSymLinks | QDir::NoDotAndDotDot;
    const QFileInfoList folders = QDir(QString::fromStdString(joinPath(place, {})))
                                      .entryInfoList({prefix + QLatin1Char('*')}, filters);
    for (const QFileInfo& folder : folders) {
        const std::string path = byteText(folder.filePath());
        const std::string lockFile = joinPath(path, FolderLock::name);
        // One without anything in it was left between two steps; nothing is lost with it.
        if (QDir().rmdir(folder.filePath()))
            continue;
        const bool isLink = QFileInfo(QString::fromStdString(lockFile)).isSymLink();
        if (!fileExists(lockFile) || isLink || !isOwn(path) || !isOwn(lockFile))
            continue;
        if (const FolderLock lock(path, false); lock.isHeld())
            empty(folder.filePath());
        // On some systems the lock's file stands until it is closed.
        QDir().rmdir(folder.filePath());
    }
}

} // namespace tovrel
