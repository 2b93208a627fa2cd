#include "state/StationInfo.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(StationInfo, JudgesACoordinateByItsForm) {
    for (const char* good : {"", "41.5", "-72.5", ".5", "-5.", "400"})
        EXPECT_EQ(coordinateFault(good), CoordinateFault::None) << good;
    for (const char* blank : {"41.5 ", "41 30 N"})
        EXPECT_EQ(coordinateFault(blank), CoordinateFault::Blank) << blank;
    for (const char* none : {"41,5", "41.5N", "41.5.1", ".", "1e3", "nan", "\t41.5",
                             "\xE2\x88\x92"
                             "5"})
        EXPECT_EQ(coordinateFault(none), CoordinateFault::NoNumber) << none;
}

TEST(StationInfo, WordsItsMessages) {
    EXPECT_EQ(coordinateMessage("Latitude", CoordinateFault::Blank),
              "Latitude Data Error\r\nPlease do not use a space as a delimiter.");
    EXPECT_EQ(coordinateMessage("Longitude", CoordinateFault::NoNumber),
              "Longitude Data Error\r\n"
              "Please enter a decimal number such as 41.5, with a point as decimal mark.");
}

} // namespace
} // namespace tovrel
