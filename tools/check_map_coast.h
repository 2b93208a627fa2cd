#pragma once

#include "check_map_world.h"

#include "map/Coastline.h"

#include <vector>

namespace tovrel {

/// How the lines of a coastline database compare with the true coast.
struct CoastResult {
    double kilometres = 0.0;  ///< of all lines
    double nearPercent = 0.0; ///< of its points, one each 5 km, within 25 km of the true coast
    int islands = 0;          ///< true ones over 2,000 square kilometres, continents among them
    int islandsFound = 0;     ///< those most of which is land here, too
};

CoastResult compareCoast(const std::vector<CoastRecord>& records, const TrueWorld& world);

} // namespace tovrel
