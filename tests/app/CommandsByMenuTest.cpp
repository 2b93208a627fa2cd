#include "app/MainFixture.h"

#include <QColorDialog>
#include <QDesktopServices>
#include <QScreen>
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
    void chooseColour(const QColor& colour) {
        answerA<QColorDialog>([colour](QColorDialog& dialog) {
            dialog.setCurrentColor(colour);
            dialog.accept();
        });
    }
};

TEST_F(CommandsByMenuTest, ItemsRunTheirCommandsAndShowTheirMarks) {
    struct Row {
        const char *item, *section, *key, *stored;
        bool checked, plotStays;
    };
    const char* const map = "GCMapOptions";
    for (const Row& row : {Row{"mnuShowMe", map, "ShowMe", "False", false, true},
                           Row{"mnuMeridian", map, "Meridian", "True", true, true},
                           Row{"mnuMeridian", map, "Meridian", "False", false, true},
                           Row{"mnuShowCompass", map, "ShowComp", "False", false, false},
                           Row{"mnuShowCompass", map, "ShowComp", "True", true, false},
                           Row{"mnuBoldCompass", map, "CompBold", "True", true, false},
                           Row{"mnuBoldCompass", map, "CompBold", "True", true, false},
                           Row{"mnuLightCompass", map, "CompBold", "False", true, false},
                           Row{"mnu45Degrees", map, "45Deg", "True", true, false},
                           Row{"mnu15Degrees", map, "45Deg", "False", true, false},
                           Row{"mnuMiller", "Globals", "Display", "Miller", true, true},
                           Row{"mnuGreatCircle", "Globals", "Display", "Azimuthal", true, true},
                           Row{"mnuResetBaseColors", map, "LandColor", "12648384", false, false},
                           Row{"mnuClearMap", map, "LandColor", "12648384", false, false}}) {
        SCOPED_TRACE(row.item);
        pick("mnuLoadADIF");
        ASSERT_TRUE(plotOnMap());
        pick(row.item);
        EXPECT_EQ(setting(row.section, row.key), row.stored);
        EXPECT_EQ(item(row.item).isChecked(), row.checked);
        EXPECT_EQ(plotOnMap(), row.plotStays);
    }
    data_->lneGCPlotLine.show({});
    pick("mnuHidePlotLine");
    EXPECT_FALSE(data_->lneGCPlotLine.shape().visible);
}

TEST_F(CommandsByMenuTest, LandAndWaterTakeTheColourThatIsChosen) {
    const QColor red(0xE0, 0x10, 0x20);
    const QColor violet(0x30, 0x10, 0x60);
    chooseColour(red);
    pick("mnuChangeLandColor");
    chooseColour(violet);
    pick("mnuChangeWaterColor");
    EXPECT_EQ(setting("GCMapOptions", "LandColor"), std::to_string(0x2010E0));
    EXPECT_EQ(setting("GCMapOptions", "WaterColor"), std::to_string(0x601030));
    EXPECT_GT(pixels(red), 1000);
    EXPECT_GT(pixels(violet), 1000);
    cancelNext();
    pick("mnuChangeWaterColor");
    EXPECT_EQ(setting("GCMapOptions", "WaterColor"), std::to_string(0x601030));
}

TEST_F(CommandsByMenuTest, OpenAdifFileStoresTheLogAndPlotsNothing) {
    answerA<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.nameFilters(), QStringList({"ADIF Files (*.ADI) (*.ADI)"}));
        dialog.reject();
    });
    pick("mnuOpenADIFFile");
    EXPECT_EQ(data_->run.LogFileName, folder_.path("log.adi"));
    const std::string other = folder_.write("OTHER.ADI", "<EOH>\r\n");
    chooseFile("OTHER.ADI", "Load Log Input File");
    pick("mnuOpenADIFFile");
    EXPECT_EQ(setting("Log", "adifile"), other);
    EXPECT_FALSE(data_->run.MapPlotted);
}

TEST_F(CommandsByMenuTest, TheReliefIsAskedForAndShowsTheCustomMap) {
    QImage picture(1440, 720, QImage::Format_RGB32);
    picture.fill(Qt::darkYellow);
    ASSERT_TRUE(picture.save(QString::fromStdString(folder_.path("earth.bmp"))));
    cancelNext();
    pick("mnuLoadCustomMap");
    EXPECT_EQ(setting("GCMapOptions", "BaseMap"), "");
    chooseFile("earth.bmp", "Select Base Map for Azimuthal Equidistant Projection");
    pick("mnuLoadCustomMap");
    EXPECT_EQ(setting("GCMapOptions", "BaseMap"), folder_.path("earth.bmp"));
    for (const bool agreed : {false, true}) {
        answerMessage("This is very complicated.", agreed ? QMessageBox::Ok : QMessageBox::Cancel);
        pick("mnuTopo");
        EXPECT_EQ(item("mnuTopo").isChecked(), agreed);
        EXPECT_EQ(pixels(Qt::darkYellow) > 100, agreed);
    }
}

TEST_F(CommandsByMenuTest, RecreateMapStartsTheTimerAndAPlotStopsIt) {
    auto* const timer = main_->findChild<QTimer*>("Timer1");
    ASSERT_TRUE(timer);
    EXPECT_FALSE(timer->isActive());
    pick("mnuRecreateMap");
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 60000);
    pick("mnuLoadADIF");
    EXPECT_FALSE(timer->isActive());
}

TEST_F(CommandsByMenuTest, SaveMapWritesAPictureAndNamesIt) {
    answerMessage("TovrelAP_");
    pick("mnuSaveMap");
    const std::string saved = folder_.names().substr(folder_.names().find("TovrelAP_"));
    const QImage picture(QString::fromStdString(folder_.path(saved.substr(0, saved.find(' ')))));
    EXPECT_EQ(picture.height(), map().height());
}

TEST_F(CommandsByMenuTest, HelpOpensTheGuideInWhateverCase) {
    QTextBrowser viewer; // the system's one
    QDesktopServices::setUrlHandler("file", &viewer, "setSource");
    pick("mnuHelp");
    EXPECT_TRUE(viewer.source().isEmpty()) << "no guide, no message";
    const std::string guide = folder_.write("tovrel-HELP.PDF", "%PDF-1.4\n");
    pick("mnuHelp");
    EXPECT_EQ(viewer.source().toLocalFile().toStdString(), guide);
    QDesktopServices::unsetUrlHandler("file");
    // The platform of the tests opens nothing.
    answerMessage("No program could be started to show the help file:");
    pick("mnuHelp");
}

TEST_F(CommandsByMenuTest, AboutStandsInTheMiddleOfTheScreen) {
    pick("mnuAbout");
    const QRect screen = main_->screen()->geometry();
    const QRect frame = window("frmAbout").frameGeometry();
    EXPECT_EQ(frame.left(), (screen.width() - frame.width()) / 2);
    EXPECT_EQ(frame.top(), (screen.height() - frame.height()) / 2);
}

} // namespace
} // namespace tovrel
