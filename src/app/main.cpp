#include "app/QtPrompt.h"
#include "app/frmMain.h"
#include "platform/Files.h"
#include "platform/ProgramFolder.h"
#include "platform/Streams.h"
#include "platform/frmControls.h"
#include "platform/frmStyle.h"
#include "run/CommandLine.h"
#include "run/RunData.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QStandardPaths>

namespace {

constexpr int wrongUse = 2; ///< exit status

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        // With its size told, a picture is not decoded before it is shown.
        icon.addFile(QStringLiteral(":/icons/tovrel-%1.png").arg(size), QSize(size, size));
    }
    return icon;
}

/// A path that still leads there when the program is started from another folder.
std::string fullPath(const std::string& path) {
    return path.empty()
               ? path
               : tovrel::nativePath(QFileInfo(QString::fromStdString(path)).absoluteFilePath());
}

} // namespace

int main(int argc, char* argv[]) {
    // The whole command line is a name: Qt must not take options out of it.
    std::string line;
    for (const std::string& argument : tovrel::programArguments(argc, argv)) {
        line.append(line.empty() ? "" : " ").append(argument);
    }
    const tovrel::CommandLine commandLine = tovrel::readCommandLine(line);
    int qtArguments = 1;
    QApplication application(qtArguments, argv);
    QApplication::setApplicationName(QStringLiteral("Tovrel"));
    QApplication::setWindowIcon(programIcon());
    QApplication::setDesktopFileName(QStringLiteral("tovrel"));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(new tovrel::frmStyle);
    QApplication::setFont(tovrel::windowFont());

    const std::string folder = tovrel::programFolder(
        tovrel::nativePath(QApplication::applicationDirPath()),
        tovrel::nativePath(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)));
    tovrel::RunData data(folder, commandLine.IniFileName);
    if (data.ini.state() == tovrel::PrivateProfile::State::Foreign) {
        tovrel::QtPrompt(nullptr).tell("This is no settings file.\r\n" + data.ini.path() +
                                           "\r\nTovrel leaves it as it is and ends.",
                                       tovrel::MessageIcon::Critical);
        return wrongUse;
    }
    tovrel::frmMain window(data);
    window.start(fullPath(commandLine.LogFileName));
    return QApplication::exec();
}
