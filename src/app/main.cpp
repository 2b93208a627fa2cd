#include "app/frmMain.h"
#include "platform/ByteText.h"
#include "platform/ProgramFolder.h"
#include "platform/frmControls.h"
#include "platform/frmStyle.h"
#include "run/RunData.h"

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char* argv[]) {
    // The whole command line is the name of the settings file: Qt must not take options out of it.
    std::string IniFileName;
    for (int i = 1; i < argc; ++i) {
        IniFileName.append(i > 1 ? " " : "").append(argv[i]);
    }
    if (IniFileName.empty()) {
        IniFileName = "Tovrel.ini";
    }
    int qtArguments = 1;
    QApplication application(qtArguments, argv);
    QApplication::setApplicationName(QStringLiteral("Tovrel"));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(new tovrel::frmStyle);
    QApplication::setFont(tovrel::windowFont());

    const std::string folder = tovrel::programFolder(
        tovrel::byteText(QApplication::applicationDirPath()),
        tovrel::byteText(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)));
    tovrel::RunData data(folder, IniFileName);
    tovrel::frmMain window(data);
    window.start();
    return QApplication::exec();
}
