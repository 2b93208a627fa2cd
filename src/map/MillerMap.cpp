#include "map/MillerMap.h"

#include "platform/Numbers.h"

#include <cmath>

namespace tovrel {

namespace {

constexpr double unitsPerLatitude = 240.0;
constexpr double unitsPerLongitude = 122.0;

// The published seed files were chosen for their own scale: a seed near a coast relies on it.
constexpr double seedUnitsPerLongitude = 120.0;

MapPoint contactPoint(float latitude, float longitude) {
    const float y = toSingle(latitude * unitsPerLatitude);
    float x = toSingle(longitude * unitsPerLongitude);
    if (x > mapEdge)
        x = toSingle(x - mapWidth);
    return {x, y};
}

} // namespace

MillerMap::MillerMap(float HomeLatitude, float HomeLongitude) {
    const MapPoint home = contactPoint(HomeLatitude, HomeLongitude);
    home_ = {static_cast<float>(home.y), static_cast<float>(home.x)};
}

MapPosition MillerMap::position(float latitude, float longitude) const {
    return contactPoint(latitude, longitude);
}

std::optional<EarthPlace> MillerMap::placeAt(MapPoint point) const {
    const EarthPlace place{point.y / unitsPerLatitude, point.x / unitsPerLongitude};
    if (std::abs(place.latitude) > 90.0 || std::abs(place.longitude) > 180.0)
        return std::nullopt;
    return place;
}

MapPosition MillerMap::linePoint(double latitude, double longitude, MapLine /*line*/) const {
    const double x = longitude * unitsPerLongitude;
    return MapPoint{x >= mapEdge ? x - mapWidth : x, latitude * unitsPerLatitude};
}

std::optional<EdgeCrossing> MillerMap::crossing(MapPoint from, MapPoint to, MapLine line) const {
    constexpr double beyondEdge = 23000.0;
    const int before = roundToInt(from.x);
    if (line == MapLine::Graticule || std::abs(to.x - before) <= mapEdge)
        return std::nullopt;
    return EdgeCrossing{.leavesAt = before > 0 ? beyondEdge : -beyondEdge,
                        .entersAt = roundToInt(to.x) > 0 ? beyondEdge : -beyondEdge};
}

std::optional<MapPosition> MillerMap::seed(std::string_view latitude,
                                           std::string_view longitude) const {
    const double y = numberValue(latitude) * unitsPerLatitude;
    const double x = numberValue(longitude) * seedUnitsPerLongitude;
    return MapPoint{x > mapEdge ? x - mapWidth : x, y};
}

MapPosition MillerMap::antarctica() const { return MapPoint{0.0, -21582.0}; }

} // namespace tovrel
