#include "platform/WorkFolder.h"

#include "platform/ByteText.h"
#include "platform/Files.h"

#include <QDir>
#include <QFileInfo>

namespace tovrel {

namespace {

const QString prefix = QStringLiteral(".tovrel-");
const QString lockName = QStringLiteral("/lock");

} // namespace

WorkFolder::WorkFolder(const std::string& place)
    : folder_(QString::fromStdString(joinPath(place, {})) + prefix + QStringLiteral("XXXXXX")) {
    if (!isValid())
        return;
    clearDeadOnes(place);
    // Where no lock can be made, as on a full disk, the folder serves all the same; but nobody
    // could tell later that its owner is dead.
    lock_.emplace(folder_.path() + lockName);
    lock_->setStaleLockTime(0);
    lock_->tryLock(0);
}

std::string WorkFolder::error() const { return byteText(folder_.errorString()); }

std::string WorkFolder::path(std::string_view name) const {
    return joinPath(byteText(folder_.path()), name);
}

void WorkFolder::clearDeadOnes(const std::string& place) const {
    const QFileInfo own(folder_.path());
    const QDir::Filters filters =
        QDir::Dirs | QDir::Hidden | QDir::NoSymLinks | QDir::NoDotAndDotDot;
    const QFileInfoList others = QDir(QString::fromStdString(joinPath(place, {})))
                                     .entryInfoList({prefix + QLatin1Char('*')}, filters);
    for (const QFileInfo& other : others) {
        const QFileInfo lockFile(other.filePath() + lockName);
        const bool ours = other.ownerId() == own.ownerId() && lockFile.isFile() &&
                          !lockFile.isSymLink() && lockFile.ownerId() == own.ownerId();
        if (!ours)
            continue;
        QLockFile lock(lockFile.filePath());
        lock.setStaleLockTime(0);
        if (lock.tryLock(0))
            QDir(other.filePath()).removeRecursively();
    }
}

} // namespace tovrel
