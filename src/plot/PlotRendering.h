#pragma once

#include "log/QsoStatus.h"
#include "map/Overlays.h"
#include "map/PictureSurface.h"
#include "map/WorldMap.h"
#include "platform/PassListener.h"
#include "platform/UserPrompt.h"
#include "plot/PlotTables.h"
#include "state/MapOptions.h"
#include "stats/Legend.h"
#include "stats/StatusLists.h"

#include <array>

namespace tovrel {

/// Widths of the two dots of a mark: 5 and 3, 7 and 5, or 9 and 7 pixels.
DotWidths dotWidths(MarkerSize size);

/// How the marks of a plot look.
struct MarkStyle {
    DotWidths widths;
    Colour outline = 0;
    std::array<Colour, 3> inner{}; ///< in the order of markLayers
};

/// The layers of marks, the lowest first.
inline constexpr std::array<QsoStatus, 3> markLayers = {QsoStatus::Heard, QsoStatus::Worked,
                                                        QsoStatus::Confirmed};

/// Marks of a size in the colours that the key has now.
MarkStyle markStyle(MarkerSize size, const Legend& legend);

/// Fills HoverTable, the status lists and their counters from the plot table, and draws its marks
/// on Picture2. With nothing to plot it tells the user why, where it knows.
///
/// A row within the cut-off round the antipode is counted and listed and gets no mark.
void DrawPlottedQsos(PlotTables& tables, const WorldMap& map, const MarkStyle& style,
                     StatusLists& lists, PictureSurface& Picture2, UserPrompt& prompt);

/// Draws a mark for each row of a plot table that knows its place on the map.
/// @param listener events run after some marks
void drawMarks(const PlotTables& tables, const MarkStyle& style, PictureSurface& picture,
               PassListener& listener);

} // namespace tovrel
