#pragma once

#include "plot/PlotTables.h"
#include "state/MapOptions.h"

#include <QString>

namespace tovrel {

/// The tool tip at a position of the map as the tool tip window takes it: the parts that the
/// options select, lines broken between stations only, at most a screen full of calls. Empty for
/// none. What could be taken for rich text is made that, with its signs escaped.
/// @param mapY, mapX map units
QString toolTipText(const PlotTables& tables, const MapOptions& options, double mapY, double mapX);

} // namespace tovrel
