#include "batch/BatchKmz.h"
#include "batch/BatchOptions.h"
#include "batch/BatchPlot.h"
#include "batch/Interruption.h"
#include "platform/ByteText.h"
#include "platform/Files.h"
#include "platform/ProgramFolder.h"
#include "run/Commands.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QStandardPaths>
#include <cstdio>

namespace {

using tovrel::BatchOptions;
using tovrel::BatchResult;

/// Qt's warnings (no runtime folder, an odd font) mean nothing to a script.
void onlyCritical(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(text));
    }
}

BatchResult wrongUse(const std::string& reason) {
    std::fprintf(stderr, "tovrel-batch: %s\n", reason.c_str());
    return BatchResult::WrongUse;
}

/// The option that would put its file in the log's place; empty when none would.
std::string optionReplacingLog(const BatchOptions& options) {
    const auto canonical = [](const std::string& path) {
        return QFileInfo(QString::fromStdString(path)).canonicalFilePath();
    };
    const std::pair<const char*, const std::string*> outputs[] = {{"--image", &options.image},
                                                                  {"--base-map", &options.baseMap},
                                                                  {"--report", &options.report},
                                                                  {"--output", &options.output}};
    for (const auto& [option, path] : outputs) {
        if (!path->empty() && canonical(*path) == canonical(options.log)) {
            return option;
        }
    }
    return {};
}

BatchResult runCommand(BatchOptions options) {
    if (!tovrel::fileExists(options.log)) {
        std::fprintf(stderr, "tovrel-batch: there is no log %s\n", options.log.c_str());
        return BatchResult::FileFailed;
    }
    if (const std::string option = optionReplacingLog(options); !option.empty()) {
        return wrongUse(option + ": the file would replace the log");
    }
    if (options.folder.empty()) {
        options.folder = tovrel::existingProgramFolder(
            tovrel::byteText(QGuiApplication::applicationDirPath()),
            tovrel::byteText(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)));
    } else if (!QFileInfo(QString::fromStdString(options.folder)).isDir()) {
        std::fprintf(stderr, "tovrel-batch: there is no folder %s\n", options.folder.c_str());
        return BatchResult::FileFailed;
    }
    return options.command == BatchOptions::Command::Kmz ? tovrel::batchKmz(options)
                                                         : tovrel::batchPlot(options);
}

BatchResult run(int argc, char* argv[]) {
    const tovrel::ParsedOptions parsed = tovrel::parseOptions({argv + 1, argv + argc});
    if (!parsed.error.empty()) {
        return wrongUse(parsed.error);
    }
    switch (parsed.options.command) {
    case BatchOptions::Command::Help:
        std::fputs(tovrel::usageText, stdout);
        return BatchResult::Done;
    case BatchOptions::Command::Version:
        std::printf("tovrel-batch %s\n", std::string(tovrel::GetVersionString()).c_str());
        return BatchResult::Done;
    case BatchOptions::Command::Plot:
    case BatchOptions::Command::Kmz:
        break;
    }
    tovrel::watchForInterruption();
    // Text on the map needs fonts, and those an application, but no display.
    qInstallMessageHandler(onlyCritical);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int qtArguments = 1;
    const QGuiApplication application(qtArguments, argv);
    QGuiApplication::setApplicationName(QStringLiteral("Tovrel"));
    return runCommand(parsed.options);
}

} // namespace

int main(int argc, char* argv[]) {
    try {
        return static_cast<int>(run(argc, argv));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "tovrel-batch: %s\n", failure.what());
        return static_cast<int>(BatchResult::FileFailed);
    }
}
