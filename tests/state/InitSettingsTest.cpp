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
}

TEST_F(InitSettingsTest, repairsEachMissingKeyAloneAndLeavesTheOthers) {
    start();
    start();
    const std::string whole = folder.read("T.ini");
    std::string sectionName;
    int repaired = 0;
    for (std::size_t at = 0, next = 0; at < whole.size(); at = next) {
        next = whole.find("\r\n", at) + 2;
        const std::string line = whole.substr(at, next - 2 - at);
        if (line.starts_with('['))
            sectionName = line.substr(1, line.size() - 2);
        const std::string key = line.substr(0, line.find('='));
        folder.write("T.ini", whole.substr(0, at) + whole.substr(next));
        start();
        const bool back = key + '=' + ini.ReadIniValue(sectionName, key) == line;
        repaired += back && folder.read("T.ini").size() == whole.size() ? 1 : 0;
    }
    EXPECT_EQ(repaired, 39) << "MyCall, ADIFile, Map and members of a group may be missing";
}

TEST_F(InitSettingsTest, keepsValuesThatStand) {
    std::string text = firstRun + "ShowMe=False\r\n";
    for (std::size_t at = 0; (at = text.find("=0\r\n", at)) != std::string::npos;)
        text.replace(at, 2, "=nonsense");
    folder.write("T.ini", text);
    start();
    EXPECT_EQ(folder.read("T.ini"), text);
}

TEST_F(InitSettingsTest, losesAGroupWithoutItsFirstKeyAndKeepsOneThatLacksAnother) {
    folder.write("T.ini",
                 "[GCMapOptions]\nBand5=1\nMode0=0\nMode2=1\nIOTA0=0\nIOTA7=1\n"
                 "[MCMapOptions]\nBand0=0\nBand3=1\n[GoogleMapOptions]\nBand0=0\nBand12=1\n");
    start();
    EXPECT_EQ(ini.ReadIniValue("GCMapOptions", "Band0"), "1");
    EXPECT_EQ(ini.ReadIniValue("GCMapOptions", "Band5"), "0");
    EXPECT_EQ(ini.ReadIniValue("GCMapOptions", "Mode1"), "");
    EXPECT_TRUE(azimuthal.band.selected(0));
    EXPECT_TRUE(azimuthal.mode.selected(2) && !azimuthal.mode.selected(0));
    EXPECT_TRUE(azimuthal.iota.selected(7) && !azimuthal.iota.selected(0));
    EXPECT_TRUE(miller.band.selected(3) && google.filter.band.selected(12));
}

TEST_F(InitSettingsTest, takesTheExportsMarkerAndCallFromTheFile) {
    const struct {
        std::string_view keys;
        MarkerSize marker;
        bool chkCall;
    } cases[] = {{"Marker=Small\nCall=0\n", MarkerSize::Small, false},
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
    folder.write("T.ini", "[GCMapOptions]\nCompNorm=False\nCompBold=True\n");
    start();
    EXPECT_TRUE(run.marks.mnuLightCompass);
    start();
    EXPECT_FALSE(run.marks.mnuLightCompass) << "now it is there, and nobody has loaded it yet";
}

} // namespace
} // namespace tovrel
