#include "map/MapPen.h"

namespace tovrel {

MapPosition MapPen::moveTo(double latitude, double longitude) {
    const MapPosition to = map_.linePoint(latitude, longitude, line_);
    if (std::holds_alternative<CutOff>(to))
        lift();
    const auto* const point = std::get_if<MapPoint>(&to);
    if (point == nullptr)
        return to;
    const std::optional<EdgeCrossing> crossing =
        PenUp_ ? std::nullopt : map_.crossing(point_, *point, line_);
    if (crossing) {
        // The stroke runs off the near edge at its old latitude and starts again at the far one.
        draw({crossing->leavesAt, point_.y});
        lift();
    }
    draw({crossing ? crossing->entersAt : point->x, point->y});
    return to;
}

void MapPen::draw(MapPoint to) {
    point_ = to;
    if (PenUp_) {
        surface_.CurrentX = to.x;
        surface_.CurrentY = to.y;
    }
    surface_.Line(to.x, to.y, colour_);
    PenUp_ = false;
}

} // namespace tovrel
