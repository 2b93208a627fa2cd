#include "run/MapFit.h"

#include <gtest/gtest.h>

namespace tovrel {

namespace {

TEST(MapFit, FillsAWindowOfItsShapeAndLiesInTheMiddleOfAnyOther) {
    const struct {
        const char* what;
        WindowArea window; ///< outer width and height, client width and height, whether free
        MapPlace azimuthal, miller;
    } cases[] = {{"as the azimuthal map shapes it",
                  {7350, 7995, 7320, 7350, true},
                  {0, 0, 7350, 7350},
                  {0, 1845, 7320, 3660}},
                 {"to the pixel",
                  {7365, 7995, 7335, 7350, true},
                  {0, 7.5F, 7335, 7335},
                  {0, 1841.25F, 7335, 3667.5F}},
                 {"as the Miller map shapes it",
                  {7005, 3510, 6975, 2865, true},
                  {2055, 0, 2865, 2865},
                  {0, 0, 6895, 2865}},
                 {"maximized",
                  {19200, 14400, 19200, 13800, false},
                  {2700, 0, 13800, 13800},
                  {0, 2100, 19200, 9600}},
                 {"maximized, by chance of the shape",
                  {7350, 7995, 7320, 7350, false},
                  {0, 15, 7320, 7320},
                  {0, 1845, 7320, 3660}},
                 {"hardly there", {15, 15, 15, 15, true}, {0, 0, 15, 15}, {0, 3.75F, 15, 7.5F}}};
    for (const auto& c : cases) {
        EXPECT_EQ(MapFit(c.window, {.widthPerHeight = 1, .ofClientArea = true}), c.azimuthal)
            << c.what;
        EXPECT_EQ(MapFit(c.window, {.widthPerHeight = 2, .ofClientArea = false}), c.miller)
            << c.what;
    }
}

} // namespace
} // namespace tovrel
