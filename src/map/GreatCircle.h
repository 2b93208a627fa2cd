#pragma once

#include "map/WorldMap.h"

#include <variant>

namespace tovrel {

/// Degrees to radians. The textbook value is 0.01745329252: with it maps drawn by earlier versions
/// and cached on disk would no longer match the marks by a pixel at the rim.
inline constexpr double radiansPerDegree = 0.01745332925;

/// The arc from home to a place.
struct Arc {
    float distance = 0.0F; ///< kilometres
    float Bearing = 0.0F;  ///< radians, clockwise from north
};

/// The azimuthal equidistant projection round the home station. Single-precision steps are part of
/// the result. No arithmetic fault leaves it: a step that would divide by zero is skipped, so that
/// home itself lands on (0, 0).
///
/// For a home beyond 88 degrees of latitude the bearing is worked out in double precision by
/// another formula: that of the others folds the map over at a pole. At a pole itself the home
/// counts as lying on longitude 0, whatever its longitude: 0 degrees point up from the south pole,
/// 180 from the north pole.
class GreatCircle {
public:
    /// Cosines of the distance from home at which places are cut off: 2.56 degrees of arc from the
    /// antipode, and 9.94 degrees for the graticule, whose lines crowd there.
    static constexpr float AntipodeLimit = -0.999F;
    static constexpr float graticuleAntipodeLimit = -0.985F;

    /// @param home radians
    explicit GreatCircle(HomePosition home);

    /// The arc to a place in degrees.
    std::variant<Arc, CutOff, NotShown> arcTo(float latitude, float longitude,
                                              float limit = AntipodeLimit) const;

    /// Position of a place in degrees.
    MapPosition ProjectAzimuthal(float latitude, float longitude,
                                 float limit = AntipodeLimit) const;

    /// Position of any place in double precision, without a cut.
    MapPoint exactPoint(EarthPlace place) const;

    /// The place at a position, whose distance from (0, 0) is at most half the earth's
    /// circumference.
    EarthPlace placeAt(MapPoint point) const;

private:
    double homeX_;
    double sinHomeY_;
    double cosHomeY_;
    bool isNearPole_;
};

} // namespace tovrel
