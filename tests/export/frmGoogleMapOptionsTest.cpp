#include "export/frmGoogleMapOptions.h"

#include "app/WindowFixture.h"

namespace tovrel {
namespace {

class frmGoogleMapOptionsTest : public WindowFixture {
protected:
    std::string marker() { return data_.ini.ReadIniValue("GoogleMapOptions", "Marker"); }

    frmGoogleMapOptions window_{data_.ini, data_.google};
};

TEST_F(frmGoogleMapOptionsTest, CloseBoxBringsTheDesignBackAndApplyDoesNot) {
    window_.show();
    click(window_, "optMediumMarker");
    click(window_, "chkIOTA(2)");
    click(window_, "chkCall");
    click(window_, "cmdApply");
    EXPECT_TRUE(data_.google.filter.iota.selected(2)) << "a hidden window stays loaded";
    window_.show();
    EXPECT_FALSE(checked(window_, "chkCall"));
    window_.close();
    EXPECT_TRUE(data_.google.filter.iota.selected(0));
    window_.show();
    EXPECT_TRUE(checked(window_, "chkIOTA(0)"));
    EXPECT_TRUE(checked(window_, "chkCall"));
    EXPECT_TRUE(checked(window_, "optLargeMarker"));
    EXPECT_EQ(marker(), "Medium");
    click(window_, "optLargeMarker");
    EXPECT_EQ(marker(), "Large") << "a click counts although the button was on";
}

TEST_F(frmGoogleMapOptionsTest, EscapeLeavesWhatWasAppliedAndDropsTheRest) {
    data_.google.marker = MarkerSize::Small;
    window_.show();
    EXPECT_TRUE(checked(window_, "optSmallMarker"));
    click(window_, "chkBand(9)");
    click(window_, "cmdApply");
    window_.show();
    click(window_, "chkBand(3)");
    click(window_, "chkCall");
    QTest::keyClick(&window_, Qt::Key_Escape);
    EXPECT_FALSE(window_.isVisible());
    EXPECT_EQ(marker(), "") << "to show a marker stores none";
    const FilterGroup& bands = data_.google.filter.band;
    EXPECT_TRUE(bands.selected(9) && !bands.selected(3) && data_.google.chkCall);
    window_.show();
    EXPECT_TRUE(checked(window_, "chkBand(9)") && checked(window_, "chkCall"));
}

} // namespace
} // namespace tovrel
