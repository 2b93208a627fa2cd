#pragma once

#include "map/WorldMap.h"

namespace tovrel {

/// The cylindrical map, linear in latitude, twice as wide as high.
class MillerMap : public WorldMap {
public:
    /// @param HomeLatitude, HomeLongitude degrees
    MillerMap(float HomeLatitude, float HomeLongitude);

    MapShape shape() const override { return {.widthPerHeight = 2, .ofClientArea = false}; }
    bool hasFrame() const override { return false; }
    bool centredOnHome() const override { return false; }
    bool isPlateCarree() const override { return true; }
    HomePosition home() const override { return home_; }
    MapPoint lineStart() const override { return {home_.HomeX, home_.HomeY}; }

    /// In single precision, longitudes past the right edge wrapped once.
    MapPosition position(float latitude, float longitude) const override;

    std::optional<EarthPlace> placeAt(MapPoint point) const override;

    /// In double precision; the right edge itself is wrapped, too.
    MapPosition linePoint(double latitude, double longitude, MapLine line) const override;

    /// A coast that jumps by more than half the map has gone over the date line. The graticule is
    /// drawn from edge to edge as it comes.
    std::optional<EdgeCrossing> crossing(MapPoint from, MapPoint to, MapLine line) const override;

    /// A text that begins with no number counts as 0.
    std::optional<MapPosition> seed(std::string_view latitude,
                                    std::string_view longitude) const override;
    MapPosition antarctica() const override;

private:
    HomePosition home_; ///< map units
};

} // namespace tovrel
