#include "map/WorldMap.h"

#include "map/AzimuthalMap.h"
#include "map/MillerMap.h"

namespace tovrel {

std::unique_ptr<const WorldMap> worldMap(Projection projection, float HomeLatitude,
                                         float HomeLongitude) {
    if (projection == Projection::Azimuthal)
        return std::make_unique<AzimuthalMap>(HomeLatitude, HomeLongitude);
    return std::make_unique<MillerMap>(HomeLatitude, HomeLongitude);
}

} // namespace tovrel
