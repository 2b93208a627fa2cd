#include "batch/BatchKmz.h"

#include "batch/BatchConsole.h"
#include "batch/BatchOutput.h"
#include "batch/BatchReport.h"
#include "batch/BatchSettings.h"
#include "export/GoogleExport.h"
#include "platform/ByteText.h"
#include "platform/Files.h"
#include "platform/Interruption.h"
#include "platform/WorkFolder.h"

#include <QDir>
#include <optional>

namespace tovrel {

namespace {

KmzCounters countersOf(const GoogleExport& pass) {
    const GoogleCounters& placed = pass.counters();
    return {.GoogleRecords = pass.GoogleRecords(),
            .GooglePlaced = placed.GooglePlaced(),
            .GoogleConfirmed = placed.GoogleConfirmed,
            .GoogleWorked = placed.GoogleWorked,
            .GoogleHeard = placed.GoogleHeard};
}

/// @return whether the archive's icons are in the folder; the first that is not is told
bool iconsFound(const std::string& folder, BatchConsole& console) {
    for (const std::string_view icon : GoogleExport::icons) {
        const std::string path = filePath(folder, icon);
        if (readFile(path, 0).isMissing()) {
            console.tellFailure({FileFailure::Act::Read, "An icon of the KMZ file is missing.",
                                 path, "No such file or directory"});
            console.showFailure();
            console.hint("--allow-incomplete makes the KMZ file all the same");
            return false;
        }
    }
    return true;
}

} // namespace

BatchResult batchKmz(const BatchOptions& options) {
    RunData data(options.folder, "Tovrel.ini", PrivateProfile::Storage::Memory);
    BatchConsole console(options.quiet, data.run.AbortRequested);
    if (!applyOptions(data, options, console)) {
        return BatchResult::FileFailed;
    }

    if (!options.allowIncomplete && !iconsFound(options.folder, console)) {
        return BatchResult::FileFailed;
    }
    const UnfinishedFile unfinished; // ends after the work folders
    std::optional<WorkFolder> spool;
    std::string archive = options.output;
    if (archive == "-") {
        spool.emplace(byteText(QDir::tempPath()));
        archive = spool->path("log.kmz");
    }
    GoogleExport pass(data.ini, data.google, data.run, data.stats, data.tables.counters.QsosPlotted,
                      console, console, [](const std::string& /*path*/) { return false; });
    const ExportEnd end = pass.CreateGoogleFile(
        {.KmlFileName = joinPath(splitPath(archive).folder, splitPath(options.document).name),
         .archive = archive,
         .document = options.keepKml ? ExportFiles::Document::Kept : ExportFiles::Document::Never,
         .archiveTitle = spool ? "standard output" : ""});
    if (end != ExportEnd::Done && end != ExportEnd::NothingPlaced) {
        if (end != ExportEnd::Aborted) {
            console.showFailure();
        }
        return BatchResult::FileFailed;
    }
    if (end == ExportEnd::NothingPlaced && !pass.LogHasCoordinates()) {
        hintAtOtherPlaces(data, console);
    }
    const bool written =
        (!spool || end != ExportEnd::Done || copyToStandardOutput(archive)) &&
        (options.report.empty() ||
         writeResult(options.report, kmzReport(countersOf(pass), data, console.messages())));
    if (!written) {
        return BatchResult::FileFailed;
    }
    return end == ExportEnd::Done ? BatchResult::Done : BatchResult::NothingPlotted;
}

} // namespace tovrel
