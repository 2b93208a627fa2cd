#include "map/AzimuthalMap.h"

#include "platform/ByteText.h"
#include "platform/Numbers.h"

#include <cmath>

namespace tovrel {

namespace {

/// A text that is a number from its first to its last character, blanks apart.
std::optional<double> exactNumber(std::string_view text) {
    text = trimBlanks(text);
    const bool numeric = text.find_first_not_of("+-.0123456789eE") == std::string_view::npos;
    return numeric ? leadingNumber(text) : std::nullopt;
}

} // namespace

AzimuthalMap::AzimuthalMap(float HomeLatitude, float HomeLongitude)
    : home_{toSingle(HomeLatitude * radiansPerDegree), toSingle(HomeLongitude * radiansPerDegree)},
      greatCircle_(home_) {}

MapPosition AzimuthalMap::position(float latitude, float longitude) const {
    return greatCircle_.ProjectAzimuthal(latitude, longitude);
}

std::optional<EarthPlace> AzimuthalMap::placeAt(MapPoint point) const {
    if (std::hypot(point.x, point.y) >= MapRadius)
        return std::nullopt;
    return greatCircle_.placeAt(point);
}

MapPosition AzimuthalMap::linePoint(double latitude, double longitude, MapLine line) const {
    if (line == MapLine::CoastToRim) {
        const MapPosition shown = position(toSingle(latitude), toSingle(longitude));
        if (!std::holds_alternative<CutOff>(shown))
            return shown;
        const MapPoint beyond = greatCircle_.exactPoint({latitude, longitude});
        return std::hypot(beyond.x, beyond.y) <= MapRadius ? MapPosition(beyond) : shown;
    }
    return greatCircle_.ProjectAzimuthal(toSingle(latitude), toSingle(longitude),
                                         line == MapLine::Graticule
                                             ? GreatCircle::graticuleAntipodeLimit
                                             : GreatCircle::AntipodeLimit);
}

std::optional<MapPosition> AzimuthalMap::seed(std::string_view latitude,
                                              std::string_view longitude) const {
    const std::optional<double> north = exactNumber(latitude);
    const std::optional<double> east = exactNumber(longitude);
    if (!north || !east)
        return std::nullopt;
    return position(toSingle(*north), toSingle(*east));
}

MapPosition AzimuthalMap::antarctica() const { return position(-80.0F, 40.0F); }

} // namespace tovrel
