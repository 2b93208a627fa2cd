#pragma once

#include "map/MapUnits.h"
#include "platform/Projection.h"

#include <memory>
#include <optional>
#include <string_view>
#include <variant>

namespace tovrel {

/// What lies too near the antipode of a map's centre. A stroke that comes here ends.
struct CutOff {};

/// What a map has no place for, without an end of the stroke.
struct NotShown {};

/// What becomes of a place of the earth on a map.
using MapPosition = std::variant<MapPoint, CutOff, NotShown>;

/// The point of a position; `otherwise` of one that is not shown. For those who go on with the
/// last point that was.
inline MapPoint pointOr(const MapPosition& position, MapPoint otherwise) {
    const auto* const point = std::get_if<MapPoint>(&position);
    return point != nullptr ? *point : otherwise;
}

/// A place of the earth in degrees, north and east positive, longitudes from -180 to 180.
struct EarthPlace {
    double latitude = 0.0;
    double longitude = 0.0;
};

/// The lines that are drawn point by point.
enum class MapLine {
    Coast,
    CoastToRim, ///< goes on where the other is cut off near the antipode, to the edge of the map
    Graticule
};

/// Where a stroke that runs over a side edge of the map leaves it and comes in again, X in map
/// units, beyond the surface.
struct EdgeCrossing {
    double leavesAt = 0.0; ///< at the Y of the point before
    double entersAt = 0.0; ///< at the Y of the next point
};

/// The home station in the units of a map: radians on the azimuthal map, map units on the Miller
/// map.
struct HomePosition {
    float HomeY = 0.0F; ///< north positive
    float HomeX = 0.0F; ///< east positive
};

/// A map of the world, as a rule from places to positions. It has no state: where lines are drawn
/// the pen keeps it, and those who go on with the last point keep that themselves.
///
/// Latitudes and longitudes are degrees, north and east positive; longitudes may pass 180.
class WorldMap {
public:
    virtual ~WorldMap() = default;

    /// The shape of the map, wherever the home station is.
    virtual MapShape shape() const = 0;

    /// Whether the map ends in circles, with room for the compass outside.
    virtual bool hasFrame() const = 0;

    /// Whether all positions depend on the home station.
    virtual bool centredOnHome() const = 0;

    /// Whether a world picture with a pixel for equal steps of latitude and longitude, stretched
    /// over the whole surface, lies on the map as it is.
    virtual bool isPlateCarree() const = 0;

    /// The home station, for its mark. On the azimuthal map that is in radians, a few map units
    /// from the centre, which is within a pixel of it.
    virtual HomePosition home() const = 0;

    /// Where the lines to contacts begin.
    virtual MapPoint lineStart() const = 0;

    /// Position of a contact.
    virtual MapPosition position(float latitude, float longitude) const = 0;

    /// The way back: the place that is shown at a point.
    /// @return nothing outside the map
    virtual std::optional<EarthPlace> placeAt(MapPoint point) const = 0;

    /// Position of a point of a line.
    virtual MapPosition linePoint(double latitude, double longitude, MapLine line) const = 0;

    /// How the stroke from a point to the next one goes over an edge; nothing where it does not.
    virtual std::optional<EdgeCrossing> crossing(MapPoint from, MapPoint to,
                                                 MapLine line) const = 0;

    /// Position of a seed of the sea, from its two texts.
    /// @return nothing for texts that the map can't take, which end the painting
    virtual std::optional<MapPosition> seed(std::string_view latitude,
                                            std::string_view longitude) const = 0;

    /// A place in the land round the south pole, for a fill.
    virtual MapPosition antarctica() const = 0;
};

/// The map of a projection for a home station.
/// @param HomeLatitude, HomeLongitude degrees
std::unique_ptr<const WorldMap> worldMap(Projection projection, float HomeLatitude,
                                         float HomeLongitude);

} // namespace tovrel
