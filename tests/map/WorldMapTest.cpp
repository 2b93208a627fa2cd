#include "map/WorldMap.h"

#include "map/GreatCircle.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace tovrel {
namespace {

GreatCircle centredOn(double latitude, double longitude) {
    return GreatCircle(
        worldMap(Projection::Azimuthal, static_cast<float>(latitude), static_cast<float>(longitude))
            ->home());
}

MapPosition project(const GreatCircle& circle, double latitude, double longitude) {
    return circle.ProjectAzimuthal(static_cast<float>(latitude), static_cast<float>(longitude));
}

TEST(GreatCircle, ProjectsToTheDigit) {
    // Worked out by hand from the formula with each step's precision.
    const struct {
        double homeLatitude, homeLongitude, latitude, longitude, x, y;
    } cases[] = {{40, -74, 51.5, 0, 4357.721489396, 3562.629075433},
                 {40, -74, -33.9, 151.2, -15925.638459071, -1387.596440805},
                 // Not exactly east: pi and the degree are not the textbook's.
                 {45, 0, 0, 90, 10008.035156223, 0.023423550},
                 {0, 180, 0, -179, 111.128501891, -0.000362541},
                 {40, -74, 39, -74, 1.867759298, -111.199899080},
                 {40, -74, 40, -75, -85.189679423, 0.478772289},
                 // Home at a pole: rounded to single it lies a little beyond, and bearings suffer.
                 {90, 0, 0, 90, -0.065299569, -10008.019531037},
                 {-90, 0, 10, 10, 0.0, 11120.042968750}};
    for (const auto& c : cases) {
        const MapPoint at = std::get<MapPoint>(
            project(centredOn(c.homeLatitude, c.homeLongitude), c.latitude, c.longitude));
        EXPECT_NEAR(at.x, c.x, 1e-6) << c.latitude << ", " << c.longitude;
        EXPECT_NEAR(at.y, c.y, 1e-6) << c.latitude << ", " << c.longitude;
    }
}

TEST(GreatCircle, PutsHomeAndItsNeighbourhoodInTheCentre) {
    for (const auto& [latitude, longitude] : {std::pair{40.0, -74.0}, {0, 0}, {45, 180}}) {
        for (const double off : {0.0, 0.0001, 0.01}) {
            const MapPosition at =
                project(centredOn(latitude, longitude), latitude + off, longitude);
            // The cosine of the distance rounds to 1, or above it: then the point is passed over.
            EXPECT_FALSE(std::holds_alternative<CutOff>(at));
            EXPECT_TRUE(off > 0 || std::holds_alternative<MapPoint>(at)) << latitude;
            const MapPoint point = pointOr(at, {});
            EXPECT_LT(std::abs(point.x) + std::abs(point.y), 2.3) << latitude << " + " << off;
        }
    }
    const Arc arc = std::get<Arc>(centredOn(40, -74).arcTo(40.0F, -74.0F));
    EXPECT_EQ(arc.distance, 0.0F);
    EXPECT_NEAR(arc.Bearing, std::numbers::pi / 2, 1e-5) << "T stays 0";
}

TEST(AzimuthalMap, CutsOffRoundTheAntipodeALineOfTheGraticuleEarlier) {
    const auto map = worldMap(Projection::Azimuthal, 0.0F, 0.0F);
    const struct {
        double longitude;
        bool shown, graticule;
    } cases[] = {{170.06, true, true},   {170.1, true, false}, {177.43, true, false},
                 {177.44, false, false}, {180, false, false},  {-178, false, false}};
    for (const auto& c : cases) {
        const auto cut = [](const MapPosition& at) { return std::holds_alternative<CutOff>(at); };
        EXPECT_EQ(cut(map->position(0.0F, static_cast<float>(c.longitude))), !c.shown);
        EXPECT_EQ(cut(map->linePoint(0, c.longitude, MapLine::Coast)), !c.shown);
        EXPECT_EQ(cut(map->linePoint(0, c.longitude, MapLine::Graticule)), !c.graticule);
    }
}

TEST(MillerMap, IsLinearAndWrapsPastTheRightEdge) {
    const auto map = worldMap(Projection::Miller, 0.0F, 0.0F);
    const struct {
        float latitude, longitude;
        double x, y;
    } cases[] = {{90, 180, 21960, 21600},
                 {-90, -180, -21960, -21600},
                 {0.5F, 181, -21918, 120},
                 {0, 180.25F, 21990.5, 0},
                 {0, 360, -80, 0},
                 {0, -181, -22082, 0},
                 {0, 22000 / 122.0F, 22000, 0},
                 {10, -74.5F, -9089, 2400}};
    for (const auto& c : cases) {
        const MapPoint point = std::get<MapPoint>(map->position(c.latitude, c.longitude));
        EXPECT_FLOAT_EQ(static_cast<float>(point.x), static_cast<float>(c.x)) << c.longitude;
        EXPECT_FLOAT_EQ(static_cast<float>(point.y), static_cast<float>(c.y)) << c.latitude;
        EXPECT_EQ(point.x, static_cast<float>(point.x)) << "a single";
    }
}

} // namespace
} // namespace tovrel
