#include "app/MainFixture.h"
#include "stats/frmItemList.h"
#include "stats/frmTabStrip.h"

#include <QEnterEvent>
#include <QScreen>

namespace tovrel {
namespace {

/// A run of the whole program: its start, what the user does during a pass and beside one, and its
/// end.
class RunTest : public MainFixture {
protected:
    static constexpr int longLog = 20000; // records: the pass lets events run many times

    /// @param globals further settings of the section that all maps share
    void startWith(const std::string& globals, const std::string& sections = {}) {
        furnish();
        const std::string settings = folder_.read("Tovrel.ini");
        const std::string head = "[Globals]\r\n";
        folder_.write("Tovrel.ini", head + globals + settings.substr(head.size()) + sections);
        start();
    }
    /// Acts in the midst of the pass over a long log that `mnuLoadADIF` runs.
    void plotAnd(std::function<void()> act) {
        furnish(longLog);
        start();
        bool acted = false;
        QTimer::singleShot(0, main_.get(), [&acted, act = std::move(act)] {
            acted = true;
            act();
        });
        pick("mnuLoadADIF");
        EXPECT_TRUE(acted) << "the pass has let no events run";
    }
    int read() const { return data_->tables.counters.QsosRead; }
    /// The user has let the edge of the window go: the pointer is over the map.
    void letGo() {
        QApplication::processEvents();
        QEnterEvent enter(QPointF(9, 9), QPointF(9, 9), QPointF(9, 9));
        QApplication::sendEvent(main_.get(), &enter);
        QApplication::processEvents();
    }
    /// The first words of a list's items, each with a blank after it.
    std::string words(const char* list) {
        const auto& model = *control<frmItemList>(window("frmMapStats"), list).model();
        std::string all;
        for (int row = 0; row < model.rowCount(); ++row) {
            const QString text = model.index(row, 0).data().toString().trimmed();
            all += text.section(QLatin1Char(' '), 0, 0).toStdString() + " ";
        }
        return all;
    }
};

TEST_F(RunTest, BeginsInAnEmptyFolderWithTheQuestionForTheStation) {
    copySupplied(folder_);
    answer([this](QDialog& dialog) {
        EXPECT_EQ(dialog.objectName(), "frmInfoInput");
        EXPECT_TRUE(dialog.isModal());
        EXPECT_FALSE(main_->isVisible());
        control<QLineEdit>(dialog, "txtLatitude").setText("-15.5");
        control<QLineEdit>(dialog, "txtLongitude").setText("47.5");
        click(dialog, "cmdInfoApply");
    });
    start();
    EXPECT_TRUE(main_->isVisible());
    EXPECT_EQ(main_->windowTitle(), "Tovrel - Azimuthal Equidistant Projection");
    EXPECT_FLOAT_EQ(data_->run.HomeLatitude, -15.5F);
    for (const MapColour base : {MapColour::Land, MapColour::Water})
        EXPECT_GT(pixels(QColor::fromRgb(imageColour(keyOf(base).byDefault))), 1000);
}

TEST_F(RunTest, AStartOnTheMillerMapDrawsTheHomeMarkInThatMapsColour) {
    startWith("Display=Miller\r\n", "[GCMapOptions]\r\nQTHColor=1193046\r\n"
                                    "[MCMapOptions]\r\nQTHColor=6636321\r\n");
    EXPECT_GT(pixels(QColor::fromRgb(imageColour(6636321))), 0);
    EXPECT_EQ(pixels(colourOf(MapColour::Home)), 0);
    EXPECT_EQ(data_->stats.legend().colour(MapColour::Home), 1193046U);
}

TEST_F(RunTest, AStoredSizeIsHeldBetweenTheMenuAndTheScreen) {
    for (const std::string height : {"100", "90000"}) {
        startWith("GCHeight=" + height + "\r\n");
        EXPECT_GE(main_->width(), main_->menuBar()->sizeHint().width()) << height;
        const QSize outer = main_->frameGeometry().size();
        EXPECT_EQ(outer, outer.boundedTo(main_->screen()->availableSize())) << height;
    }
}

TEST_F(RunTest, ACommandPickedDuringAPassWaitsAndRunsOnceAndATickOfTheTimerIsDropped) {
    plotAnd([this] {
        EXPECT_TRUE(window("frmGCMapCalculations").isVisible());
        QMetaObject::invokeMethod(main_->findChild<QTimer*>("Timer1"), "timeout");
        pick("mnuMeridian");
        pick("mnuMeridian");
        EXPECT_FALSE(data_->run.marks.mnuMeridian || item("mnuMeridian").isChecked());
    });
    EXPECT_EQ(read(), longLog);
    EXPECT_TRUE(data_->run.marks.mnuMeridian && plotOnMap());
    EXPECT_FALSE(window("frmGCMapCalculations").isVisible());
}

TEST_F(RunTest, AbortStopsThePassWithABareMap) {
    plotAnd([this] {
        main_->findChild<QTimer*>("Timer1")->start();
        pick("mnuAbort");
    });
    EXPECT_LT(read(), longLog);
    EXPECT_TRUE(main_->findChild<QTimer*>("Timer1")->isActive());
    EXPECT_FALSE(plotOnMap() || data_->run.AbortRequested);
    EXPECT_TRUE(window("frmGCMapCalculations").isVisible());
    pick("mnuLoadADIF");
    EXPECT_EQ(read(), longLog);
    EXPECT_TRUE(plotOnMap());
}

TEST_F(RunTest, ClosingDuringAPassAbortsItAndClosesAfterItWithoutTheCommandThatWaits) {
    plotAnd([this] {
        pick("mnuRecreateMap");
        main_->close();
        EXPECT_TRUE(main_->isVisible());
    });
    EXPECT_LT(read(), longLog);
    EXPECT_FALSE(main_->isVisible() || window("frmGCMapCalculations").isVisible());
    EXPECT_FALSE(main_->findChild<QTimer*>("Timer1")->isActive());
}

TEST_F(RunTest, ANewSizeDuringAPassShapesTheMapBeforeItsMarks) {
    QSize before;
    plotAnd([this, &before] {
        before = main_->centralWidget()->size();
        main_->resize(main_->size() + QSize(60, 0));
    });
    EXPECT_EQ(data_->tables.counters.QsosPlotted, longLog);
    EXPECT_NE(main_->centralWidget()->size(), before);
    EXPECT_TRUE(plotOnMap());
    letGo();
    EXPECT_TRUE(plotOnMap());
}

TEST_F(RunTest, TheStatisticsHoldOnePlotAndGoAlongWithTheMainWindow) {
    startWith("", "[GCMapOptions]\r\nLine=3\r\nLineColor=1193046\r\n");
    const std::string confirmed = adif("QSL_RCVD", "Y");
    folder_.write("log.adi", record({"C1C", "-15.5", "72.7", "20M", "CW", "", confirmed}) +
                                 record({"W1W", "10", "20"}) + record({"H1H=", "20", "-30"}) +
                                 record({"N1N"}));
    pick("mnuMeridian");
    pick("mnuLoadADIF");
    pick("mnuLoadADIF");
    const QRect before = main_->frameGeometry();
    pick("mnuView_Stats");
    EXPECT_EQ(words("lstConfirmed") + words("lstWorked") + words("lstHeard"), "C1C W1W H1H= ");
    EXPECT_EQ(words("lstPfxNotPlotted"), "N1N ");
    EXPECT_EQ(words("lstStats"), "4 -------------------- 3 1 1 1 -------------------- 1 ");
    QWidget& stats = window("frmMapStats");
    EXPECT_EQ(main_->frameGeometry().left(), before.left() - stats.frameGeometry().width() / 2);
    EXPECT_EQ(stats.frameGeometry().topLeft(), main_->frameGeometry().topRight() + QPoint(1, 0));

    // The line runs down from home in the middle of the map: the station lies south of it.
    auto& list = control<frmItemList>(stats, "lstConfirmed");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, {9, 9});
    const Ink line = ink(colourOf(MapColour::Line));
    const Ink mark = ink(colourOf(MapColour::Confirmed));
    EXPECT_TRUE(line.width() == 2 || line.width() == 3) << line.width();
    EXPECT_NEAR(line.top, map().height() / 2, 3);
    EXPECT_NEAR(line.bottom, (mark.top + mark.bottom) / 2, 3);

    control<frmTabStrip>(stats, "tabStats").choose(5);
    chooseColour(colourOf(MapColour::Worked), Qt::magenta);
    click(stats, "cmdWorked");
    EXPECT_TRUE(plotOnMap()) << "a new colour waits for the next plot";
    chooseColour(colourOf(MapColour::Meridian), Qt::magenta);
    click(stats, "cmdMeridian");
    EXPECT_GT(pixels(Qt::magenta), 100) << "new meridians are drawn at once";

    main_->showMinimized();
    EXPECT_FALSE(stats.isVisible());
    main_->showNormal();
    EXPECT_TRUE(stats.isVisible());
}

TEST_F(RunTest, SwitchingTheProjectionOpensTheStatisticsAfreshInItsColours) {
    startWith("", "[MCMapOptions]\r\nConfirmedColor=1193046\r\n");
    pick("mnuLoadADIF");
    pick("mnuView_Stats");
    pick("mnuMiller");
    EXPECT_TRUE(window("frmMapStats").isVisible());
    EXPECT_EQ(control(window("frmMapStats"), "cmdConfirmed").accessibleDescription(),
              colourOf(MapColour::Confirmed).name());
    EXPECT_TRUE(plotOnMap()) << "it comes back in its new colour";
    control<frmTabStrip>(window("frmMapStats"), "tabStats").choose(5);
    chooseColour(colourOf(MapColour::Meridian), {}); // cancelled
    click(window("frmMapStats"), "cmdMeridian");
    EXPECT_TRUE(plotOnMap());
    EXPECT_EQ(setting("MCMapOptions", "MeridianColor"), "8421504");
    chooseColour(colourOf(MapColour::Heard), Qt::magenta);
    click(window("frmMapStats"), "cmdHeard");
    EXPECT_EQ(setting("MCMapOptions", "HeardColor"), "16711935");
    EXPECT_EQ(data_->stats.legend().colour(MapColour::Heard), 16711935U);
    EXPECT_FALSE(item("mnuCompass").isEnabled());
    pick("mnuGreatCircle");
    EXPECT_TRUE(plotOnMap());
    EXPECT_TRUE(item("mnuCompass").isEnabled());
}

TEST_F(RunTest, ClosingStoresTheSizeOfTheWindowWithItsFrameOrTellsThatItCant) {
    furnish();
    start();
    main_->resize(main_->size() + QSize(45, 45));
    letGo();
    const std::string height = std::to_string(main_->frameGeometry().height() * 15);
    main_->close();
    EXPECT_EQ(setting("Globals", "GCHeight"), height);
    start();
    EXPECT_EQ(std::to_string(main_->frameGeometry().height() * 15), height);
}

} // namespace
} // namespace tovrel
