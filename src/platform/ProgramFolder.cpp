#include "platform/ProgramFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

namespace tovrel {

namespace {

/// Whether a file can be made in a folder; permission bits alone don't tell of a read-only disk.
bool isWritable(const QString& folder) {
    QTemporaryFile probe(QDir(folder).filePath(QStringLiteral("tovrel-XXXXXX")));
    return probe.open();
}

} // namespace

std::string programFolder(const std::string& executableFolder, const std::string& userFolder) {
    const QString executables = QString::fromStdString(executableFolder);
    const QString own = QString::fromStdString(userFolder);
    if (isWritable(executables) || !QDir().mkpath(own)) {
        return executableFolder;
    }
    const QStringList dataFiles = {QStringLiteral("*.pnt"), QStringLiteral("*.txt"),
                                   QStringLiteral("*.png"), QStringLiteral("*.jpg"),
                                   QStringLiteral("*.pdf"), QStringLiteral("*.adi")};
    const QStringList names = QDir(executables).entryList(dataFiles, QDir::Files);
    for (const QString& name : names) {
        const QString copy = QDir(own).filePath(name);
        if (!QFileInfo::exists(copy) && QFile::copy(QDir(executables).filePath(name), copy)) {
            // The copy is the user's to change, whatever the installed file allows.
            QFile::setPermissions(copy, QFile::permissions(copy) | QFile::WriteOwner);
        }
    }
    return userFolder;
}

std::string existingProgramFolder(const std::string& executableFolder,
                                  const std::string& userFolder) {
    const bool usersServes = !isWritable(QString::fromStdString(executableFolder)) &&
                             QFileInfo(QString::fromStdString(userFolder)).isDir();
    return usersServes ? userFolder : executableFolder;
}

} // namespace tovrel
