#include "plot/MapLayers.h"

namespace tovrel {

namespace {

/// Draws the layer that it is handed.
struct LayerPen {
    const WorldMap& map;
    const PlotTables& tables;
    PictureSurface& picture;
    PassListener& listener;

    void operator()(const GraticuleLayer& layer) const {
        DrawGraticule(picture, map, layer.colour, listener);
    }
    void operator()(const HomeLayer& layer) const {
        DrawHomeMarker(picture, layer.home, layer.widths, layer.outline, layer.inner);
    }
    void operator()(const PlotLayer& layer) const {
        drawMarks(tables, layer.style, picture, listener);
    }
};

} // namespace

void drawLayer(const MapLayer& layer, const WorldMap& map, const PlotTables& tables,
               PictureSurface& picture, PassListener& listener) {
    std::visit(LayerPen{map, tables, picture, listener}, layer);
}

} // namespace tovrel
