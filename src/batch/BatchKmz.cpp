#include "batch/BatchKmz.h"

#include "batch/BatchConsole.h"
#include "batch/BatchOutput.h"
#include "batch/BatchReport.h"
#include "batch/BatchSettings.h"
#include "batch/Interruption.h"
#include "export/GoogleExport.h"
#include "platform/Files.h"

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

} // namespace

BatchResult batchKmz(const BatchOptions& options) {
    RunData data(options.folder, "Tovrel.ini", PrivateProfile::Storage::Memory);
    BatchConsole console(options.quiet, data.run.AbortRequested);
    if (!applyOptions(data, options, console)) {
        return BatchResult::FileFailed;
    }

    const ExportFiles named = exportFilesFor(options.log);
    const std::string archive = options.output.empty() ? named.archive : options.output;
    const std::string document =
        joinPath(splitPath(archive).folder, splitPath(named.KmlFileName).name);
    if (options.keepKml && isSameFile(document, options.log)) {
        cantWrite(document, "it is the log");
        return BatchResult::FileFailed;
    }

    const UnfinishedFile unfinished; // ends behind the work folder
    GoogleExport pass(data.ini, data.google, data.run, data.stats, data.tables.counters.QsosPlotted,
                      console, console, [](const std::string& /*path*/) { return false; });
    const ExportEnd end = pass.CreateGoogleFile(
        {.KmlFileName = document,
         .archive = archive,
         .document = options.keepKml ? ExportFiles::Document::Kept : ExportFiles::Document::Never});
    if (end != ExportEnd::Done && end != ExportEnd::NothingPlaced) {
        if (end != ExportEnd::Aborted) {
            console.showFailure();
        }
        return BatchResult::FileFailed;
    }
    const bool written =
        options.report.empty() ||
        writeResult(options.report, kmzReport(countersOf(pass), data, console.messages()));
    if (!written) {
        return BatchResult::FileFailed;
    }
    return end == ExportEnd::Done ? BatchResult::Done : BatchResult::NothingPlotted;
}

} // namespace tovrel
