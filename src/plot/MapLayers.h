#pragma once

#include "map/Overlays.h"
#include "map/PictureSurface.h"
#include "map/WorldMap.h"
#include "platform/PassListener.h"
#include "plot/PlotRendering.h"
#include "plot/PlotTables.h"

#include <string>
#include <variant>
#include <vector>

namespace tovrel {

/// Meridians and parallels.
struct GraticuleLayer {
    Colour colour = 0;
};

/// The mark of the home station.
struct HomeLayer {
    HomePosition home;
    DotWidths widths;
    Colour outline = 0;
    Colour inner = 0;
};

/// The marks of a plot, the rows of the plot table, and what the plot was made from.
struct PlotLayer {
    MarkStyle style;
    std::string log;    ///< name of its file, bytes
    std::string filter; ///< what it let through, see filterWords(); empty for all
};

/// What can lie over a base map. Each tells all that it takes to draw it once more.
using MapLayer = std::variant<GraticuleLayer, HomeLayer, PlotLayer>;

/// A picture of a map that remembers what was drawn over the base map.
class LayeredPicture : public PictureSurface {
public:
    using PictureSurface::PictureSurface;

    /// What was drawn, the lowest first. Whoever draws adds, and who puts the base map back clears.
    std::vector<MapLayer> layers;
};

/// Draws a layer on a picture of any size.
/// @param tables with the rows of a PlotLayer
/// @param listener events run after each meridian and after some marks
void drawLayer(const MapLayer& layer, const WorldMap& map, const PlotTables& tables,
               PictureSurface& picture, PassListener& listener);

} // namespace tovrel
