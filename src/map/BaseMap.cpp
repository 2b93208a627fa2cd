#include "map/BaseMap.h"

#include "map/CoastData.h"
#include "map/Coastline.h"
#include "map/TopoOverlay.h"
#include "platform/Numbers.h"

#include <variant>
#include <vector>

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

/// Makes the islands of the south polar land white, which lie apart from it in a fine coast: what
/// is still land beside their coasts. Where land looks like sea or like a line there is no telling
/// what a fill would reach.
void whitenPolarIslands(const std::vector<CoastRecord>& coastline, const BaseMapStyle& style,
                        PictureSurface& Picture1) {
    constexpr double northernmost = -60.0;
    constexpr int reach = 3; // pixels, over a line of any resolution
    if (style.land == style.water || style.land == Picture1.ForeColor)
        return;
    for (const CoastRecord& record : coastline) {
        const EarthPlace place = placeOf(record);
        if (place.latitude > northernmost)
            continue;
        const MapPosition position =
            style.map->linePoint(place.latitude, place.longitude, MapLine::Coast);
        const auto* const point = std::get_if<MapPoint>(&position);
        if (point == nullptr)
            continue;
        const int column = roundToInt(Picture1.pixelX(point->x));
        const int row = roundToInt(Picture1.pixelY(point->y));
        for (int y = row - reach; y <= row + reach; ++y) {
            for (int x = column - reach; x <= column + reach; ++x) {
                if (Picture1.GetPixel(x, y) == style.land)
                    Picture1.ExtFloodFill(x, y, white);
            }
        }
    }
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
    if (data.seedRule == SeedRule::InPlace)
        whitenPolarIslands(data.coastline, style, Picture1);
    end.reliefRefused =
        style.relief != nullptr &&
        !TopoOverlay(Picture1, *style.relief, map, style.reliefLand, last, listener, prompt);
    if (map.hasFrame())
        FillRegion(1.0, 1.0, outerGrey, Picture1);
    return end;
}

} // namespace tovrel
