#include "map/ColourFill.h"

#include "platform/ByteText.h"
#include "platform/Numbers.h"

#include <cmath>
#include <optional>

namespace tovrel {

namespace {

// The seeds are scaled by their own rule, a little tighter than that of the other fills and of the
// drawing. The published seed files were chosen for it: a seed near a coast relies on the shift.
constexpr double seedUnitsPerPixel = 66.66;
constexpr double seedCentre = 333.33;
constexpr double seedUnitsPerLongitude = 120.0;

/// A text that is a number from its first to its last character, blanks apart.
std::optional<double> wholeNumber(std::string_view text) {
    text = trimBlanks(text);
    const bool numeric = text.find_first_not_of("+-.0123456789eE") == std::string_view::npos;
    return numeric ? leadingNumber(text) : std::nullopt;
}

/// Sets greatCircle's ProjX and ProjY to a seed's position.
/// @return false when the azimuthal map can't take the line
bool projectSeed(std::string_view latitude, std::string_view longitude, Projection projection,
                 GreatCircle& greatCircle) {
    if (projection == Projection::Azimuthal) {
        const std::optional<double> lat = wholeNumber(latitude);
        const std::optional<double> lon = wholeNumber(longitude);
        if (!lat || !lon)
            return false;
        // A seed that is cut off leaves the position of the one before, which fills nothing new.
        int mode = 0;
        greatCircle.ProjectAzimuthal(toSingle(*lat), toSingle(*lon), mode);
        return true;
    }
    greatCircle.ProjY = numberValue(latitude) * millerUnitsPerLatitude;
    greatCircle.ProjX = numberValue(longitude) * seedUnitsPerLongitude;
    if (greatCircle.ProjX > mapEdge)
        greatCircle.ProjX -= mapWidth;
    return true;
}

} // namespace

void FillRegion(double x, double y, Colour colour, PictureSurface& surface) {
    if (!std::isfinite(x) || !std::isfinite(y))
        return;
    surface.ExtFloodFill(roundToInt(x), roundToInt(y), colour);
}

void PaintWater(std::string_view seeds, Projection projection, Colour water,
                GreatCircle& greatCircle, PictureSurface& surface) {
    while (!seeds.empty()) {
        const std::size_t end = std::min(seeds.find_first_of("\r\n"), seeds.size());
        const std::string_view line = seeds.substr(0, end);
        seeds.remove_prefix(std::min(end + 1, seeds.size()));
        const std::size_t comma = line.find(',');
        if (comma == std::string_view::npos)
            continue;
        if (!projectSeed(line.substr(0, comma), line.substr(comma + 1), projection, greatCircle)) {
            return;
        }
        FillRegion(greatCircle.ProjX / seedUnitsPerPixel + seedCentre,
                   seedCentre - greatCircle.ProjY / seedUnitsPerPixel, water, surface);
    }
}

} // namespace tovrel
