#include "app/MainFixture.h"
#include "state/GoogleMapOptions.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QDesktopServices>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QTextBrowser>
#include <array>

namespace tovrel {
namespace {

class CommandsByMenuTest : public MainFixture {
protected:
    void SetUp() override {
        furnish();
        start();
    }
    void chooseColour(const QColor& colour) {
        answer([colour](QDialog& dialog) {
            auto& colours = dynamic_cast<QColorDialog&>(dialog);
            colours.setCurrentColor(colour);
            colours.accept();
        });
    }
    void chooseFile(const QString& file, const QString& title) {
        answer([file, title](QDialog& dialog) {
            auto& files = dynamic_cast<QFileDialog&>(dialog);
            EXPECT_EQ(files.windowTitle(), title);
            files.findChild<QLineEdit*>("fileNameEdit")->setText(file);
            dialog.accept();
        });
    }
    /// Answers a message and tells its text.
    void expectMessage(const QString& start, QMessageBox::StandardButton button = QMessageBox::Ok) {
        answer([start, button](QDialog& dialog) {
            auto& box = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_TRUE(box.text().startsWith(start)) << box.text().toStdString();
            box.button(button)->click();
        });
    }
};

struct Toggle {
    const char* item;
    const char* key;
    bool plotStays;
};

TEST_F(CommandsByMenuTest, ChecksSwitchTheirOverlayAndStoreIt) {
    for (const Toggle& toggle :
         {Toggle{"mnuShowMe", "ShowMe", true}, Toggle{"mnuMeridian", "Meridian", true},
          Toggle{"mnuShowCompass", "ShowComp", false}}) {
        SCOPED_TRACE(toggle.item);
        for (int time = 0; time < 2; ++time) {
            pick("mnuLoadADIF");
            ASSERT_TRUE(plotOnMap());
            const bool before = item(toggle.item).isChecked();
            const QImage map1 = map();
            pick(toggle.item);
            EXPECT_EQ(item(toggle.item).isChecked(), !before);
            EXPECT_EQ(setting("GCMapOptions", toggle.key), before ? "False" : "True");
            EXPECT_NE(map(), map1);
            EXPECT_EQ(plotOnMap(), toggle.plotStays);
            EXPECT_TRUE(data_->run.MapPlotted);
        }
    }
}

TEST_F(CommandsByMenuTest, CompassPairsExcludeEachOther) {
    const std::array<std::array<const char*, 4>, 2> pairs = {
        {{"mnuBoldCompass", "CompBold", "mnuLightCompass", "CompNorm"},
         {"mnu15Degrees", "15Deg", "mnu45Degrees", "45Deg"}}};
    if (!item("mnuShowCompass").isChecked()) {
        pick("mnuShowCompass");
    }
    for (const auto& pair : pairs) {
        SCOPED_TRACE(pair[0]);
        pick(pair[0]);
        const QImage one = map();
        pick("mnuLoadADIF");
        pick(pair[2]);
        EXPECT_FALSE(plotOnMap());
        EXPECT_NE(map(), one);
        EXPECT_FALSE(item(pair[0]).isChecked());
        EXPECT_TRUE(item(pair[2]).isChecked());
        EXPECT_EQ(setting("GCMapOptions", pair[1]), "False");
        EXPECT_EQ(setting("GCMapOptions", pair[3]), "True");
        pick(pair[2]);
        EXPECT_TRUE(item(pair[2]).isChecked()) << "picked again it stays";
        pick(pair[0]);
        EXPECT_EQ(map(), one);
        EXPECT_EQ(setting("GCMapOptions", pair[1]), "True");
    }
}

TEST_F(CommandsByMenuTest, ClearMapLeavesNothingToReplot) {
    pick("mnuLoadADIF");
    ASSERT_EQ(data_->stats.lists().lstConfirmed.size(), 3U);
    pick("mnuClearMap");
    EXPECT_FALSE(plotOnMap());
    EXPECT_EQ(data_->stats.lists().lstConfirmed.size(), 0U);
    EXPECT_TRUE(data_->stats.lists().lstStats.empty());
    pick("mnuMeridian");
    pick("mnuMeridian");
    EXPECT_FALSE(plotOnMap());
}

TEST_F(CommandsByMenuTest, HidePlotLineTakesTheLineOff) {
    data_->lneGCPlotLine.show({});
    pick("mnuHidePlotLine");
    EXPECT_FALSE(data_->lneGCPlotLine.shape().visible);
}

TEST_F(CommandsByMenuTest, LandAndWaterTakeTheChosenColourOnTheMapInForce) {
    const QColor red(0xE0, 0x10, 0x20);
    const QColor violet(0x30, 0x10, 0x60);
    chooseColour(red);
    pick("mnuChangeLandColor");
    chooseColour(violet);
    pick("mnuChangeWaterColor");
    EXPECT_EQ(setting("GCMapOptions", "LandColor"), std::to_string(0x2010E0));
    EXPECT_EQ(setting("GCMapOptions", "WaterColor"), std::to_string(0x601030));
    EXPECT_EQ(setting("MCMapOptions", "LandColor"), "");
    EXPECT_GT(pixels(red), 1000);
    EXPECT_GT(pixels(violet), 1000);

    QFile::remove(path("GCBaseMap.map"));
    chooseColour(red);
    pick("mnuChangeLandColor");
    EXPECT_FALSE(QFile::exists(path("GCBaseMap.map"))) << "the same colour rebuilds nothing";
    answer([](QDialog& dialog) { dialog.reject(); });
    pick("mnuChangeWaterColor");
    EXPECT_EQ(setting("GCMapOptions", "WaterColor"), std::to_string(0x601030));

    pick("mnuResetBaseColors");
    EXPECT_TRUE(QFile::exists(path("GCBaseMap.map")));
    EXPECT_EQ(setting("GCMapOptions", "LandColor"), "12648384");
    EXPECT_EQ(setting("GCMapOptions", "WaterColor"), "16698789");
    EXPECT_EQ(pixels(red), 0);
}

TEST_F(CommandsByMenuTest, OpenAdifFileStoresTheLogAndPlotsNothing) {
    const std::string other = text("OTHER.ADI");
    ASSERT_TRUE(writeFile(other, "<EOH>\r\n"));
    answer([](QDialog& dialog) {
        const QStringList filters = dynamic_cast<QFileDialog&>(dialog).nameFilters();
        EXPECT_EQ(filters, QStringList({"ADIF Files (*.ADI)"}));
        dialog.reject();
    });
    pick("mnuOpenADIFFile");
    EXPECT_EQ(data_->run.LogFileName, text("log.adi"));
    chooseFile(path("OTHER.ADI"), "Load Log Input File");
    pick("mnuOpenADIFFile");
    EXPECT_EQ(data_->run.LogFileName, other);
    EXPECT_EQ(setting("Log", "adifile"), other);
    EXPECT_FALSE(data_->run.MapPlotted);
}

TEST_F(CommandsByMenuTest, LoadCustomMapStoresThePictureOfTheMapInForce) {
    QImage picture(1440, 720, QImage::Format_RGB32);
    picture.fill(Qt::darkYellow);
    ASSERT_TRUE(picture.save(path("earth.bmp")));
    answer([](QDialog& dialog) { dialog.reject(); });
    pick("mnuLoadCustomMap");
    EXPECT_EQ(setting("GCMapOptions", "BaseMap"), "");
    chooseFile(path("earth.bmp"), "Select Base Map for Azimuthal Equidistant Projection");
    pick("mnuLoadCustomMap");
    EXPECT_EQ(setting("GCMapOptions", "BaseMap"), text("earth.bmp"));
    EXPECT_EQ(setting("MCMapOptions", "BaseMap"), "");

    expectMessage("This is very complicated.", QMessageBox::Cancel);
    pick("mnuTopo");
    EXPECT_FALSE(item("mnuTopo").isChecked());
    EXPECT_EQ(setting("GCMapOptions", "Topo"), "False");
    expectMessage("This is very complicated.");
    pick("mnuTopo");
    EXPECT_TRUE(item("mnuTopo").isChecked());
    EXPECT_EQ(setting("GCMapOptions", "Topo"), "True");
    EXPECT_GT(pixels(Qt::darkYellow), 100);
}

TEST_F(CommandsByMenuTest, RecreateMapTakesTheNewHomeAndStartsTheTimer) {
    auto* const timer = main_->findChild<QTimer*>("Timer1");
    pick("mnuLoadADIF");
    const QImage before = map();
    data_->ini.WriteIniValue("Globals", "Latitude", "-33.5");
    pick("mnuLoadADIF");
    ASSERT_TRUE(timer);
    EXPECT_FALSE(timer->isActive());
    pick("mnuRecreateMap");
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 60000);
    EXPECT_FLOAT_EQ(data_->run.HomeLatitude, -33.5F);
    EXPECT_FALSE(plotOnMap());
    EXPECT_NE(map(), before);
    pick("mnuLoadADIF");
    EXPECT_TRUE(plotOnMap());
    EXPECT_FALSE(timer->isActive());
}

TEST_F(CommandsByMenuTest, SaveMapWritesAPictureAndNamesIt) {
    QString told;
    answer([&told](QDialog& dialog) {
        told = dynamic_cast<QMessageBox&>(dialog).text();
        dialog.accept();
    });
    const QImage before = map();
    pick("mnuSaveMap");
    const QStringList saved = QDir(folder_.path()).entryList({"TovrelAP_*.bmp"});
    ASSERT_EQ(saved.size(), 1);
    EXPECT_TRUE(told.endsWith(".bmp has been saved.")) << told.toStdString();
    EXPECT_EQ(QImage(folder_.filePath(saved.front())).height(), before.height());
    EXPECT_EQ(map(), before);
}

TEST_F(CommandsByMenuTest, HelpOpensTheGuideInWhateverCase) {
    QTextBrowser viewer; // the system's one
    QDesktopServices::setUrlHandler("file", &viewer, "setSource");
    pick("mnuHelp");
    EXPECT_TRUE(viewer.source().isEmpty()) << "no guide, no message";
    ASSERT_TRUE(writeFile(text("tovrel-HELP.PDF"), "%PDF-1.4\n"));
    pick("mnuHelp");
    EXPECT_EQ(viewer.source().toLocalFile(), path("tovrel-HELP.PDF"));
    QDesktopServices::unsetUrlHandler("file");
    // The platform of the tests opens nothing.
    expectMessage("No program could be started to show the help file:");
    pick("mnuHelp");
}

TEST_F(CommandsByMenuTest, AboutStandsInTheMiddleOfTheScreen) {
    pick("mnuAbout");
    const QWidget* const about = window("frmAbout");
    ASSERT_TRUE(about && about->isVisible());
    EXPECT_FALSE(about->isModal());
    const QRect screen = main_->screen()->geometry();
    const QRect frame = about->frameGeometry();
    EXPECT_EQ(frame.left(), (screen.width() - frame.width()) / 2);
    EXPECT_EQ(frame.top(), (screen.height() - frame.height()) / 2);
}

TEST_F(CommandsByMenuTest, OptionWindowsBelongToTheMapInForceAndLeaveTheMainWindowInUse) {
    pick("mnuPlotOptions");
    EXPECT_TRUE(window("frmGCMapOptions")->isVisible());
    EXPECT_FALSE(window("frmMCMapOptions")->isVisible());
    window("frmGCMapOptions")->close();
    pick("mnuMiller");
    pick("mnuPlotOptions");
    pick("mnuGoogleMapOptions");
    pick("mnuInfo");
    EXPECT_FALSE(window("frmGCMapOptions")->isVisible());
    for (const char* name : {"frmMCMapOptions", "frmGoogleMapOptions", "frmInfoInput"}) {
        EXPECT_TRUE(window(name)->isVisible()) << name;
        EXPECT_FALSE(window(name)->isModal()) << name;
    }
}

TEST_F(CommandsByMenuTest, AltAndALetterOpenAMenuOrRunACommand) {
    main_->activateWindow();
    QApplication::setActiveWindow(main_.get());
    QTest::keyClick(main_.get(), Qt::Key_L, Qt::AltModifier);
    EXPECT_TRUE(plotOnMap());
    QTest::keyClick(main_.get(), Qt::Key_M, Qt::AltModifier);
    ASSERT_TRUE(QApplication::activePopupWidget());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_C);
    EXPECT_FALSE(plotOnMap());
}

} // namespace
} // namespace tovrel
