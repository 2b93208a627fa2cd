#include "app/frmMapOptions.h"

#include "app/WindowFixture.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

namespace tovrel {
namespace {

class frmMapOptionsTest : public WindowFixture {
protected:
    bool checked(const char* name) { return control<QAbstractButton>(window_, name).isChecked(); }
    void click(const char* name) { WindowFixture::click(control<QWidget>(window_, name)); }

    int applied_ = 0;
    frmMapOptions window_{Projection::Miller, forms_, [this] { ++applied_; }};
};

TEST_F(frmMapOptionsTest, FilterBoxesKeepTheirRuleUnderTheMouse) {
    window_.show();
    EXPECT_TRUE(checked("chkBand(0)"));
    click("chkBand(0)");
    EXPECT_TRUE(checked("chkBand(0)")) << "OFF can't be cleared while nothing else is selected";
    click("chkBand(3)");
    click("chkBand(4)");
    EXPECT_FALSE(checked("chkBand(0)"));
    EXPECT_TRUE(forms_.of(Projection::Miller).filter.band.selected(3));
    click("chkBand(3)");
    click("chkBand(4)");
    EXPECT_TRUE(checked("chkBand(0)"));
    click("chkIOTA(7)");
    click("chkIOTA(0)");
    EXPECT_FALSE(checked("chkIOTA(7)"));
    EXPECT_TRUE(forms_.of(Projection::Miller).filter.iota.selected(0));
}

TEST_F(frmMapOptionsTest, WritesEachActIntoTheOptionsOfItsMapAlone) {
    window_.show();
    click("Option3");
    click("optLine2");
    click("chkLatLong");
    const MapOptions& options = forms_.of(Projection::Miller);
    EXPECT_EQ(options.marker, MarkerSize::Large);
    EXPECT_EQ(options.line, 2);
    EXPECT_TRUE(options.chkLatLong);
    EXPECT_FALSE(options.chkCall || options.chkCountry);
    EXPECT_FALSE(checked("Option1"));
    EXPECT_FALSE(checked("optLine1"));
    EXPECT_EQ(forms_.of(Projection::Azimuthal).marker, MarkerSize::Small);
}

TEST_F(frmMapOptionsTest, CloseBoxAndEscapeDropWhatWasNotApplied) {
    for (const bool byEscape : {false, true}) {
        window_.show();
        click("chkMode(2)");
        click("Option2");
        click("chkCall");
        if (byEscape) {
            QTest::keyClick(&window_, Qt::Key_Escape);
        } else {
            window_.close();
        }
        EXPECT_FALSE(window_.isVisible());
        EXPECT_FALSE(forms_.of(Projection::Miller).filter.mode.selected(2));
        window_.show();
        EXPECT_TRUE(checked("chkMode(0)"));
        EXPECT_TRUE(checked("Option1"));
        EXPECT_FALSE(checked("chkCall"));
        window_.close();
    }
}

TEST_F(frmMapOptionsTest, ShowsWhatTheSettingsHold) {
    ini_.writeCheck("MCMapOptions", "Band0", false);
    ini_.writeCheck("MCMapOptions", "Band12", true);
    ini_.WriteIniValue("MCMapOptions", "Marker", "Medium");
    ini_.WriteIniValue("MCMapOptions", "Line", "3");
    ini_.writeCheck("MCMapOptions", "Country", true);
    window_.show();
    EXPECT_FALSE(checked("chkBand(0)"));
    EXPECT_TRUE(checked("chkBand(12)"));
    EXPECT_TRUE(checked("Option2"));
    EXPECT_TRUE(checked("optLine3"));
    EXPECT_TRUE(checked("chkCountry"));
    EXPECT_EQ(ini_.ReadIniValue("MCMapOptions", "Band12"), "1") << "showing writes nothing";
}

TEST_F(frmMapOptionsTest, ApplyIsPassedOn) {
    window_.show();
    click("cmdApply");
    EXPECT_EQ(applied_, 1);
    EXPECT_TRUE(window_.isVisible()) << "closing is part of applying";
    QTest::keyClick(&window_, Qt::Key_Return);
    EXPECT_EQ(applied_, 2) << "the button has the focus";
    control<QWidget>(window_, "chkBand(1)").setFocus();
    QTest::keyClick(&window_, Qt::Key_Return);
    EXPECT_EQ(applied_, 2) << "Return applies nothing from elsewhere";
}

TEST_F(frmMapOptionsTest, TabRunsDownTheColumns) {
    window_.show();
    std::vector<QString> order;
    QWidget* at = &control<QWidget>(window_, "chkBand(12)");
    for (int i = 0; i < 18; ++i) {
        do {
            at = at->nextInFocusChain();
        } while (at->focusPolicy() == Qt::NoFocus);
        order.push_back(at->objectName());
    }
    const std::vector<QString> expected = {
        "cmdApply",   "chkMode(0)", "chkMode(1)", "chkMode(2)", "chkMode(3)", "chkCall",
        "chkIOTA(0)", "chkIOTA(1)", "chkIOTA(2)", "chkIOTA(3)", "chkIOTA(4)", "chkIOTA(5)",
        "chkIOTA(6)", "chkIOTA(7)", "Option1",    "Option2",    "Option3",    "chkLatLong"};
    EXPECT_EQ(order, expected);
}

} // namespace
} // namespace tovrel
