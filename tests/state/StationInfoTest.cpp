#include "state/StationInfo.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(StationInfo, JudgesACoordinateByItsForm) {
    for (const char* good : {"", "41.5", "-.5", "+5.", "400"})
        EXPECT_EQ(coordinateFault(good), CoordinateFault::None) << good;
    for (const char* blank : {"41.5 ", "41 30 N"})
        EXPECT_EQ(coordinateFault(blank), CoordinateFault::Blank) << blank;
    for (const char* none : {"41,5", "41.5N", "41.5.1", ".", "1e3", "nan", "\t41.5"})
        EXPECT_EQ(coordinateFault(none), CoordinateFault::NoNumber) << none;
}

} // namespace
} // namespace tovrel
