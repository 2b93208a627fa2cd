#include "map/GreatCircle.h"

#include "platform/Numbers.h"
#include "platform/VectorState.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tovrel {

namespace {

// The program's own pi, a little large; with radiansPerDegree it belongs to every map ever drawn.
constexpr double pi = 3.141599265;
constexpr double twoPi = 6.28319853;
constexpr double earthRadius = 6371.29; // kilometres
constexpr float bearingClamp = 0.999999F;

// Radians as HomePosition holds them: single.
constexpr auto nearPole = static_cast<float>(88.0F * radiansPerDegree);
constexpr auto pole = static_cast<float>(90.0F * radiansPerDegree);

double arcCosine(double c) { return pi / 2 - std::atan(c / std::sqrt(1.0 - c * c)); }

} // namespace

GreatCircle::GreatCircle(HomePosition home)
    : homeX_(std::abs(home.HomeY) == pole ? 0.0F : home.HomeX),
      sinHomeY_(std::sin(static_cast<double>(home.HomeY))),
      cosHomeY_(std::cos(static_cast<double>(home.HomeY))),
      isNearPole_(std::abs(home.HomeY) > nearPole) {}

std::variant<Arc, CutOff, NotShown> GreatCircle::arcTo(float latitude, float longitude,
                                                       float limit) const {
    clearUpperHalves();
    const double p = toSingle(latitude * radiansPerDegree);
    const double d = toSingle(longitude * radiansPerDegree) - homeX_;
    const double sinP = std::sin(p);
    const double cosP = std::cos(p);
    const double c = toSingle(sinHomeY_ * sinP + cosHomeY_ * cosP * std::cos(d));
    if (c > 1.0)
        return NotShown();
    if (c <= limit)
        return CutOff();
    // With C exactly 1, at home, both divisions would fail, and A and T stay 0.
    const double a = c < 1.0 ? arcCosine(c) : 0.0;
    Arc arc{.distance = toSingle(a * earthRadius)};
    if (isNearPole_) {
        // The divisor below is next to nothing here, and with it go the digits of a single.
        const double bearing =
            std::atan2(cosP * std::sin(d), cosHomeY_ * sinP - sinHomeY_ * cosP * std::cos(d));
        arc.Bearing = toSingle(bearing < 0.0 ? bearing + 2.0 * std::numbers::pi : bearing);
        return arc;
    }
    const double divisor = cosHomeY_ * std::sin(a);
    const float t = divisor != 0.0 ? toSingle((sinP - sinHomeY_ * std::cos(a)) / divisor) : 0.0F;

    if (t > bearingClamp) {
        arc.Bearing = 0.0F;
    } else if (t < -bearingClamp) {
        arc.Bearing = toSingle(pi);
    } else {
        arc.Bearing = toSingle(arcCosine(t));
    }
    if (std::sin(d) < 0.0)
        arc.Bearing = toSingle(twoPi - arc.Bearing);
    return arc;
}

MapPoint GreatCircle::exactPoint(EarthPlace place) const {
    clearUpperHalves();
    const double p = place.latitude * radiansPerDegree;
    const double d = place.longitude * radiansPerDegree - homeX_;
    const double east = std::cos(p) * std::sin(d);
    const double north = cosHomeY_ * std::sin(p) - sinHomeY_ * std::cos(p) * std::cos(d);
    const double along = sinHomeY_ * std::sin(p) + cosHomeY_ * std::cos(p) * std::cos(d);
    const double across = std::hypot(east, north);
    const double stretch = across > 0.0 ? std::atan2(across, along) * earthRadius / across : 0.0;
    return {east * stretch, north * stretch};
}

EarthPlace GreatCircle::placeAt(MapPoint point) const {
    clearUpperHalves();
    constexpr double degree = std::numbers::pi / 180.0;
    const double distance = std::hypot(point.x, point.y);
    if (distance == 0.0)
        return {std::atan2(sinHomeY_, cosHomeY_) / degree, homeX_ / degree};
    const double arc = distance / earthRadius;
    const double sinArc = std::sin(arc);
    const double cosArc = std::cos(arc);
    const double east = sinArc * point.x / distance;
    const double north = sinArc * point.y / distance;
    const double sine = std::clamp(sinHomeY_ * cosArc + cosHomeY_ * north, -1.0, 1.0);
    const double turn = std::atan2(east, cosHomeY_ * cosArc - sinHomeY_ * north);
    return {std::asin(sine) / degree, std::remainder((homeX_ + turn) / degree, 360.0)};
}

MapPosition GreatCircle::ProjectAzimuthal(float latitude, float longitude, float limit) const {
    const std::variant<Arc, CutOff, NotShown> found = arcTo(latitude, longitude, limit);
    if (const auto* const arc = std::get_if<Arc>(&found)) {
        const double bearing = arc->Bearing;
        return MapPoint{std::sin(bearing) * arc->distance, std::cos(bearing) * arc->distance};
    }
    return std::holds_alternative<CutOff>(found) ? MapPosition(CutOff()) : MapPosition(NotShown());
}

} // namespace tovrel
