#pragma once

#include "platform/Projection.h"

namespace tovrel {

/// Half width of the inner circle of the azimuthal map: map units, there kilometres from home.
inline constexpr int MapRadius = 20000;

/// Factor from MapRadius to the outer circle, which is also the length of the compass ticks.
inline constexpr double outerCircleFactor = 1.02;

/// Degrees to radians. The textbook value is 0.01745329252: with it maps drawn by earlier versions
/// and cached on disk would no longer match the marks by a pixel at the rim.
inline constexpr double radiansPerDegree = 0.01745332925;

/// Map units of the cylindrical map for a degree of latitude and of longitude.
inline constexpr double millerUnitsPerLatitude = 240.0;
inline constexpr double millerUnitsPerLongitude = 122.0;

/// Half width of the coordinate space of every map picture, and its whole width, by which a
/// longitude past the right edge is wrapped.
inline constexpr double mapEdge = 22000.0;
inline constexpr double mapWidth = 44000.0;

/// Value that ProjectAzimuthal gives its mode argument for a point that can't be shown.
inline constexpr int modeHidden = 999;

/// A position in map units, X to the right, Y upward, both -22000 to 22000 on the surface.
struct MapPoint {
    double x = 0.0;
    double y = 0.0;
};

/// The home station in the units of a map: radians on the azimuthal map, map units on the Miller
/// map. Derived where it is needed, so that a switch of map can't leave the other one's units.
struct HomePosition {
    float HomeY = 0.0F;
    float HomeX = 0.0F;
};

/// @param latitude, longitude degrees, north and east positive
HomePosition homePosition(Projection projection, float latitude, float longitude);

/// Position on the Miller map, in single precision, longitudes past 180 wrapped once.
/// The map is linear in latitude.
MapPoint projectMiller(float latitude, float longitude);

/// The azimuthal equidistant projection round the home station, with the state that a run of points
/// through it carries on.
class GreatCircle {
public:
    /// @param home radians, as homePosition() gives them for the azimuthal map
    explicit GreatCircle(HomePosition home);

    /// Projects a point in degrees. Sets ProjX, ProjY and Bearing and keeps `mode`; a point that
    /// can't be shown sets `mode` to modeHidden and leaves them as they were. One that is cut off
    /// near the antipode also raises PenUp.
    ///
    /// Single-precision steps are part of the result. No arithmetic fault leaves the call: a step
    /// that would divide by zero is skipped, so that home itself lands on (0, 0).
    /// @param mode 0, or -3 for the wider cut-off of the graticule
    void ProjectAzimuthal(float latitude, float longitude, int& mode);

    double ProjX = 0.0; ///< last position shown, map units
    double ProjY = 0.0;
    float Bearing = 0.0F; ///< of the last position shown, radians clockwise from north
    int PenUp = 0;        ///< 1: the next point drawn starts a new stroke

    /// Whether the last point was cut off near the antipode.
    bool cutAtAntipode() const { return cutAtAntipode_; }

private:
    double homeX_;
    double sinHomeY_;
    double cosHomeY_;
    bool cutAtAntipode_ = false;
};

/// The map position of a contact on either map.
class ContactProjector {
public:
    ContactProjector(Projection projection, float homeLatitude, float homeLongitude);

    /// Projects a contact in degrees into `point`.
    /// @return false for a contact that can't be shown, within the cut-off round the antipode
    bool project(float latitude, float longitude, MapPoint& point);

private:
    Projection projection_;
    GreatCircle greatCircle_;
};

} // namespace tovrel
