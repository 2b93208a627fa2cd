#include "batch/BatchPlot.h"

#include "batch/BatchConsole.h"
#include "batch/BatchOutput.h"
#include "batch/BatchReport.h"
#include "batch/BatchScreen.h"
#include "batch/BatchSettings.h"
#include "map/MapImage.h"
#include "platform/Twips.h"
#include "plot/GCMapLoadADIF.h"
#include "run/MapPictures.h"
#include "run/MapSheet.h"
#include "state/StationInfo.h"

#include <QFontInfo>
#include <algorithm>
#include <optional>
#include <utility>

namespace tovrel {

namespace {

/// The screen that gives the picture its pixels. On a page marks and lines have the share of the
/// map that they have in a picture of the default size.
BatchScreen screenFor(const BatchOptions& options, MapShape shape) {
    // A base map alone is drawn as small as base maps come.
    constexpr int baseMapPixels = 667;
    constexpr int picturePixels = 800;
    const int pixels = options.size.value_or(options.image.empty() ? baseMapPixels : picturePixels);
    const float width = twipsFromPixels(pixels);
    const bool page = pictureFormat(options.image) == PictureFormat::Pdf;
    const int mapPixels = page ? mapPixelsOn(options.paper.value_or(Paper::A4), shape) : pixels;
    return {width, width / static_cast<float>(shape.widthPerHeight),
            static_cast<float>(mapPixels) / static_cast<float>(pixels)};
}

/// What is written of a map.
struct MapOutput {
    QImage image;
    std::optional<MapCaption> caption;
};

/// The map with its caption; without one a picture has the stamps of a saved map.
MapOutput outputOf(const BatchOptions& options, const RunData& data, const MapPictures& map) {
    const QDateTime now = timeOfRun();
    const bool page = pictureFormat(options.image) == PictureFormat::Pdf;
    if (options.caption.value_or(page)) {
        return {map.Picture2.Image(), captionOf(data, map.Picture2.layers, now)};
    }
    if (page) {
        return {map.Picture2.Image(), std::nullopt};
    }
    PictureSurface Picture3(map.Picture2.Width(), map.Picture2.Height());
    composeMapImage(map.Picture2, *data.map(), now, Picture3);
    return {Picture3.Image(), std::nullopt};
}

/// The tool tips asked for, a line each.
std::string tipLines(RunData& data, const std::vector<TipPlace>& positions) {
    const MapOptions& map = data.maps.inForce();
    const TipParts parts{.latLong = map.chkLatLong, .country = map.chkCountry, .call = map.chkCall};
    std::string lines;
    for (const TipPlace& at : positions) {
        std::string tip = utf8Text(tipText(data.tables, parts, at.mapY, at.mapX));
        // A value of the log may hold a line end.
        std::replace_if(
            tip.begin(), tip.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
        lines += tip + '\n';
    }
    return lines;
}

/// @return whether nothing is missing; what is, is told
bool drawBaseMap(MapPictures& map, BatchConsole& console) {
    // Families of a few names stand in the list even where no font is installed.
    const bool hasFonts = !QFontInfo(QFont(QStringLiteral("Arial"))).family().isEmpty();
    if (!hasFonts) {
        console.tell("No font is installed that the map's letters could be drawn with.",
                     MessageIcon::Exclamation);
    }
    const BaseMapEnd end = map.drawBaseMapInMemory();
    return hasFonts && !end.files.missing && !end.files.unreadable;
}

} // namespace

BatchResult batchPlot(const BatchOptions& options) {
    RunData data(options.folder, "Tovrel.ini", PrivateProfile::Storage::Memory);
    BatchConsole console(options.quiet, data.run.AbortRequested);
    if (!applyOptions(data, options, console)) {
        return BatchResult::FileFailed;
    }
    BatchScreen screen = screenFor(options, data.map()->shape());
    std::optional<MapPictures> pictures(std::in_place, data, screen, console, console);
    MapPictures& map = *pictures;
    readHome(data.ini, data.run);
    const bool makesPicture = !options.image.empty() || !options.baseMap.empty();
    if (makesPicture && !drawBaseMap(map, console) && !options.allowIncomplete) {
        console.showFailure();
        console.hint("--allow-incomplete draws the map all the same");
        return BatchResult::FileFailed;
    }
    if (!options.baseMap.empty() && !writeMap(options.baseMap, map.Picture1.Image())) {
        return BatchResult::FileFailed;
    }
    map.ResetMap();

    GCMapLoadADIF pass(data.ini, data.maps, data.run, data.stats, data.tables, map.Picture2,
                       console, console);
    if (pass.PlotLog() != PassEnd::Done) {
        console.showFailure();
        return BatchResult::FileFailed;
    }
    const bool nothing = data.tables.counters.QsosPlotted == 0;
    if (nothing && (data.tables.FilterPassedAny || !data.tables.LogHasCoordinates)) {
        hintAtOtherPlaces(data, console);
    }
    const MapOutput output = options.image.empty() ? MapOutput() : outputOf(options, data, map);
    pictures.reset(); // a picture of 8000 pixels takes 256 MB, and its file some as well
    const bool written =
        (options.image.empty() || writeMap(options.image, output.image,
                                           options.paper.value_or(Paper::A4), output.caption)) &&
        (options.tips.empty() || writeResult("-", tipLines(data, options.tips))) &&
        (options.report.empty() ||
         writeResult(options.report, plotReport(data, console.messages())));
    if (!written) {
        return BatchResult::FileFailed;
    }
    return nothing ? BatchResult::NothingPlotted : BatchResult::Done;
}

} // namespace tovrel
