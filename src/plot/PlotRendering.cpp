#include "plot/PlotRendering.h"

#include "platform/Numbers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tovrel {

namespace {

constexpr int listDecimals = 4;

/// What differs between the three layers of marks.
struct Layer {
    QsoStatus status;
    std::int32_t PassCounters::*counter;
    StationList StatusLists::*list;
    MapColour colour;
};

/// In the order of markLayers.
constexpr std::array<Layer, markLayers.size()> layers = {
    {{markLayers[0], &PassCounters::QsosHeard, &StatusLists::lstHeard, MapColour::Heard},
     {markLayers[1], &PassCounters::QsosWorked, &StatusLists::lstWorked, MapColour::Worked},
     {markLayers[2], &PassCounters::QsosConfirmed, &StatusLists::lstConfirmed,
      MapColour::Confirmed}}};

void tellNothingPlotted(const PlotTables& tables, UserPrompt& prompt) {
    if (!tables.LogHasCoordinates) {
        prompt.tell("Tovrel found nothing to display.\r\n"
                    "It appears that your ADIF file does not contain\r\n"
                    "Latitude & Longitude data.  Please refer to the\r\n"
                    "Help File and create your ADIF file with the\r\n"
                    "required Latitude & Logitude data.\r\n");
    } else if (!tables.FilterPassedAny) {
        prompt.tell("Tovrel found nothing to display.\r\n"
                    " Please check you filter settings.");
    }
}

void fillHoverTable(PlotTables& tables, const WorldMap& map) {
    tables.HoverTable.begin(tables.plotTable.size());
    for (PlotRow& row : tables.plotTable.rows()) {
        const MapPoint at = pointOr(map.position(row.latitude, row.longitude),
                                    {PlotRow::nowhere, PlotRow::nowhere});
        row.mapY = roundHalfEven(at.y, listDecimals);
        row.mapX = roundHalfEven(at.x, listDecimals);
        tables.HoverTable.add(row.mapY, row.mapX);
    }
    tables.HoverTable.finish();
}

} // namespace

DotWidths dotWidths(MarkerSize size) {
    switch (size) {
    case MarkerSize::Small:
        return {.outer = 5, .inner = 3};
    case MarkerSize::Medium:
        return {.outer = 7, .inner = 5};
    case MarkerSize::Large:
        break;
    }
    return {.outer = 9, .inner = 7};
}

MarkStyle markStyle(MarkerSize size, const Legend& legend) {
    MarkStyle style{.widths = dotWidths(size), .outline = legend.colour(MapColour::PlotOutline)};
    for (std::size_t i = 0; i < layers.size(); ++i) {
        style.inner[i] = legend.colour(layers[i].colour);
    }
    return style;
}

void DrawPlottedQsos(PlotTables& tables, const WorldMap& map, const MarkStyle& style,
                     StatusLists& lists, PictureSurface& Picture2, UserPrompt& prompt) {
    if (tables.counters.QsosPlotted < 1) {
        tellNothingPlotted(tables, prompt);
        return;
    }
    fillHoverTable(tables, map);
    const std::vector<PlotRow>& rows = tables.plotTable.rows();
    for (const Layer& layer : layers) {
        const auto isOfLayer = [&layer](const PlotRow& row) { return row.status == layer.status; };
        std::vector<Station> stations;
        stations.reserve(
            static_cast<std::size_t>(std::count_if(rows.begin(), rows.end(), isOfLayer)));
        for (const PlotRow& row : rows) {
            if (isOfLayer(row)) {
                stations.push_back({row.call, row.mapY, row.mapX});
            }
        }
        tables.counters.*layer.counter += static_cast<std::int32_t>(stations.size());
        (lists.*layer.list).add(std::move(stations), tables.plotTable.texts());
    }
    SilentListener nobody; // what is on the map and in the lists shows together
    drawMarks(tables, style, Picture2, nobody);
}

void drawMarks(const PlotTables& tables, const MarkStyle& style, PictureSurface& picture,
               PassListener& listener) {
    constexpr int marksToAYield = 1000;
    int marks = 0;
    for (std::size_t i = 0; i < markLayers.size(); ++i) {
        for (const PlotRow& row : tables.plotTable.rows()) {
            if (row.status != markLayers[i] || !row.shown()) {
                continue;
            }
            drawMark(picture, {toSingle(row.mapX), toSingle(row.mapY)}, style.widths, style.outline,
                     style.inner[i]);
            if (++marks % marksToAYield == 0) {
                listener.yield();
            }
        }
    }
}

} // namespace tovrel
