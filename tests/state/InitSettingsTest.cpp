#include "state/InitSettings.h"

#include "platform/TestFolder.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

const std::string groups =
    "Band0=1\r\nBand1=0\r\nBand2=0\r\nBand3=0\r\nBand4=0\r\nBand5=0\r\nBand6=0\r\nBand7=0\r\n"
    "Band8=0\r\nBand9=0\r\nBand10=0\r\nBand11=0\r\nBand12=0\r\n"
    "Mode0=1\r\nMode1=0\r\nMode2=0\r\nMode3=0\r\n"
    "IOTA0=1\r\nIOTA1=0\r\nIOTA2=0\r\nIOTA3=0\r\nIOTA4=0\r\nIOTA5=0\r\nIOTA6=0\r\nIOTA7=0\r\n";
const std::string map = "Marker=Large\r\nWorkedColor=255\r\nConfirmedColor=4259584\r\n"
                        "HeardColor=16711680\r\nQTHColor=65535\r\nOutlineColor=0\r\n"
                        "MeridianColor=8421504\r\nLineColor=255\r\nLine=1\r\n";
const std::string firstRun =
    "[Globals]\r\nMyCall=\r\nLatitude=0\r\nLongitude=0\r\nGCHeight=8000\r\nMlWidth=7000\r\n"
    "[Log]\r\nADIFile=\r\n"
    "[GoogleMapOptions]\r\nMap=1\r\n" +
    groups + "Marker=Large\r\nCall=1\r\n[GCMapOptions]\r\n" + groups +
    "ShowComp=True\r\n15Deg=True\r\n45Deg=False\r\nCompassBold=False\r\nShowMe=True\r\n" + map +
    "[MCMapOptions]\r\n" + groups + map;

struct InitSettingsTest : testing::Test {
    /// One start of the program.
    void start() {
        run = {};
        MapOptionForms maps(ini, run);
        google = {};
        InitSettings(ini, maps, google, run);
        azimuthal = maps.of(Projection::Azimuthal).filter;
        miller = maps.of(Projection::Miller).filter;
    }

    TestFolder folder;
    iniFiles ini{folder.path(), "T.ini"};
    RunState run;
    GoogleMapOptions google;
    Filter azimuthal;
    Filter miller;
};

TEST_F(InitSettingsTest, writesAllKeysOnTheFirstRunAndOneMoreOnTheNext) {
    start();
    EXPECT_EQ(folder.read("T.ini"), firstRun);
    start();
    EXPECT_EQ(folder.read("T.ini"), firstRun + "ShowMe=True\r\n");
    start();
    EXPECT_EQ(folder.read("T.ini"), firstRun + "ShowMe=True\r\n");
}

TEST_F(InitSettingsTest, repairsEachMissingKeyAloneAndLeavesTheOthers) {
    start();
    start();
    const std::string whole = folder.read("T.ini");
    std::string sectionName;
    int repaired = 0;
    for (std::size_t at = 0; at < whole.size();) {
        const std::size_t next = whole.find("\r\n", at) + 2;
        const std::string line = whole.substr(at, next - 2 - at);
        const std::string key = line.substr(0, line.find('='));
        if (line.starts_with('['))
            sectionName = line.substr(1, line.size() - 2);
        std::string without = whole;
        without.erase(at, next - at);
        at = next;
        const bool mayBeMissing = key == "MyCall" || key == "ADIFile" || key == "Map";
        const std::string group = key.substr(0, 4);
        const bool member =
            (group == "Band" || group == "Mode" || group == "IOTA") && key.substr(4) != "0";
        if (line.starts_with('[') || mayBeMissing || member)
            continue;
        folder.write("T.ini", without);
        start();
        EXPECT_EQ(ini.ReadIniValue(sectionName, key), line.substr(line.find('=') + 1))
            << sectionName << " " << key;
        EXPECT_EQ(folder.read("T.ini").size(), whole.size()) << sectionName << " " << key;
        ++repaired;
    }
    EXPECT_EQ(repaired, 39);
}

TEST_F(InitSettingsTest, keepsValuesThatStand) {
    std::string text = firstRun + "ShowMe=False\r\n";
    for (const auto& [from, to] : {std::pair<std::string, std::string>{"=Large", "=Odd"},
                                   {"=255", "=12"},
                                   {"=8000", "=9000x"},
                                   {"=0\r\n", "=nonsense\r\n"}}) {
        for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos;)
            text.replace(at, from.size(), to);
    }
    folder.write("T.ini", text);
    start();
    EXPECT_EQ(folder.read("T.ini"), text);
    EXPECT_EQ(google.marker, MarkerSize::Large);
}

TEST_F(InitSettingsTest, losesAGroupWithoutItsFirstKeyAndKeepsOneThatLacksAnother) {
    folder.write("T.ini",
                 "[GCMapOptions]\nBand1=1\nBand5=1\nMode0=0\nMode2=1\nIOTA0=0\nIOTA4=1\n"
                 "[MCMapOptions]\nBand0=0\nBand3=1\n[GoogleMapOptions]\nBand0=0\nBand7=1\n");
    start();
    EXPECT_EQ(ini.ReadIniValue("GCMapOptions", "Band0"), "1");
    EXPECT_EQ(ini.ReadIniValue("GCMapOptions", "Band1"), "0");
    EXPECT_EQ(ini.ReadIniValue("GCMapOptions", "Band5"), "0");
    EXPECT_EQ(ini.ReadIniValue("GCMapOptions", "Mode1"), "");
    EXPECT_TRUE(azimuthal.band.selected(0));
    EXPECT_TRUE(azimuthal.mode.selected(2) && !azimuthal.mode.selected(0));
    EXPECT_TRUE(azimuthal.iota.selected(4) && !azimuthal.iota.selected(0));
    EXPECT_TRUE(miller.band.selected(3) && !miller.band.selected(0));
    EXPECT_TRUE(google.filter.band.selected(7) && !google.filter.band.selected(0));
    EXPECT_TRUE(google.filter.mode.selected(0));
}

TEST_F(InitSettingsTest, takesTheExportsMarkerAndCallFromTheFile) {
    const struct {
        std::string_view keys;
        MarkerSize marker;
        bool chkCall;
    } cases[] = {{"Marker=Small\nCall=0\n", MarkerSize::Small, false},
                 {"Marker=Medium\nCall=1\n", MarkerSize::Medium, true},
                 {"Marker=medium\nCall=x\n", MarkerSize::Large, false},
                 {"", MarkerSize::Large, true}};
    for (const auto& c : cases) {
        folder.write("T.ini", std::string("[GoogleMapOptions]\n").append(c.keys));
        start();
        EXPECT_EQ(google.marker, c.marker) << c.keys;
        EXPECT_EQ(google.chkCall, c.chkCall) << c.keys;
    }
}

TEST_F(InitSettingsTest, takesTheLightCompassWhenTheKeyOfTheBoldOneIsMissing) {
    MapOptionForms maps(ini, run);
    folder.write("T.ini", "[GCMapOptions]\nCompNorm=False\nCompBold=True\n");
    InitSettings(ini, maps, google, run);
    EXPECT_TRUE(run.marks.mnuLightCompass && !run.marks.mnuBoldCompass);

    RunState later;
    MapOptionForms laterMaps(ini, later);
    InitSettings(ini, laterMaps, google, later);
    laterMaps.LoadGCMapOptions();
    EXPECT_TRUE(!later.marks.mnuLightCompass && later.marks.mnuBoldCompass);
}

} // namespace
} // namespace tovrel
