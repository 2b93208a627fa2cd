#include "stats/Legend.h"

#include "platform/TestFolder.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

constexpr auto azimuthal = Projection::Azimuthal;
constexpr auto miller = Projection::Miller;

TEST(Legend, LoadsWhatASectionHoldsAndKeepsTheRest) {
    const TestFolder folder;
    folder.write("x.ini", "[GCMapOptions]\r\nHeardColor=12345\r\nWorkedColor=\r\nQTHColor=red\r\n"
                          "LineColor= 16777215 \r\n[MCMapOptions]\r\nHeardColor=54321\r\n");
    const iniFiles ini(folder.path(), "x.ini");
    Legend legend;
    int told = 0;
    legend.changed = [&] { ++told; };
    legend.set(LegendEntry::Worked, 77);
    legend.load(ini, azimuthal);
    EXPECT_GT(told, 0);
    EXPECT_EQ(legend.colour(LegendEntry::Heard), 12345U);
    EXPECT_EQ(legend.colour(LegendEntry::Worked), 77U);
    EXPECT_EQ(legend.colour(LegendEntry::Home), 65535U);
    EXPECT_EQ(legend.colour(LegendEntry::Line), 0xFFFFFFU);
    legend.load(ini, miller);
    EXPECT_EQ(legend.colour(LegendEntry::Heard), 54321U);
    EXPECT_EQ(legend.colour(LegendEntry::Worked), 77U) << "the other map's colour stays";
    legend.resetToDesign();
    EXPECT_EQ(legend.colour(LegendEntry::Worked), 255U);
}

} // namespace
} // namespace tovrel
