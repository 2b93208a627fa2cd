#include "batch/BatchKmz.h"
#include "batch/BatchOptions.h"
#include "batch/BatchOutput.h"
#include "batch/BatchPlaces.h"
#include "batch/BatchPlot.h"
#include "platform/ByteText.h"
#include "platform/Files.h"
#include "platform/Interruption.h"
#include "platform/OffscreenFonts.h"
#include "platform/ProgramFolder.h"
#include "platform/SpooledInput.h"
#include "platform/Streams.h"
#include "platform/Threads.h"
#include "run/Commands.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QHashSeed>
#include <QStandardPaths>
#include <cstdio>
#include <new>
#include <optional>

namespace {

using tovrel::BatchOptions;
using tovrel::BatchResult;

/// Qt's warnings (no runtime folder, an odd font) mean nothing to a script.
void onlyCritical(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        tovrel::writeStream(stderr, tovrel::byteText(text) + "\n");
    }
}

BatchResult fail(BatchResult result, const std::string& line) {
    tovrel::printError(line);
    return result;
}

BatchResult runCommand(BatchOptions options) {
    if (options.folder.empty()) {
        options.folder = tovrel::existingProgramFolder(
            tovrel::nativePath(QGuiApplication::applicationDirPath()),
            tovrel::nativePath(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)));
    } else if (!QFileInfo(QString::fromStdString(options.folder)).isDir()) {
        return fail(BatchResult::FileFailed, "there is no folder " + options.folder);
    }
    const bool kmz = options.command == BatchOptions::Command::Kmz;
    const bool piped = tovrel::isPiped(options.log);
    if (kmz && piped && options.output.empty()) {
        return fail(BatchResult::WrongUse, "a log from a pipe lies nowhere: --output is needed");
    }
    tovrel::completePlaces(options);
    if (const tovrel::PlaceFault fault = tovrel::faultOfPlaces(options)) {
        return fail(fault.status, fault.line);
    }
    std::optional<tovrel::SpooledInput> spooled;
    if (piped) {
        const bool standard = options.log == "-";
        options.logTitle = standard ? "standard input" : options.log;
        spooled.emplace(standard ? std::string() : options.log);
        if (!spooled->error().empty()) {
            return fail(BatchResult::FileFailed,
                        tovrel::cantText(options.logTitle, "read", spooled->error()));
        }
        options.log = spooled->path();
    }
    return kmz ? tovrel::batchKmz(options) : tovrel::batchPlot(options);
}

/// @return whether all of it reached standard output
BatchResult print(const std::string& text) {
    return tovrel::writeResult("-", text) ? BatchResult::Done : BatchResult::FileFailed;
}

BatchResult answer(int argc, char* argv[]) {
    tovrel::setUpStreams();
    const tovrel::ParsedOptions parsed = tovrel::parseOptions(tovrel::programArguments(argc, argv));
    if (!parsed.error.empty()) {
        return fail(BatchResult::WrongUse, parsed.error);
    }
    switch (parsed.options.command) {
    case BatchOptions::Command::Help:
        return print(tovrel::usageText());
    case BatchOptions::Command::Version:
        return print("tovrel-batch " + std::string(tovrel::GetVersionString()) + "\n");
    case BatchOptions::Command::Plot:
    case BatchOptions::Command::Kmz:
        break;
    }
    if (const std::string fault = tovrel::faultOfTime(); !fault.empty()) {
        return fail(BatchResult::WrongUse, fault);
    }
    tovrel::watchForInterruption();
    tovrel::limitThreadsToPossible();
    // Text on the map needs fonts, and those an application, but no display.
    qInstallMessageHandler(onlyCritical);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt numbers the parts of a page in the order of a hash table: the same one in each run.
    QHashSeed::setDeterministicGlobalSeed();
    tovrel::findFontsOffscreen();
    int qtArguments = 1;
    const QGuiApplication application(qtArguments, argv);
    QGuiApplication::setApplicationName(QStringLiteral("Tovrel"));
    return runCommand(parsed.options);
}

} // namespace

int main(int argc, char* argv[]) {
    try {
        return static_cast<int>(answer(argc, argv));
    } catch (const std::bad_alloc&) {
        return static_cast<int>(
            fail(BatchResult::FileFailed, "the memory is too small for this log"));
    } catch (const std::exception& failure) {
        return static_cast<int>(fail(BatchResult::FileFailed, failure.what()));
    }
}
