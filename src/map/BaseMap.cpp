#include "map/BaseMap.h"

#include "map/CoastData.h"
#include "map/TopoOverlay.h"

namespace tovrel {

namespace {

constexpr double centrePixel = 333.0;
constexpr double unitsPerPixel = 66.0;
constexpr Colour white = 0xFFFFFF;
constexpr Colour outerGrey = 0xE0E0E0;

/// Share of a line's width that the coast has at a resolution. A fine coast has more of it, and
/// lines as wide as at resolution 1 would blacken its bays and islands.
double coastWidth(double resolution) {
    return resolution > 1.0 ? (0.4 + 0.3 * resolution) / resolution : 1.0;
}

} // namespace

BaseMapEnd drawBaseMap(PictureSurface& Picture1, const BaseMapStyle& style,
                       const std::string& programFolder, PassListener& listener,
                       UserPrompt& prompt) {
    BaseMapEnd end;
    const CoastData data = readCoastData(programFolder, Picture1.resolution(), prompt, end.files);
    const WorldMap& map = *style.map;
    Picture1.ForeColor = 0x000000;
    Picture1.BackColor = white;
    Picture1.Cls();
    if (map.hasFrame()) {
        Picture1.Circle(0.0, 0.0, MapRadius * outerCircleFactor);
        Picture1.Circle(0.0, 0.0, MapRadius);
    }
    FillRegion(centrePixel, centrePixel, style.land, Picture1);

    Coastline coastline(Picture1, map, listener);
    Picture1.LineWidth = coastWidth(Picture1.resolution());
    coastline.DrawCoastline(data.coastline);
    coastline.SealAntipodeRing();
    Picture1.LineWidth = 1.0;
    MapPoint last = coastline.lastPoint();
    if (data.seeds)
        PaintWater(*data.seeds, data.seedRule, map, style.water, last, Picture1);

    last = pointOr(map.antarctica(), last);
    FillRegion(centrePixel + last.x / unitsPerPixel, centrePixel - last.y / unitsPerPixel, white,
               Picture1);
    end.reliefRefused =
        style.relief != nullptr &&
        !TopoOverlay(Picture1, *style.relief, map, style.reliefLand, last, listener, prompt);
    if (map.hasFrame())
        FillRegion(1.0, 1.0, outerGrey, Picture1);
    return end;
}

} // namespace tovrel
