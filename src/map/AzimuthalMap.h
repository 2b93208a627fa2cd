#pragma once

#include "map/GreatCircle.h"

namespace tovrel {

/// The azimuthal equidistant map: home in the middle, true distances and bearings from there, and
/// the antipode, as a rim, cut off.
class AzimuthalMap : public WorldMap {
public:
    /// @param HomeLatitude, HomeLongitude degrees
    AzimuthalMap(float HomeLatitude, float HomeLongitude);

    MapShape shape() const override { return {.widthPerHeight = 1, .ofClientArea = true}; }
    bool hasFrame() const override { return true; }
    bool centredOnHome() const override { return true; }
    bool isPlateCarree() const override { return false; }
    HomePosition home() const override { return home_; }
    MapPoint lineStart() const override { return {}; }
    MapPosition position(float latitude, float longitude) const override;
    std::optional<EarthPlace> placeAt(MapPoint point) const override;
    MapPosition linePoint(double latitude, double longitude, MapLine line) const override;
    std::optional<EdgeCrossing> crossing(MapPoint, MapPoint, MapLine) const override { return {}; }

    /// Both texts have to be numbers from end to end.
    std::optional<MapPosition> seed(std::string_view latitude,
                                    std::string_view longitude) const override;
    MapPosition antarctica() const override;

private:
    HomePosition home_; ///< radians
    GreatCircle greatCircle_;
};

} // namespace tovrel
