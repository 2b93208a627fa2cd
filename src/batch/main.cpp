#include "batch/BatchOptions.h"
#include "batch/BatchPlot.h"
#include "platform/ByteText.h"
#include "platform/ProgramFolder.h"
#include "run/Commands.h"

#include <QGuiApplication>
#include <QStandardPaths>
#include <cstdio>

namespace {

/// Qt's warnings (no runtime folder, an odd font) mean nothing to a script.
void onlyCritical(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(text));
    }
}

int run(int argc, char* argv[]) {
    tovrel::ParsedOptions parsed = tovrel::parseOptions({argv + 1, argv + argc});
    if (!parsed.error.empty()) {
        std::fprintf(stderr, "tovrel-batch: %s\n", parsed.error.c_str());
        return static_cast<int>(tovrel::BatchResult::WrongUse);
    }
    switch (parsed.options.command) {
    case tovrel::BatchOptions::Command::Help:
        std::fputs(tovrel::usageText, stdout);
        return 0;
    case tovrel::BatchOptions::Command::Version:
        std::printf("tovrel-batch %s\n", std::string(tovrel::GetVersionString()).c_str());
        return 0;
    case tovrel::BatchOptions::Command::Plot:
        break;
    }
    // Text on the map needs fonts, and those an application, but no display.
    qInstallMessageHandler(onlyCritical);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int qtArguments = 1;
    const QGuiApplication application(qtArguments, argv);
    QGuiApplication::setApplicationName(QStringLiteral("Tovrel"));
    if (parsed.options.folder.empty()) {
        parsed.options.folder = tovrel::existingProgramFolder(
            tovrel::byteText(QGuiApplication::applicationDirPath()),
            tovrel::byteText(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)));
    }
    return static_cast<int>(tovrel::batchPlot(parsed.options));
}

} // namespace

int main(int argc, char* argv[]) {
    try {
        return run(argc, argv);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "tovrel-batch: %s\n", failure.what());
        return static_cast<int>(tovrel::BatchResult::FileFailed);
    }
}
