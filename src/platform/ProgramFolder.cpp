#include "platform/ProgramFolder.h"

#include "platform/ByteText.h"
#include "platform/Files.h"

#include <QDir>
#include <QFileInfo>

namespace tovrel {

namespace {

/// Whether the program is one that an installer put there, and not an archive that was unpacked.
bool isInstalled(const std::string& executableFolder) {
    return fileExists(joinPath(executableFolder, installedMark));
}

bool holdsUserFiles(const std::string& executableFolder) {
    return !isInstalled(executableFolder) && isWritableFolder(executableFolder);
}

/// Gives a folder the data files that it lacks.
void copyDataFiles(const std::string& from, const std::string& to) {
    const QStringList dataFiles = {QStringLiteral("*.pnt"), QStringLiteral("*.txt"),
                                   QStringLiteral("*.png"), QStringLiteral("*.jpg"),
                                   QStringLiteral("*.pdf"), QStringLiteral("*.adi")};
    const QStringList names = QDir(QString::fromStdString(from)).entryList(dataFiles, QDir::Files);
    for (const QString& name : names) {
        const std::string copy = joinPath(to, byteText(name));
        // Any file may be the user's own by now, but for the guide: that of an upgrade counts.
        const bool isGuide = name.endsWith(QLatin1String(".pdf"));
        if (!isGuide && QFileInfo::exists(QString::fromStdString(copy)))
            continue;
        // One that can't be copied is missed, and told of, where it is needed.
        const FileContent file = readFile(joinPath(from, byteText(name)));
        if (file && readFile(copy).bytes != file.bytes)
            (void)writeFile(copy, file.bytes);
    }
}

} // namespace

std::string programFolder(const std::string& executableFolder, const std::string& userFolder) {
    // A disk that is full for the moment does not send the program to other settings.
    if (holdsUserFiles(executableFolder) || !QDir().mkpath(QString::fromStdString(userFolder)))
        return executableFolder;
    copyDataFiles(executableFolder, userFolder);
    return userFolder;
}

std::string existingProgramFolder(const std::string& executableFolder,
                                  const std::string& userFolder) {
    const bool usersServes =
        !holdsUserFiles(executableFolder) && QFileInfo(QString::fromStdString(userFolder)).isDir();
    return usersServes ? userFolder : executableFolder;
}

} // namespace tovrel
