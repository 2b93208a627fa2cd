#include "app/frmMapOptions.h"

#include "app/WindowFixture.h"

namespace tovrel {
namespace {

class frmMapOptionsTest : public WindowFixture {
protected:
    const MapOptions& options() { return data_.maps.of(Projection::Miller); }

    frmMapOptions window_{Projection::Miller, data_.maps, [] {}};
};

TEST_F(frmMapOptionsTest, FilterBoxesKeepTheirRuleUnderTheMouse) {
    window_.show();
    click(window_, "chkBand(0)");
    EXPECT_TRUE(checked(window_, "chkBand(0)"))
        << "OFF can't be cleared while nothing else is selected";
    click(window_, "chkBand(3)");
    click(window_, "chkBand(4)");
    EXPECT_FALSE(checked(window_, "chkBand(0)"));
    EXPECT_TRUE(options().filter.band.selected(3));
    click(window_, "chkBand(3)");
    click(window_, "chkBand(4)");
    EXPECT_TRUE(checked(window_, "chkBand(0)"));
    click(window_, "chkIOTA(7)");
    click(window_, "chkIOTA(0)");
    EXPECT_FALSE(checked(window_, "chkIOTA(7)"));
}

TEST_F(frmMapOptionsTest, WritesEachActIntoTheOptionsOfItsMapAloneUntilItIsClosed) {
    window_.show();
    for (const char* name : {"Option3", "optLine2", "chkLatLong", "chkMode(2)"})
        click(window_, name);
    EXPECT_EQ(options().marker, MarkerSize::Large);
    EXPECT_EQ(options().line, 2);
    EXPECT_TRUE(options().chkLatLong);
    EXPECT_FALSE(options().chkCall || options().chkCountry);
    EXPECT_FALSE(checked(window_, "Option1") || checked(window_, "optLine1"));
    EXPECT_EQ(data_.maps.of(Projection::Azimuthal).marker, MarkerSize::Small);
    window_.close();
    EXPECT_FALSE(options().filter.mode.selected(2));
    window_.show();
    EXPECT_TRUE(checked(window_, "chkMode(0)") && checked(window_, "Option1"));
    EXPECT_TRUE(checked(window_, "optLine1") && !checked(window_, "chkLatLong"));
}

TEST_F(frmMapOptionsTest, ShowsWhatTheSettingsHold) {
    const std::string settings = "[MCMapOptions]\r\nBand0=0\r\nBand12=1\r\nMarker=Medium\r\n"
                                 "Line=3\r\nCountry=1\r\n";
    folder_.write("Tovrel.ini", settings);
    data_.maps.LoadMCMapOptions();
    window_.show();
    for (const char* name : {"chkBand(12)", "Option2", "optLine3", "chkCountry"})
        EXPECT_TRUE(checked(window_, name)) << name;
    EXPECT_FALSE(checked(window_, "chkBand(0)"));
    EXPECT_EQ(folder_.read("Tovrel.ini"), settings) << "showing writes nothing";
}

} // namespace
} // namespace tovrel
