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

/// Pixels of some part of a map.
struct Share {
    int wrong = 0;
    int all = 0;

    double percent() const { return all > 0 ? 100.0 * wrong / all : 0.0; }
};

/// True sea and true land of some part of a map. Wrong pixels are counted where the true coast is
/// more than a pixel away and the map is not black.
struct SeaAndLand {
    Share sea;
    Share land;
};

/// How a base map compares with the world.
struct MapResult {
    SeaAndLand shown;          ///< as far from home as points are shown
    SeaAndLand toCircle;       ///< as far as the inner circle; all of a map that has none
    Share black;               ///< of the whole picture, the circles among them
    std::vector<Flood> floods; ///< as far as points are shown
};

/// How far from home the azimuthal map shows points, in kilometres. In the ring from there to the
/// inner circle no coast is drawn, and the lines that seal it decide the colour.
inline constexpr double shownReach = 19731.0;

/// Compares a finished base map, drawn in the style's colours, with the world.
/// @param home in degrees, as the azimuthal map has it in single precision
MapResult compareMap(const PictureSurface& map, const BaseMapStyle& style, Place home,
                     const TrueWorld& world);

} // namespace tovrel
