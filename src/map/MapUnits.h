#pragma once

namespace tovrel {

/// Half width of the coordinate space of every map picture, and its whole width.
inline constexpr double mapEdge = 22000.0;
inline constexpr double mapWidth = 44000.0;

/// Half width of the inner circle of the azimuthal map: map units, there kilometres from home.
inline constexpr int MapRadius = 20000;

/// Factor from MapRadius to the outer circle, which is also the length of the compass ticks.
inline constexpr double outerCircleFactor = 1.02;

/// A position in map units, -22000 to 22000 on the surface; it may lie off it.
struct MapPoint {
    double x = 0.0; ///< to the right
    double y = 0.0; ///< upward
};

/// The shape of a map and of a window that is free to take it.
struct MapShape {
    int widthPerHeight = 1;   ///< of the map
    bool ofClientArea = true; ///< the window has it below its menu; else with frame and all

    /// Height of the window beside what has the shape, of the height of title bar, frame and menu.
    int beside(int chrome) const { return ofClientArea ? chrome : 0; }
};

} // namespace tovrel
