#include "export/frmGoogleMapOptions.h"

#include "app/WindowFixture.h"

#include <QCheckBox>
#include <QRadioButton>

namespace tovrel {
namespace {

class frmGoogleMapOptionsTest : public WindowFixture {
protected:
    bool checked(const char* name) { return control<QAbstractButton>(window_, name).isChecked(); }
    void click(const char* name) { WindowFixture::click(control<QWidget>(window_, name)); }
    std::string stored(const char* key) { return ini_.ReadIniValue("GoogleMapOptions", key); }

    frmGoogleMapOptions window_{ini_, google_};
};

TEST_F(frmGoogleMapOptionsTest, MarkerIsStoredAtOnceAndTheRestByApply) {
    window_.show();
    click("optSmallMarker");
    click("chkBand(5)");
    click("chkCall");
    EXPECT_EQ(stored("Marker"), "Small");
    EXPECT_EQ(stored("Band5"), "");
    EXPECT_FALSE(google_.chkCall) << "the export sees it before Apply";
    click("cmdApply");
    EXPECT_FALSE(window_.isVisible());
    EXPECT_EQ(stored("Band5"), "1");
    EXPECT_EQ(stored("Band0"), "0");
    EXPECT_EQ(stored("Call"), "0");
    EXPECT_TRUE(google_.filter.band.selected(5)) << "a hidden window stays loaded";
}

TEST_F(frmGoogleMapOptionsTest, CloseBoxBringsTheDesignBack) {
    window_.show();
    click("optMediumMarker");
    click("chkIOTA(2)");
    click("chkCall");
    window_.close();
    EXPECT_TRUE(google_.filter.iota.selected(0));
    EXPECT_EQ(stored("Marker"), "Medium");
    window_.show();
    EXPECT_TRUE(checked("chkIOTA(0)"));
    EXPECT_TRUE(checked("chkCall"));
    EXPECT_TRUE(checked("optLargeMarker"));
    click("optLargeMarker");
    EXPECT_EQ(stored("Marker"), "Large") << "a click counts although the button was on";
}

TEST_F(frmGoogleMapOptionsTest, MirroringStoresNoMarker) {
    google_.marker = MarkerSize::Small;
    window_.show();
    EXPECT_TRUE(checked("optSmallMarker"));
    EXPECT_EQ(stored("Marker"), "");
}

} // namespace
} // namespace tovrel
