#include "plot/PlotRendering.h"

#include "platform/Numbers.h"

#include <algorithm>
#include <array>
#include <limits>

namespace tovrel {

namespace {

constexpr int listDecimals = 4;

/// What differs between the three layers of marks.
struct Layer {
    QsoStatus status;
    std::int32_t PassCounters::*counter;
    SortedList<Station> StatusLists::*list;
    MapColour colour;
};

constexpr std::array<Layer, 3> layers = {
    {{QsoStatus::Heard, &PassCounters::QsosHeard, &StatusLists::lstHeard, MapColour::Heard},
     {QsoStatus::Worked, &PassCounters::QsosWorked, &StatusLists::lstWorked, MapColour::Worked},
     {QsoStatus::Confirmed, &PassCounters::QsosConfirmed, &StatusLists::lstConfirmed,
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
    constexpr double nowhere = std::numeric_limits<double>::quiet_NaN();
    tables.HoverTable.clear();
    tables.HoverTable.reserve(tables.plotTable.size());
    for (const PlotRow& row : tables.plotTable.rows()) {
        const MapPoint at = pointOr(map.position(row.latitude, row.longitude), {nowhere, nowhere});
        tables.HoverTable.push_back(
            {roundHalfEven(at.y, listDecimals), roundHalfEven(at.x, listDecimals)});
    }
    tables.hoverIndex.build(tables.HoverTable);
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

void DrawPlottedQsos(PlotTables& tables, const WorldMap& map, DotWidths widths,
                     const Legend& legend, StatusLists& lists, PictureSurface& Picture2,
                     UserPrompt& prompt) {
    if (tables.counters.QsosPlotted < 1) {
        tellNothingPlotted(tables, prompt);
        return;
    }
    fillHoverTable(tables, map);
    lists.holdTexts(tables.plotTable.texts());
    const Colour outline = legend.colour(MapColour::PlotOutline);
    const std::vector<PlotRow>& rows = tables.plotTable.rows();
    for (const Layer& layer : layers) {
        const Colour colour = legend.colour(layer.colour);
        (lists.*layer.list)
            .reserve(static_cast<std::size_t>(
                std::count_if(rows.begin(), rows.end(), [&layer](const PlotRow& row) {
                    return row.status == layer.status;
                })));
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (rows[i].status != layer.status) {
                continue;
            }
            const Station station{rows[i].call, tables.HoverTable[i].mapY,
                                  tables.HoverTable[i].mapX};
            ++(tables.counters.*layer.counter);
            (lists.*layer.list).add(station);
            if (station.shown()) {
                drawMark(Picture2, {toSingle(station.mapX), toSingle(station.mapY)}, widths,
                         outline, colour);
            }
        }
    }
}

} // namespace tovrel
