#include "app/MainFixture.h"

#include <QDesktopServices>
#include <QDir>
#include <QTextBrowser>

namespace tovrel {
namespace {

/// That each item of the menu runs its command, and the windows that a command asks in. What the
/// commands do is tested without a window.
class CommandsByMenuTest : public MainFixture {
protected:
    void SetUp() override {
        furnish();
        start();
    }
};

TEST_F(CommandsByMenuTest, ItemsRunTheirCommandsAndShowTheirMarks) {
    const char* const map = "GCMapOptions";
    const char* const miller = "MCMapOptions";
    const QColor green("#c0ffc0"); // the land at first
    const QColor red(0xE0, 0x10, 0x20);
    const QColor violet(0x30, 0x10, 0x60);
    const struct {
        const char *item, *section, *key, *stored;
        bool checked, plotStays, timer;
        QColor before{}, chosen{};
    } rows[] = {
        {"mnuShowMe", map, "ShowMe", "False", false, true, false},
        {"mnuMeridian", map, "Meridian", "True", true, true, false},
        {"mnuMeridian", map, "Meridian", "False", false, true, false},
        {"mnuShowCompass", map, "ShowComp", "False", false, false, false},
        {"mnuShowCompass", map, "ShowComp", "True", true, false, false},
        {"mnuBoldCompass", map, "CompBold", "True", true, false, false},
        {"mnuBoldCompass", map, "CompBold", "True", true, false, false},
        {"mnuLightCompass", map, "CompBold", "False", true, false, false},
        {"mnu45Degrees", map, "45Deg", "True", true, false, false},
        {"mnu15Degrees", map, "45Deg", "False", true, false, false},
        {"mnuAnyLogger", "Log", "LogFormat", "ADIF", true, true, false},
        {"mnuPlaceByCountry", "Log", "PlaceByCountry", "False", false, true, false},
        {"mnuLogger32", "Log", "LogFormat", "Logger32", true, true, false},
        {"mnuMiller", "Globals", "Display", "Miller", true, true, false},
        // Cancelled; the same colour, which is stored and rebuilds nothing; others.
        {"mnuChangeLandColor", miller, "LandColor", "", false, true, false, green},
        {"mnuChangeLandColor", miller, "LandColor", "12648384", false, true, false, green, green},
        {"mnuChangeLandColor", miller, "LandColor", "2101472", false, false, true, green, red},
        {"mnuChangeWaterColor", miller, "WaterColor", "6295600", false, false, true, "#a5cdfe",
         violet},
        {"mnuChangeWaterColor", miller, "WaterColor", "6295600", false, true, false, violet},
        {"mnuResetBaseColors", miller, "LandColor", "12648384", false, false, true},
        {"mnuGreatCircle", "Globals", "Display", "Azimuthal", true, true, false},
        {"mnuRecreateMap", map, "Line", "1", false, false, true},
        {"mnuClearMap", map, "LandColor", "", false, false, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.item);
        pick("mnuLoadADIF");
        ASSERT_TRUE(plotOnMap());
        if (row.before.isValid())
            chooseColour(row.before, row.chosen);
        pick(row.item);
        EXPECT_EQ(setting(row.section, row.key), row.stored);
        EXPECT_EQ(item(row.item).isChecked(), row.checked);
        EXPECT_EQ(plotOnMap(), row.plotStays);
        EXPECT_EQ(main_->findChild<QTimer*>("Timer1")->isActive(), row.timer);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "the wait pointer stays";
        EXPECT_GT(row.chosen.isValid() ? pixels(row.chosen) : 1001, 1000);
    }
    EXPECT_FALSE(item("mnuPlaceByCountry").isEnabled()) << "with Logger32";
    data_->lneGCPlotLine.show({});
    pick("mnuHidePlotLine");
    EXPECT_FALSE(data_->lneGCPlotLine.shape().visible);
    answerMessage("TovrelAP_");
    pick("mnuSaveMap");
    EXPECT_NE(folder_.names().find("TovrelAP_"), std::string::npos);
}

TEST_F(CommandsByMenuTest, TheReliefIsAskedForAndShowsTheCustomMap) {
    const QColor earth(0x80, 0x80, 0x10);
    const QImage picture = plainImage(360, 180, colourOfImage(earth.rgb()));
    ASSERT_TRUE(picture.save(QString::fromStdString(folder_.path("earth.bmp"))));
    chooseFile("earth.bmp", "Select Base Map for Azimuthal Equidistant Projection");
    pick("mnuLoadCustomMap");
    EXPECT_EQ(setting("GCMapOptions", "BaseMap"), folder_.path("earth.bmp"));
    for (const bool agreed : {false, true}) {
        answerMessage("This is very complicated.", agreed ? QMessageBox::Ok : QMessageBox::Cancel);
        pick("mnuTopo");
        EXPECT_EQ(item("mnuTopo").isChecked(), agreed);
        EXPECT_EQ(pixels(earth) > 100, agreed);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    }
}

TEST_F(CommandsByMenuTest, HelpOpensTheGuideInWhateverCase) {
    QTextBrowser viewer; // the system's one
    QDesktopServices::setUrlHandler("file", &viewer, "setSource");
    pick("mnuHelp");
    EXPECT_TRUE(viewer.source().isEmpty()) << "no guide, no message";
    const std::string guide = folder_.write("tovrel-HELP.PDF", "%PDF-1.4\n");
    pick("mnuHelp");
    EXPECT_EQ(viewer.source().toLocalFile(),
              QDir::fromNativeSeparators(QString::fromStdString(guide)));
    QDesktopServices::unsetUrlHandler("file");
    // The platform of the tests opens nothing.
    answerMessage("No program could be started to show the help file:");
    pick("mnuHelp");
}

} // namespace
} // namespace tovrel
