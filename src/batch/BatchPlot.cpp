#include "batch/BatchPlot.h"

#include "batch/BatchConsole.h"
#include "batch/BatchWindow.h"
#include "batch/PlotReport.h"
#include "map/MapImage.h"
#include "map/PictureFile.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "platform/Twips.h"
#include "plot/GCMapLoadADIF.h"
#include "run/MapRun.h"
#include "state/InitSettings.h"

#include <cstdio>

namespace tovrel {

namespace {

constexpr int pictureWidth = 800; // pixels

/// Settings, options and projection of the run. What is set here stays in memory.
void applyOptions(RunData& data, const BatchOptions& options) {
    InitSettings(data.ini, data.maps, data.google, data.run);
    if (options.home) {
        data.ini.WriteIniValue(section::globals, "Latitude", decimalText(options.home->latitude));
        data.ini.WriteIniValue(section::globals, "Longitude", decimalText(options.home->longitude));
    }
    const std::string display = data.ini.ReadIniValue(section::globals, "Display");
    const Projection fromSettings =
        display.empty() || display == "Azimuthal" ? Projection::Azimuthal : Projection::Miller;
    data.run.marks.projection = options.projection.value_or(fromSettings);
    data.maps.load(data.run.marks.projection);
    data.run.LogFileName = options.log;
    data.run.FormReady = true;
}

bool cantWrite(const std::string& path) {
    std::fprintf(stderr, "tovrel-batch: %s can't be written\n", path.c_str());
    return false;
}

bool writeImage(const MapRun& map, Projection projection, const std::string& path) {
    PictureSurface Picture3(map.Picture2.Width(), map.Picture2.Height());
    composeMapImage(map.Picture2, projection, QDateTime::currentDateTime(), Picture3);
    return SavePicture(Picture3.Image(), path, imageFormat(path)) || cantWrite(path);
}

bool writeReport(const std::string& report, const std::string& path) {
    if (path == "-") {
        const bool written = std::fwrite(report.data(), 1, report.size(), stdout) == report.size();
        return (written && std::fflush(stdout) == 0) || cantWrite("standard output");
    }
    return writeFile(path, report) || cantWrite(path);
}

} // namespace

BatchResult batchPlot(const BatchOptions& options) {
    RunData data(options.folder, "Tovrel.ini", PrivateProfile::Storage::Memory);
    applyOptions(data, options);
    if (!fileExists(options.log)) {
        std::fprintf(stderr, "tovrel-batch: there is no log %s\n", options.log.c_str());
        return BatchResult::FileFailed;
    }
    const Projection projection = data.run.marks.projection;
    const float width = twipsFromPixels(pictureWidth);
    BatchWindow window(width, projection == Projection::Azimuthal ? width : width / 2.0F);
    BatchListener listener(options.quiet);
    BatchPrompt prompt(options.quiet);
    MapRun map(data, window, listener, prompt);
    map.drawBaseMapInMemory();
    map.ResetMap();

    GCMapLoadADIF pass(data.ini, data.maps, data.run, data.stats, data.tables, map.Picture2,
                       listener, prompt);
    if (pass.PlotLog() != PassEnd::Done) {
        return BatchResult::FileFailed;
    }
    const bool written = (options.image.empty() || writeImage(map, projection, options.image)) &&
                         (options.report.empty() ||
                          writeReport(plotReport(data, prompt.messages()), options.report));
    if (!written) {
        return BatchResult::FileFailed;
    }
    return data.tables.counters.QsosPlotted > 0 ? BatchResult::Done : BatchResult::NothingPlotted;
}

} // namespace tovrel
