#include "map/WorldMap.h"

#include "map/GreatCircle.h"
#include "platform/Numbers.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace tovrel {
namespace {

GreatCircle centredOn(float latitude, float longitude) {
    return GreatCircle(worldMap(Projection::Azimuthal, latitude, longitude)->home());
}

TEST(GreatCircle, ProjectsToTheDigit) {
    // Worked out by hand from the formula with each step's precision.
    const struct {
        float homeLatitude, homeLongitude, latitude, longitude;
        double x, y;
    } cases[] = {{40, -74, 51.5F, 0, 4357.721489396, 3562.629075433},
                 {40, -74, -33.9F, 151.2F, -15925.638459071, -1387.596440805},
                 // Not exactly east: pi and the degree are not the textbook's.
                 {45, 0, 0, 90, 10008.035156223, 0.023423550},
                 {0, 180, 0, -179, 111.128501891, -0.000362541},
                 {40, -74, 39, -74, 1.867759298, -111.199899080},
                 {40, -74, 40, -75, -85.189679423, 0.478772289}};
    for (const auto& c : cases) {
        const GreatCircle circle = centredOn(c.homeLatitude, c.homeLongitude);
        const auto at = std::get<MapPoint>(circle.ProjectAzimuthal(c.latitude, c.longitude));
        EXPECT_NEAR(at.x, c.x, 1e-6) << c.latitude << ", " << c.longitude;
        EXPECT_NEAR(at.y, c.y, 1e-6) << c.latitude << ", " << c.longitude;
    }
}

TEST(GreatCircle, KeepsPlacesWhereTheyAreForAHomeAtAPole) {
    constexpr double degree = std::numbers::pi / 180.0;
    const struct {
        double latitude, longitude, counted; // the longitude on which a pole counts as lying
    } homes[] = {{88.001, 30, 30}, {89.95, -100, -100}, {-89.5, 170, 170}, {90, 0, 0},
                 {90, 120, 0},     {-90, 0, 0},         {-90, -139, 0}};
    for (const auto& home : homes) {
        const GreatCircle circle =
            centredOn(static_cast<float>(home.latitude), static_cast<float>(home.longitude));
        const double h = home.latitude * degree;
        double farthest = 0.0;
        for (int latitude = -85; latitude <= 85; latitude += 17) {
            for (int longitude = -180; longitude < 180; longitude += 7) {
                const double p = latitude * degree;
                const double d = (longitude - home.counted) * degree;
                const double east = std::cos(p) * std::sin(d);
                const double north =
                    std::cos(h) * std::sin(p) - std::sin(h) * std::cos(p) * std::cos(d);
                const double up =
                    std::sin(h) * std::sin(p) + std::cos(h) * std::cos(p) * std::cos(d);
                const double across = std::hypot(east, north);
                const double stretch = 6371.29 * std::atan2(across, up) / across;
                const MapPoint at = pointOr(circle.ProjectAzimuthal(static_cast<float>(latitude),
                                                                    static_cast<float>(longitude)),
                                            {});
                farthest =
                    std::max(farthest, std::hypot(at.x - stretch * east, at.y - stretch * north));
            }
        }
        EXPECT_LT(farthest, 1.0) << "kilometres, home at " << home.latitude;
    }
}

TEST(GreatCircle, PutsHomeAndItsNeighbourhoodInTheCentre) {
    for (const auto& [latitude, longitude] : {std::pair{40.0F, -74.0F}, {0, 0}, {45, 180}}) {
        for (const float off : {0.0F, 0.0001F, 0.01F}) {
            const MapPosition at =
                centredOn(latitude, longitude).ProjectAzimuthal(latitude + off, longitude);
            // The cosine of the distance rounds to 1, or above it: then the point is passed over.
            EXPECT_FALSE(std::holds_alternative<CutOff>(at));
            EXPECT_TRUE(off > 0 || std::holds_alternative<MapPoint>(at)) << latitude;
            const MapPoint point = pointOr(at, {});
            EXPECT_LT(std::hypot(point.x, point.y), 2.3) << latitude << " + " << off;
        }
    }
    const Arc arc = std::get<Arc>(centredOn(40, -74).arcTo(40.0F, -74.0F));
    EXPECT_EQ(arc.distance, 0.0F);
    EXPECT_NEAR(arc.Bearing, std::numbers::pi / 2, 1e-5) << "T stays 0";
}

TEST(AzimuthalMap, CutsOffRoundTheAntipodeALineOfTheGraticuleEarlier) {
    const auto map = worldMap(Projection::Azimuthal, 0.0F, 0.0F);
    const struct {
        float longitude;
        bool shown, graticule;
    } cases[] = {{170.06F, true, true},   {170.1F, true, false}, {177.43F, true, false},
                 {177.44F, false, false}, {180, false, false},   {-178, false, false}};
    const auto cut = [](const MapPosition& at) { return std::holds_alternative<CutOff>(at); };
    for (const auto& c : cases) {
        EXPECT_EQ(cut(map->position(0.0F, c.longitude)), !c.shown);
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
                 {0.5F, 181, -21918, 120},
                 {0, 360, -80, 0},
                 {0, -181, -22082, 0},
                 {0, 22000 / 122.0F, 22000, 0}, // on the edge
                 {-10, 12.3456F, toSingle(12.3456F * 122.0), -2400}};
    for (const auto& c : cases) {
        const auto point = std::get<MapPoint>(map->position(c.latitude, c.longitude));
        EXPECT_EQ(point.x, c.x) << c.longitude;
        EXPECT_EQ(point.y, c.y) << c.latitude;
    }
}

} // namespace
} // namespace tovrel
