#include "platform/WorkFolder.h"

#include "platform/ByteText.h"
#include "platform/Files.h"

#include <QDir>
#include <QFileInfo>
#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#else
#include <QLockFile>
#endif

namespace tovrel {

namespace {

const QString prefix = QStringLiteral(".tovrel-");
const QString lockName = QStringLiteral("/lock");

/// As QFileInfo numbers the owners of files.
uint thisUser() {
#ifdef Q_OS_UNIX
    return geteuid();
#else
    return QFileInfo(QDir::homePath()).ownerId();
#endif
}

} // namespace

#ifdef Q_OS_UNIX
/// A lock that the system takes back when its holder dies. The file's content says nothing, so that
/// a full disk and a kill at any moment leave none that is held for ever.
class WorkFolder::Lock {
public:
    /// Takes the lock of a folder.
    /// @param make whether the file is made if need be
    Lock(const QString& folder, bool make) {
        const std::string path = byteText(folder + lockName);
        file_ = open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | (make ? O_CREAT : 0), 0600);
        held_ = file_ >= 0 && flock(file_, LOCK_EX | LOCK_NB) == 0;
        struct stat opened {};
        struct stat named {};
        // Whoever clears may have taken the file, or the whole folder, in between.
        held_ = held_ && fstat(file_, &opened) == 0 && stat(path.c_str(), &named) == 0 &&
                opened.st_ino == named.st_ino;
    }
    ~Lock() {
        if (file_ >= 0)
            close(file_);
    }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

    bool isHeld() const { return held_; }

private:
    int file_ = -1;
    bool held_ = false;
};
#else
class WorkFolder::Lock {
public:
    Lock(const QString& folder, bool make) : file_(folder + lockName) {
        file_.setStaleLockTime(0);
        held_ = (make || QFileInfo::exists(folder + lockName)) && file_.tryLock(0);
    }
    bool isHeld() const { return held_; }

private:
    QLockFile file_;
    bool held_ = false;
};
#endif

WorkFolder::WorkFolder(const std::string& place) {
    constexpr int attempts = 10; // against a clearing that takes the new folder for a dead one
    const QString pattern =
        QString::fromStdString(joinPath(place, {})) + prefix + QStringLiteral("XXXXXX");
    clearDeadOnes(place);
    for (int attempt = 0; attempt < attempts; ++attempt) {
        folder_ = std::make_unique<QTemporaryDir>(pattern);
        if (!isValid())
            return;
        lock_ = std::make_unique<Lock>(folder_->path(), true);
        if (lock_->isHeld())
            return;
    }
    // Where no lock can be made, as on a full disk, the folder serves all the same; but nobody
    // could tell later that its owner is dead.
}

WorkFolder::~WorkFolder() = default;

std::string WorkFolder::error() const { return byteText(folder_->errorString()); }

std::string WorkFolder::path(std::string_view name) const {
    return joinPath(byteText(folder_->path()), name);
}

void WorkFolder::clearDeadOnes(const std::string& place) {
    const QDir::Filters filters =
        QDir::Dirs | QDir::Hidden | QDir::NoSymLinks | QDir::NoDotAndDotDot;
    const QFileInfoList folders = QDir(QString::fromStdString(joinPath(place, {})))
                                      .entryInfoList({prefix + QLatin1Char('*')}, filters);
    for (const QFileInfo& folder : folders) {
        const QFileInfo lockFile(folder.filePath() + lockName);
        // One without anything in it was left between two steps; nothing is lost with it.
        if (QDir().rmdir(folder.filePath()))
            continue;
        const bool ours = folder.ownerId() == thisUser() && lockFile.ownerId() == thisUser();
        if (!lockFile.isFile() || lockFile.isSymLink() || !ours)
            continue;
        if (const Lock lock(folder.filePath(), false); lock.isHeld())
            QDir(folder.filePath()).removeRecursively();
    }
}

} // namespace tovrel
