#include "app/MainFixture.h"
#include "export/Unpacked.h"

#include <QPlainTextEdit>
#include <QScreen>

namespace tovrel {
namespace {

/// The option windows as their user has them: opened from the menu, applied or closed, and then
/// plotted or exported with.
class OptionWindowsTest : public MainFixture {
protected:
    void SetUp() override {
        furnish();
        start();
    }
    void plotNothing() {
        answerMessage("Tovrel found nothing to display.");
        pick("mnuLoadADIF");
        EXPECT_FALSE(plotOnMap());
    }
};

TEST_F(OptionWindowsTest, ApplyReachesTheSettingsAndTheNextPlotAndTheCloseBoxNeither) {
    struct Map {
        const char *item, *window, *section, *otherSection;
    };
    for (const Map& at : {Map{"mnuGreatCircle", "frmGCMapOptions", "GCMapOptions", "MCMapOptions"},
                          Map{"mnuMiller", "frmMCMapOptions", "MCMapOptions", "GCMapOptions"}}) {
        SCOPED_TRACE(at.item);
        pick(at.item);
        pick("mnuPlotOptions");
        QWidget& options = window(at.window);
        click(options, "chkBand(9)");
        plotNothing(); // options count while they are shown, applied or not
        options.close();
        EXPECT_EQ(setting(at.section, "Band9"), "0");
        pick("mnuLoadADIF");
        const int large = pixels(colourOf(MapColour::Confirmed));
        EXPECT_GT(large, 0) << "closed, the window has dropped them";

        pick("mnuPlotOptions");
        EXPECT_TRUE(checked(options, "chkBand(0)"));
        EXPECT_TRUE(checked(options, "Option3"));
        click(options, "chkBand(7)");
        click(options, "Option1");
        click(options, "chkCountry");
        click(options, "cmdApply");
        EXPECT_FALSE(options.isVisible());
        EXPECT_EQ(setting(at.section, "Band0") + setting(at.section, "Band7"), "01");
        EXPECT_EQ(setting(at.section, "Marker") + setting(at.section, "Country"), "Small1");
        EXPECT_EQ(setting(at.otherSection, "Band9") + setting(at.otherSection, "Band0"),
                  at.section[0] == 'G' ? "01" : "00");
        pick("mnuView_Stats");
        EXPECT_EQ(control<QPlainTextEdit>(window("frmMapStats"), "txtBand").toPlainText(),
                  "BAND\n--------\n20M\n");
        EXPECT_EQ(pixels(colourOf(MapColour::Confirmed)), large) << "nothing is plotted again";
        pick("mnuLoadADIF");
        EXPECT_LT(pixels(colourOf(MapColour::Confirmed)), large);
        EXPECT_TRUE(plotOnMap());
    }
}

TEST_F(OptionWindowsTest, TheExportFollowsItsWindowAndLeavesTheArchiveBesideTheChosenLog) {
    std::filesystem::rename(folder_.path("log.adi"), folder_.path("other.adi"));
    pick("mnuGoogleMapOptions");
    QWidget& options = window("frmGoogleMapOptions");
    click(options, "chkBand(9)");
    click(options, "optSmallMarker");
    options.close();
    EXPECT_EQ(setting("GoogleMapOptions", "Band9"), "0");
    EXPECT_EQ(setting("GoogleMapOptions", "Marker"), "Small") << "a marker is stored at once";

    chooseFile("other.adi", "Load Log Input File");
    pick("mnuOpenADIFFile");
    EXPECT_EQ(setting("Log", "adifile"), folder_.path("other.adi"));
    EXPECT_FALSE(plotOnMap()) << "nothing is plotted yet";
    answerMessage("Google Earth File: ", QMessageBox::No);
    pick("mnuGoogle");
    EXPECT_FALSE(std::filesystem::exists(folder_.path("other.kml")));
    const std::string document = firstEntryOf(folder_.read("other.kmz"));
    EXPECT_NE(document.find("<name>K1AB</name>"), std::string::npos);
    EXPECT_NE(document.find("<scale>0.33</scale>"), std::string::npos);

    pick("mnuGoogleMapOptions");
    click(options, "chkCall");
    click(options, "chkBand(7)");
    click(options, "cmdApply");
    EXPECT_FALSE(options.isVisible());
    EXPECT_EQ(setting("GoogleMapOptions", "Band7") + setting("GoogleMapOptions", "Call"), "10");

    pick("mnuGoogleMapOptions");
    click(options, "chkMode(1)"); // not applied, and seen by the export all the same
    answerMessage("There were no QSOs matching your filter selections.");
    pick("mnuGoogle");
}

TEST_F(OptionWindowsTest, BelongToTheMapInForceAndLeaveTheMainWindowInUse) {
    pick("mnuMiller");
    for (const char* item : {"mnuPlotOptions", "mnuGoogleMapOptions", "mnuInfo", "mnuAbout"})
        pick(item);
    for (const char* name : {"frmMCMapOptions", "frmGoogleMapOptions", "frmInfoInput", "frmAbout"})
        EXPECT_TRUE(window(name).isVisible()) << name;
    for (const QWidget* other : QApplication::topLevelWidgets())
        EXPECT_TRUE(other->isHidden() || other->objectName() != "frmGCMapOptions");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    const QPoint off =
        window("frmAbout").frameGeometry().center() - main_->screen()->geometry().center();
    EXPECT_LE(off.manhattanLength(), 2) << "in the middle of the screen";
}

TEST_F(OptionWindowsTest, OpenWithTheFocusOnTheirFirstFieldAndComeBackAsTheyAre) {
    const struct {
        const char *item, *window, *first;
    } rows[] = {{"mnuPlotOptions", "frmGCMapOptions", "chkBand(0)"},
                {"mnuGoogleMapOptions", "frmGoogleMapOptions", "chkBand(0)"},
                {"mnuInfo", "frmInfoInput", "txtCallSign"},
                {"mnuAbout", "frmAbout", "cmdOK"}};
    for (const auto& row : rows) {
        for (int opened = 0; opened < 2; ++opened) {
            pick(row.item);
            QWidget& dialog = window(row.window);
            ASSERT_TRUE(dialog.focusWidget()) << row.window;
            EXPECT_EQ(dialog.focusWidget()->objectName(), row.first) << row.window;
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
            pick(row.item);
            EXPECT_NE(dialog.focusWidget()->objectName(), row.first) << "open, it is left alone";
            dialog.close();
        }
    }
    pick("mnuInfo");
    auto& call = control<QLineEdit>(window("frmInfoInput"), "txtCallSign");
    call.setText("half typed");
    pick("mnuInfo");
    EXPECT_EQ(call.text(), "half typed");
    window("frmInfoInput").close();
    pick("mnuInfo");
    EXPECT_EQ(call.text(), "W1TVR") << "closed, it is dropped";
}

} // namespace
} // namespace tovrel
