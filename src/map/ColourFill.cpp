#include "map/ColourFill.h"

#include "platform/Numbers.h"

#include <cmath>
#include <optional>

namespace tovrel {

namespace {

// The seeds are scaled by their own rule, a little tighter than that of the other fills and of the
// drawing. The published seed files were chosen for it: a seed near a coast relies on the shift.
constexpr double seedUnitsPerPixel = 66.66;
constexpr double seedCentre = 333.33;

} // namespace

void FillRegion(double x, double y, Colour colour, PictureSurface& surface) {
    if (!std::isfinite(x) || !std::isfinite(y))
        return;
    surface.ExtFloodFill(roundToInt(x * surface.resolution()), roundToInt(y * surface.resolution()),
                         colour);
}

void PaintWater(std::string_view seeds, SeedRule rule, const WorldMap& map, Colour water,
                MapPoint& last, PictureSurface& surface) {
    while (!seeds.empty()) {
        const std::size_t end = std::min(seeds.find_first_of("\r\n"), seeds.size());
        const std::string_view line = seeds.substr(0, end);
        seeds.remove_prefix(std::min(end + 1, seeds.size()));
        const std::size_t comma = line.find(',');
        if (comma == std::string_view::npos)
            continue;
        const std::string_view latitude = line.substr(0, comma);
        const std::string_view longitude = line.substr(comma + 1);
        if (rule == SeedRule::InPlace) {
            const MapPosition place =
                map.position(toSingle(numberValue(latitude)), toSingle(numberValue(longitude)));
            if (const auto* const point = std::get_if<MapPoint>(&place)) {
                last = *point;
                surface.ExtFloodFill(roundToInt(surface.pixelX(last.x)),
                                     roundToInt(surface.pixelY(last.y)), water);
            }
            continue;
        }
        const std::optional<MapPosition> seed = map.seed(latitude, longitude);
        if (!seed)
            return;
        // A seed that is cut off leaves the position of the one before, which fills nothing new.
        last = pointOr(*seed, last);
        FillRegion(last.x / seedUnitsPerPixel + seedCentre, seedCentre - last.y / seedUnitsPerPixel,
                   water, surface);
    }
}

} // namespace tovrel
