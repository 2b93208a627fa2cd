#pragma once

#include "check_map_world.h"

#include "map/BaseMap.h"

#include <vector>

namespace tovrel {

/// A connected region of one map that has the wrong colour and is too large to be overlooked.
struct Flood {
    bool isLand = false; ///< true land painted as water; else sea that is not
    int pixels = 0;
    double squareKilometres = 0.0;
    Place place; ///< of its first pixel
};

/// How a base map compares with the world. Wrong pixels are counted where the true coast is more
/// than a pixel away and the map is not black.
struct MapResult {
    int seaPixels = 0; ///< true sea within the map
    int landPixels = 0;
    int wrongSea = 0;
    int wrongLand = 0;
    int blackPixels = 0; ///< of the whole picture, the circles among them
    int allPixels = 0;
    std::vector<Flood> floods;

    double wrongSeaPercent() const { return percent(wrongSea, seaPixels); }
    double wrongLandPercent() const { return percent(wrongLand, landPixels); }
    double blackPercent() const { return percent(blackPixels, allPixels); }

private:
    static double percent(int part, int whole) { return whole > 0 ? 100.0 * part / whole : 0.0; }
};

/// How far from home the azimuthal map shows points, in kilometres. In the ring from there to the
/// inner circle no coast is drawn, and the lines that seal it decide the colour.
inline constexpr double shownReach = 19731.0;

/// Compares a finished base map, drawn in the style's colours, with the world.
/// @param home in degrees, as the azimuthal map has it in single precision
/// @param reach kilometres from home up to which pixels of the azimuthal map count
MapResult compareMap(const PictureSurface& map, const BaseMapStyle& style, Place home,
                     const TrueWorld& world, double reach);

} // namespace tovrel
