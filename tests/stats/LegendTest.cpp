#include "stats/Legend.h"

#include "platform/TestFolder.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

constexpr auto azimuthal = Projection::Azimuthal;
constexpr auto miller = Projection::Miller;

TEST(Legend, EntriesHaveTheirNamesAndDefaultColours) {
    const struct {
        LegendEntry entry;
        const char *button, *label, *caption, *key;
        Colour colour;
    } cases[] = {{LegendEntry::Confirmed, "cmdConfirmed", "lblConfirmed", "Confirmed",
                  "ConfirmedColor", 4259584},
                 {LegendEntry::Worked, "cmdWorked", "lblWorked", "Worked", "WorkedColor", 255},
                 {LegendEntry::Heard, "cmdHeard", "lblHeard", "Heard", "HeardColor", 16711680},
                 {LegendEntry::Home, "cmdHome", "lblHome", "Home QTH", "QTHColor", 65535},
                 {LegendEntry::PlotOutline, "cmdPlotOutline", "lblPlotOutline", "Plot Outline",
                  "OutlineColor", 0},
                 {LegendEntry::Line, "cmdLine", "lblPlotLine", "Plot Line", "LineColor", 255},
                 {LegendEntry::Meridian, "cmdMeridian", "lblMeridian", "Meridian Line",
                  "MeridianColor", 8421504}};
    const Legend legend;
    ASSERT_EQ(std::size(cases), allLegendEntries.size());
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const LegendNames& names = namesOf(allLegendEntries[i]);
        EXPECT_EQ(allLegendEntries[i], cases[i].entry);
        EXPECT_EQ(names.button, cases[i].button);
        EXPECT_EQ(names.label, cases[i].label);
        EXPECT_EQ(names.caption, cases[i].caption);
        EXPECT_EQ(names.key, cases[i].key);
        EXPECT_EQ(legend.colour(cases[i].entry), cases[i].colour);
    }
}

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

TEST(Legend, SavesAnEntryAsDecimalTextInOneSection) {
    const TestFolder folder;
    iniFiles ini(folder.path(), "x.ini");
    Legend legend;
    legend.set(LegendEntry::Home, 0xC0FFC0);
    legend.save(ini, miller, LegendEntry::Home);
    EXPECT_EQ(ini.ReadIniValue("MCMapOptions", "QTHColor"), "12648384");
    EXPECT_EQ(ini.ReadIniValue("GCMapOptions", "QTHColor"), "");
    EXPECT_EQ(ini.ReadIniValue("MCMapOptions", "HeardColor"), "");
}

} // namespace
} // namespace tovrel
