#include "state/MapOptions.h"

#include "platform/TestFolder.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

struct MapOptionsTest : testing::Test {
    void settings(std::string_view text) { folder.write("T.ini", text); }

    TestFolder folder;
    iniFiles ini{folder.path(), "T.ini"};
    RunState run;
    MapOptionForms maps{ini, run};
};

TEST_F(MapOptionsTest, loadsFilterGroupsInRisingOrder) {
    // A bit of each member that is selected then; before it is the third alone.
    const std::pair<std::string_view, int> cases[] = {
        {"Band0=\nBand5=1\n", 1},
        {"Band0=0\n", 1},
        {"Band0=0\nBand4=1\nBand12=1\n", 1 << 4 | 1 << 12},
        {"Band0=1\nBand3=1\n", 1 << 3}};
    for (const auto& [keys, bits] : cases) {
        settings(std::string("[MCMapOptions]\n").append(keys));
        FilterGroup group(Criterion::Band);
        group.set(3, true);
        MapOptionForms::loadGroup(ini, "MCMapOptions", group);
        int selected = 0;
        for (int member = 0; member <= group.lastMember(); ++member)
            selected |= group.selected(member) ? 1 << member : 0;
        EXPECT_EQ(selected, bits) << keys;
    }
}

TEST_F(MapOptionsTest, loadsMarksAndOptionsWithTheirFallbacks) {
    maps.LoadGCMapOptions();
    MenuMarks expected;
    expected.mnuShowMe = expected.mnuLightCompass = expected.mnu45Degrees = true;
    EXPECT_EQ(run.marks, expected);
    int told = 0;
    const Connection marks = run.marksChanged.connect([&] { ++told; });
    // Of marks that exclude each other the first counts.
    settings("[Globals]\nLatitude=51.5\n[GCMapOptions]\nTopo=true\nShowMe=False\n"
             "Meridian=True\nShowComp=True\nCompNorm=True\nCompBold=True\n15Deg=True\n45Deg=True\n"
             "Marker=Medium\nLine=3\nCall=1\nLatLong=0\nCountry=1\n"
             "[MCMapOptions]\nMarker=large\nLine=4\nLatLong=1\nTopo=False\n");
    maps.LoadGCMapOptions();
    expected = {Projection::Azimuthal, false, true, true, true, true, false, true, false};
    EXPECT_EQ(run.marks, expected);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(run.HomeLatitude, 0.0F) << "home belongs to the base map";
    const MapOptions& azimuthal = maps.of(Projection::Azimuthal);
    EXPECT_EQ(azimuthal.marker, MarkerSize::Medium);
    EXPECT_EQ(azimuthal.line, 3);
    EXPECT_TRUE(azimuthal.chkCall && !azimuthal.chkLatLong && azimuthal.chkCountry);

    const MapOptions& miller = maps.of(Projection::Miller);
    EXPECT_FALSE(miller.chkLatLong) << "looking at options loads nothing";
    // The Miller map has no compass; values that are none of the words change nothing.
    maps.LoadMCMapOptions();
    expected.mnuShowMe = true;
    expected.mnuMeridian = expected.mnuTopo = false;
    EXPECT_EQ(run.marks, expected);
    EXPECT_EQ(miller.marker, MarkerSize::Small);
    EXPECT_EQ(miller.line, 1);
    EXPECT_TRUE(!miller.chkCall && miller.chkLatLong && !miller.chkCountry);

    // A window that is closed without Apply puts its boxes back, and nothing else.
    run.marks = {};
    maps.of(Projection::Azimuthal).line = 1;
    maps.of(Projection::Miller).chkCall = true;
    maps.loadBoxes(Projection::Azimuthal);
    EXPECT_EQ(azimuthal.line, 3);
    EXPECT_TRUE(miller.chkCall);
    EXPECT_EQ(run.marks, MenuMarks());
    maps.of(Projection::Miller).marker = MarkerSize::Large;
    maps.loadBoxes(Projection::Miller);
    EXPECT_EQ(miller.marker, MarkerSize::Small) << "the settings have none of the words";
}

TEST_F(MapOptionsTest, savesAllThatItLoads) {
    MapOptions& options = maps.of(Projection::Azimuthal);
    run.marks = {Projection::Azimuthal, true, false, true, true, false, true, false, true};
    options.filter.band.set(3, true);
    options.filter.mode.set(2, true);
    options.marker = MarkerSize::Medium;
    options.line = 2;
    options.chkLatLong = true;
    maps.SaveGCMapOptions();
    EXPECT_EQ(maps.PlotLineWidth(), 2);
    EXPECT_EQ(folder.read("T.ini"),
              "[GCMapOptions]\r\nTopo=True\r\nShowMe=True\r\nMeridian=False\r\nShowComp=True\r\n"
              "CompBold=False\r\nCompNorm=True\r\n15Deg=False\r\n45Deg=True\r\n"
              "Band0=0\r\nBand1=0\r\nBand2=0\r\nBand3=1\r\nBand4=0\r\nBand5=0\r\nBand6=0\r\n"
              "Band7=0\r\nBand8=0\r\nBand9=0\r\nBand10=0\r\nBand11=0\r\nBand12=0\r\n"
              "Mode0=0\r\nMode1=0\r\nMode2=1\r\nMode3=0\r\nIOTA0=1\r\nIOTA1=0\r\nIOTA2=0\r\n"
              "IOTA3=0\r\nIOTA4=0\r\nIOTA5=0\r\nIOTA6=0\r\nIOTA7=0\r\nCall=0\r\nLatLong=1\r\n"
              "Country=0\r\nMarker=Medium\r\nLine=2\r\n");

    maps.SaveMCMapOptions();
    EXPECT_EQ(ini.ReadIniValue("MCMapOptions", "Topo"), "True");
    EXPECT_EQ(ini.ReadIniValue("MCMapOptions", "ShowComp"), "") << "it has no compass";
}

} // namespace
} // namespace tovrel
