#include "batch/BatchKmz.h"

#include "batch/BatchConsole.h"
#include "batch/BatchOutput.h"
#include "batch/BatchReport.h"
#include "batch/BatchSettings.h"
#include "batch/Interruption.h"
#include "export/GoogleExport.h"
#include "platform/ByteText.h"
#include "platform/Files.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <filesystem>
#include <system_error>

namespace tovrel {

namespace {

std::filesystem::path systemPath(const std::string& path) {
    return QFileInfo(QString::fromStdString(path)).filesystemFilePath();
}

/// The names that the window program gives the files. It names them by the log's whole path, which
/// there is an absolute one: the dots of "./" and "../" must not go from it as those of names do.
ExportFiles filesFor(const std::string& log) {
    const QFileInfo place(QString::fromStdString(log));
    const bool dottedFolder = splitPath(log).folder.find('.') != std::string_view::npos;
    const bool resolve = place.isRelative() && dottedFolder;
    return exportFilesFor(resolve ? byteText(QDir::cleanPath(place.absoluteFilePath())) : log);
}

/// Moves the document to where it is kept, over one of an earlier run.
bool keepDocument(const std::string& written, const std::string& kept) {
    std::error_code failure;
    std::filesystem::rename(systemPath(written), systemPath(kept), failure);
    return !failure || cantWrite(kept);
}

KmzCounters countersOf(const GoogleExport& pass) {
    const GoogleCounters& placed = pass.counters();
    return {.GoogleRecords = pass.GoogleRecords(),
            .GooglePlaced = placed.GooglePlaced(),
            .GoogleConfirmed = placed.GoogleConfirmed,
            .GoogleWorked = placed.GoogleWorked,
            .GoogleHeard = placed.GoogleHeard};
}

} // namespace

BatchResult batchKmz(const BatchOptions& options) {
    RunData data(options.folder, "Tovrel.ini", PrivateProfile::Storage::Memory);
    applyOptions(data, options);
    BatchConsole console(options.quiet, data.run.AbortRequested);

    const ExportFiles named = filesFor(options.log);
    const std::string archive = options.output.empty() ? named.archive : options.output;
    const std::string folder(splitPath(archive).folder);
    const std::string documentName(splitPath(named.KmlFileName).name);
    const std::string kept = folder + documentName;
    const std::filesystem::path archivePath = systemPath(archive);
    std::error_code ignored;
    if (std::filesystem::exists(archivePath, ignored) &&
        !std::filesystem::is_regular_file(archivePath, ignored)) {
        cantWrite(archive);
        return BatchResult::FileFailed;
    }
    if (options.keepKml &&
        std::filesystem::equivalent(systemPath(kept), systemPath(options.log), ignored)) {
        cantWrite(kept + " is the log, and");
        return BatchResult::FileFailed;
    }

    const UnfinishedFile unfinished; // ends behind the folder
    const QTemporaryDir working(QString::fromStdString(folder + ".tovrel-XXXXXX"));
    if (!working.isValid()) {
        cantWrite(archive);
        return BatchResult::FileFailed;
    }
    const std::string document = joinPath(byteText(working.path()), documentName);
    GoogleExport pass(data.ini, data.google, data.run, data.stats, data.tables.counters.QsosPlotted,
                      console, console, [](const std::string& /*path*/) { return false; });
    const ExportEnd end = pass.CreateGoogleFile(
        {.KmlFileName = document, .archive = archive, .keepDocument = options.keepKml});
    if (end != ExportEnd::Done && end != ExportEnd::NothingPlaced) {
        if (end != ExportEnd::Aborted) {
            console.showFailure();
        }
        return BatchResult::FileFailed;
    }
    const bool written =
        (!options.keepKml || keepDocument(document, kept)) &&
        (options.report.empty() ||
         writeResult(options.report, kmzReport(countersOf(pass), data, console.messages())));
    if (!written) {
        return BatchResult::FileFailed;
    }
    return end == ExportEnd::Done ? BatchResult::Done : BatchResult::NothingPlotted;
}

} // namespace tovrel
