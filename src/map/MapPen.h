#pragma once

#include "map/PictureSurface.h"
#include "map/WorldMap.h"

namespace tovrel {

/// Draws strokes on a map, from place to place: what is cut off ends a stroke, and one that goes
/// over an edge comes in at the other.
class MapPen {
public:
    /// A pen that is down. All have to outlive it.
    MapPen(PictureSurface& surface, const WorldMap& map, MapLine line, Colour colour)
        : surface_(surface), map_(map), line_(line), colour_(colour) {}

    /// The next place begins a stroke.
    void lift() { PenUp_ = true; }

    /// Goes on to a place in degrees.
    /// @return where that is; only for a point something was drawn
    MapPosition moveTo(double latitude, double longitude);

    /// The last point that was shown.
    MapPoint point() const { return point_; }

private:
    void draw(MapPoint to);

    PictureSurface& surface_;
    const WorldMap& map_;
    MapLine line_;
    Colour colour_;
    MapPoint point_;
    bool PenUp_ = false;
};

} // namespace tovrel
