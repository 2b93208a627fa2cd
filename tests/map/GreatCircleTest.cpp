#include "map/GreatCircle.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>

namespace tovrel {
namespace {

GreatCircle centredOn(double latitude, double longitude) {
    return GreatCircle(homePosition(Projection::Azimuthal, static_cast<float>(latitude),
                                    static_cast<float>(longitude)));
}

int project(GreatCircle& circle, double latitude, double longitude, int mode = 0) {
    circle.ProjectAzimuthal(static_cast<float>(latitude), static_cast<float>(longitude), mode);
    return mode;
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
        GreatCircle circle = centredOn(c.homeLatitude, c.homeLongitude);
        EXPECT_EQ(project(circle, c.latitude, c.longitude), 0);
        EXPECT_NEAR(circle.ProjX, c.x, 1e-6) << c.latitude << ", " << c.longitude;
        EXPECT_NEAR(circle.ProjY, c.y, 1e-6) << c.latitude << ", " << c.longitude;
    }
}

TEST(GreatCircle, PutsHomeAndItsNeighbourhoodInTheCentre) {
    for (const auto& [latitude, longitude] : {std::pair{40.0, -74.0}, {0, 0}, {45, 180}}) {
        for (const double off : {0.0, 0.0001, 0.01}) {
            GreatCircle circle = centredOn(latitude, longitude);
            circle.PenUp = 0;
            circle.ProjX = circle.ProjY = 1234.0;
            const int mode = project(circle, latitude + off, longitude);
            EXPECT_EQ(circle.PenUp, 0);
            // The cosine of the distance rounds to 1, or above it: then the point is passed over.
            EXPECT_TRUE(mode == 0 || (mode == modeHidden && off > 0)) << latitude << " + " << off;
            EXPECT_LT(std::abs(mode == 0 ? circle.ProjX : 0.0), 2.3) << latitude << " + " << off;
            EXPECT_LT(std::abs(mode == 0 ? circle.ProjY : 0.0), 2.3) << latitude << " + " << off;
        }
    }
    GreatCircle circle = centredOn(40, -74);
    EXPECT_EQ(project(circle, 40, -74, -3), -3) << "keeps the mode";
    EXPECT_EQ(circle.ProjX, 0.0);
    EXPECT_EQ(circle.ProjY, 0.0);
    EXPECT_NEAR(circle.Bearing, std::numbers::pi / 2, 1e-5) << "T stays 0";
}

TEST(GreatCircle, StaysFiniteForAnyHomeAndPoint) {
    const double awkward[] = {-1e38, -3600, -360, -180, -90, -0.0, 0, 90, 180, 360, 1e6, 1e38};
    for (const double homeLatitude : awkward) {
        for (const double latitude : awkward) {
            for (const double longitude : awkward) {
                GreatCircle circle = centredOn(homeLatitude, 10);
                project(circle, latitude, longitude);
                EXPECT_TRUE(std::isfinite(circle.ProjX + circle.ProjY));
                EXPECT_LT(std::hypot(circle.ProjX, circle.ProjY), MapRadius);
            }
        }
    }
}

TEST(GreatCircle, CutsOffRoundTheAntipodeAndKeepsTheLastPosition) {
    const struct {
        int mode;
        double longitude;
        bool shown;
    } cases[] = {{0, 177.43, true},  {0, 177.44, false}, {0, 178, false},
                 {0, 180, false},    {0, -178, false},   {-3, 170.06, true},
                 {-3, 170.1, false}, {0, 170.1, true},   {-3, 180, false}};
    for (const auto& c : cases) {
        GreatCircle circle = centredOn(0, 0);
        circle.PenUp = 0;
        circle.ProjX = 17.0;
        circle.ProjY = -4.0;
        circle.Bearing = 2.0F;
        const int mode = project(circle, 0, c.longitude, c.mode);
        EXPECT_EQ(mode, c.shown ? c.mode : 999) << c.longitude;
        EXPECT_EQ(circle.PenUp, c.shown ? 0 : 1) << c.longitude;
        EXPECT_EQ(circle.cutAtAntipode(), !c.shown) << c.longitude;
        EXPECT_EQ(circle.ProjX == 17.0 && circle.ProjY == -4.0, !c.shown) << c.longitude;
        EXPECT_EQ(circle.Bearing == 2.0F, !c.shown) << c.longitude;
    }
}

TEST(GreatCircle, MillerIsLinearAndWrapsPastTheRightEdge) {
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
        const MapPoint point = projectMiller(c.latitude, c.longitude);
        EXPECT_FLOAT_EQ(static_cast<float>(point.x), static_cast<float>(c.x)) << c.longitude;
        EXPECT_FLOAT_EQ(static_cast<float>(point.y), static_cast<float>(c.y)) << c.latitude;
        EXPECT_EQ(point.x, static_cast<float>(point.x)) << "a single";
    }
}

} // namespace
} // namespace tovrel
