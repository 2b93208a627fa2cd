#include "app/MainFixture.h"

namespace tovrel {
namespace {

/// A run of the whole program: its start, what the user does during a pass, and its end.
class RunTest : public MainFixture {
protected:
    static constexpr int longLog = 20000; // records: the pass lets events run many times

    void startWithLongLog() {
        furnish(longLog);
        start();
    }

    /// Acts in the midst of the pass that `mnuLoadADIF` runs.
    void plotAnd(std::function<void()> act) {
        bool acted = false;
        QTimer::singleShot(0, main_.get(), [&acted, act = std::move(act)] {
            acted = true;
            act();
        });
        pick("mnuLoadADIF");
        EXPECT_TRUE(acted) << "the pass has let no events run";
    }
    int read() const { return data_->tables.counters.QsosRead; }
};

TEST_F(RunTest, BeginsInAnEmptyFolderWithTheQuestionForTheStation) {
    copyData();
    answer([this](QDialog& dialog) {
        EXPECT_EQ(dialog.objectName(), "frmInfoInput");
        EXPECT_TRUE(dialog.isModal());
        EXPECT_FALSE(main_->isVisible());
        EXPECT_EQ(folder_.names(), "Tovrel.ini mapper.pnt paintma.txt ");
        control<QLineEdit>(dialog, "txtLatitude").setText("-15.5");
        control<QLineEdit>(dialog, "txtLongitude").setText("47.5");
        click(dialog, "cmdInfoApply");
    });
    start();
    EXPECT_TRUE(main_->isVisible());
    EXPECT_EQ(main_->windowTitle(), "Tovrel - Azimuthal Equidistant Projection");
    EXPECT_FLOAT_EQ(data_->run.HomeLatitude, -15.5F);
    EXPECT_EQ(folder_.names(), "GCBaseMap.map TVADIF.txt Tovrel.ini mapper.pnt paintma.txt ");
    EXPECT_GT(pixels(QColor(0xC0, 0xFF, 0xC0)), 1000) << "land";
    EXPECT_GT(pixels(QColor(0xA5, 0xCD, 0xFE)), 1000) << "water";
}

TEST_F(RunTest, AStartOnTheMillerMapDrawsTheHomeMarkInThatMapsColour) {
    furnish();
    folder_.write("Tovrel.ini", "[Globals]\r\nDisplay=Miller\r\n[GCMapOptions]\r\n"
                                "QTHColor=1193046\r\n[MCMapOptions]\r\nQTHColor=6636321\r\n");
    start();
    EXPECT_GT(pixels(QColor(0x21, 0x43, 0x65)), 0);
    EXPECT_EQ(pixels(QColor(0x56, 0x34, 0x12)), 0);
    EXPECT_EQ(data_->stats.legend().colour(MapColour::Home), 0x123456U);
}

TEST_F(RunTest, ACommandPickedDuringAPassWaitsAndRunsOnce) {
    startWithLongLog();
    const bool before = data_->run.marks.mnuMeridian;
    plotAnd([this, before] {
        pick("mnuMeridian");
        pick("mnuMeridian");
        EXPECT_EQ(data_->run.marks.mnuMeridian, before);
        EXPECT_EQ(item("mnuMeridian").isChecked(), before);
    });
    EXPECT_EQ(read(), longLog);
    EXPECT_EQ(data_->run.marks.mnuMeridian, !before);
    EXPECT_TRUE(plotOnMap());
}

TEST_F(RunTest, AbortStopsThePassWithABareMap) {
    startWithLongLog();
    plotAnd([this] { pick("mnuAbort"); });
    EXPECT_LT(read(), longLog);
    EXPECT_FALSE(plotOnMap());
    EXPECT_FALSE(data_->run.AbortRequested);
    EXPECT_TRUE(window("frmGCMapCalculations").isVisible());
    pick("mnuLoadADIF");
    EXPECT_EQ(read(), longLog);
    EXPECT_TRUE(plotOnMap());
}

TEST_F(RunTest, ClosingDuringAPassAbortsItAndClosesAfterIt) {
    startWithLongLog();
    plotAnd([this] {
        main_->close();
        EXPECT_TRUE(main_->isVisible());
    });
    EXPECT_LT(read(), longLog);
    EXPECT_FALSE(main_->isVisible());
    EXPECT_FALSE(window("frmGCMapCalculations").isVisible());
}

TEST_F(RunTest, ClosingDropsTheCommandThatWaits) {
    startWithLongLog();
    plotAnd([this] {
        pick("mnuRecreateMap");
        main_->close();
    });
    EXPECT_FALSE(main_->isVisible());
    EXPECT_FALSE(main_->findChild<QTimer*>("Timer1")->isActive());
}

TEST_F(RunTest, ANewSizeDuringAPassShapesTheMapBeforeItsMarks) {
    startWithLongLog();
    const QSize before = main_->centralWidget()->size();
    plotAnd([this] { main_->resize(main_->size() + QSize(60, 60)); });
    EXPECT_EQ(read(), longLog);
    EXPECT_EQ(data_->tables.counters.QsosPlotted, longLog);
    EXPECT_NE(main_->centralWidget()->size(), before);
    EXPECT_TRUE(plotOnMap());
    QTest::qWait(300); // the answers of the window system
    EXPECT_TRUE(plotOnMap());
}

TEST_F(RunTest, StatisticsStandLevelWithTheMainWindow) {
    furnish();
    start();
    const QRect before = main_->frameGeometry();
    pick("mnuView_Stats");
    const QRect main = main_->frameGeometry();
    const QRect stats = window("frmMapStats").frameGeometry();
    EXPECT_EQ(main.left(), before.left() - stats.width() / 2);
    EXPECT_EQ(stats.left(), main.right() + 1);
    EXPECT_EQ(stats.top(), main.top());
    EXPECT_EQ(stats.height(), main.height());
    pick("mnuView_Stats");
    EXPECT_EQ(main_->frameGeometry(), main) << "the open window is left alone";
}

TEST_F(RunTest, SwitchingTheProjectionOpensTheStatisticsAfreshInItsColours) {
    furnish();
    start();
    data_->ini.WriteIniValue("MCMapOptions", "ConfirmedColor", "1193046"); // 0x123456
    pick("mnuLoadADIF");
    pick("mnuView_Stats");
    pick("mnuMiller");
    EXPECT_TRUE(window("frmMapStats").isVisible());
    EXPECT_EQ(control(window("frmMapStats"), "cmdConfirmed").accessibleDescription(), "#563412");
    EXPECT_GT(pixels(QColor(0x56, 0x34, 0x12)), 0) << "the plot comes back in its new colour";
    EXPECT_EQ(main_->windowTitle(), "Tovrel - Miller Cylindrical Projection");
    EXPECT_FALSE(item("mnuCompass").isEnabled());
    pick("mnuGreatCircle");
    EXPECT_TRUE(plotOnMap());
    EXPECT_TRUE(item("mnuCompass").isEnabled());
}

TEST_F(RunTest, ClosingStoresTheSizeOfTheWindowWithItsFrame) {
    furnish();
    start();
    main_->resize(main_->width() + 45, main_->height() + 45);
    QTest::qWait(600);
    const int height = main_->frameGeometry().height();
    main_->close();
    EXPECT_EQ(setting("Globals", "GCHeight"), std::to_string(height * 15));
}

} // namespace
} // namespace tovrel
