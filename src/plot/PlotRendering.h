#pragma once

#include "map/Overlays.h"
#include "map/PictureSurface.h"
#include "map/WorldMap.h"
#include "platform/UserPrompt.h"
#include "plot/PlotTables.h"
#include "state/MapOptions.h"
#include "stats/Legend.h"
#include "stats/StatusLists.h"

namespace tovrel {

/// Widths of the two dots of a mark: 5 and 3, 7 and 5, or 9 and 7 pixels.
DotWidths dotWidths(MarkerSize size);

/// Draws a mark on Picture2 for each row of the plot table, in three layers, Heard, Worked and
/// Confirmed on top, and fills HoverTable, the status lists and their counters. With nothing to
/// plot it tells the user why, where it knows.
///
/// A row within the cut-off round the antipode is counted and listed and gets no mark.
void DrawPlottedQsos(PlotTables& tables, const WorldMap& map, DotWidths widths,
                     const Legend& legend, StatusLists& lists, PictureSurface& Picture2,
                     UserPrompt& prompt);

} // namespace tovrel
