#include "map/GreatCircle.h"

#include "platform/Numbers.h"

#include <cmath>

namespace tovrel {

namespace {

// The program's own pi, a little large; with radiansPerDegree it belongs to every map ever drawn.
constexpr double pi = 3.141599265;
constexpr double twoPi = 6.28319853;
constexpr double earthRadius = 6371.29; // kilometres
constexpr float bearingClamp = 0.999999F;
constexpr float AntipodeLimit = -0.999F;          // 2.56 degrees of arc from the antipode
constexpr float graticuleAntipodeLimit = -0.985F; // 9.94 degrees
constexpr int modeGraticule = -3;

double arcCosine(double c) { return pi / 2 - std::atan(c / std::sqrt(1.0 - c * c)); }

} // namespace

HomePosition homePosition(Projection projection, float latitude, float longitude) {
    if (projection == Projection::Azimuthal) {
        return {toSingle(latitude * radiansPerDegree), toSingle(longitude * radiansPerDegree)};
    }
    const MapPoint home = projectMiller(latitude, longitude);
    return {static_cast<float>(home.y), static_cast<float>(home.x)};
}

MapPoint projectMiller(float latitude, float longitude) {
    const float y = toSingle(latitude * millerUnitsPerLatitude);
    float x = toSingle(longitude * millerUnitsPerLongitude);
    if (x > mapEdge)
        x = toSingle(x - mapWidth);
    return {x, y};
}

GreatCircle::GreatCircle(HomePosition home)
    : homeX_(home.HomeX), sinHomeY_(std::sin(static_cast<double>(home.HomeY))),
      cosHomeY_(std::cos(static_cast<double>(home.HomeY))) {}

void GreatCircle::ProjectAzimuthal(float latitude, float longitude, int& mode) {
    cutAtAntipode_ = false;
    const double p = toSingle(latitude * radiansPerDegree);
    const double d = toSingle(longitude * radiansPerDegree) - homeX_;
    const double sinP = std::sin(p);
    const double c = toSingle(sinHomeY_ * sinP + cosHomeY_ * std::cos(p) * std::cos(d));
    if (c > 1.0) {
        mode = modeHidden;
        return;
    }
    if (c <= (mode == modeGraticule ? graticuleAntipodeLimit : AntipodeLimit)) {
        PenUp = 1;
        cutAtAntipode_ = true;
        mode = modeHidden;
        return;
    }
    // With C exactly 1, at home, both divisions would fail, and A and T stay 0.
    const double a = c < 1.0 ? arcCosine(c) : 0.0;
    const float r = toSingle(a * earthRadius);
    const double divisor = cosHomeY_ * std::sin(a);
    const float t = divisor != 0.0 ? toSingle((sinP - sinHomeY_ * std::cos(a)) / divisor) : 0.0F;

    if (t > bearingClamp) {
        Bearing = 0.0F;
    } else if (t < -bearingClamp) {
        Bearing = toSingle(pi);
    } else {
        Bearing = toSingle(arcCosine(t));
    }
    if (std::sin(d) < 0.0)
        Bearing = toSingle(twoPi - Bearing);
    ProjY = std::cos(static_cast<double>(Bearing)) * r;
    ProjX = std::sin(static_cast<double>(Bearing)) * r;
}

ContactProjector::ContactProjector(Projection projection, float homeLatitude, float homeLongitude)
    : projection_(projection),
      greatCircle_(homePosition(Projection::Azimuthal, homeLatitude, homeLongitude)) {}

bool ContactProjector::project(float latitude, float longitude, MapPoint& point) {
    if (projection_ == Projection::Miller) {
        point = projectMiller(latitude, longitude);
        return true;
    }
    int mode = 0;
    greatCircle_.ProjectAzimuthal(latitude, longitude, mode);
    if (mode >= modeHidden)
        return false;
    point = {greatCircle_.ProjX, greatCircle_.ProjY};
    return true;
}

} // namespace tovrel
