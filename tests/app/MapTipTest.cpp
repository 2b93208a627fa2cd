#include "app/MainFixture.h"

#include <QToolTip>

namespace tovrel {
namespace {

/// The tool tip, from the pointer on the map to the text on the screen.
class MapTipTest : public MainFixture {
protected:
    /// A log of contacts in one place, which lies off the diagonals of both maps.
    void startWith(const std::vector<std::string>& calls) {
        furnish();
        const std::string more = adif("QSL_RCVD", "Y") + adif("COUNTRY", "R&D &lt;b>");
        std::string log;
        for (const std::string& call : calls)
            log += record({call, "15.5", "-20", "20M", "CW", "", more});
        folder_.write("log.adi", log);
        folder_.write("Tovrel.ini", folder_.read("Tovrel.ini") + "[GCMapOptions]\r\nCall=1\r\n"
                                                                 "[MCMapOptions]\r\nCall=1\r\n");
        start();
        pick("mnuLoadADIF");
    }
    /// Puts the pointer on the dot of the plot.
    void point() {
        const Ink dot = ink(colourOf(MapColour::Confirmed));
        ASSERT_GT(dot.count, 0);
        pointAt({(dot.left + dot.right) / 2, (dot.top + dot.bottom) / 2});
    }
    void pointAt(QPoint place) {
        QMouseEvent move(QEvent::MouseMove, place, main_->centralWidget()->mapToGlobal(place),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(main_->centralWidget(), &move);
    }
    QString tip() { return main_->centralWidget()->toolTip(); }
    void tick(const char* window, const char* box) {
        pick("mnuPlotOptions");
        click(this->window(window), box);
        click(this->window(window), "cmdApply");
    }
};

TEST_F(MapTipTest, NamesTheStationsUnderThePointerOnBothMaps) {
    startWith({"K1AB", "&lt;i>"});
    for (const char* projection : {"mnuGreatCircle", "mnuMiller"}) {
        pick(projection);
        point();
        EXPECT_EQ(tip(), "<p style=\"white-space: pre\">K1AB  &amp;lt;i&gt;  </p>") << projection;
        pointAt({3, 3});
        EXPECT_EQ(tip(), "") << projection;
    }
    tick("frmMCMapOptions", "chkLatLong");
    point();
    EXPECT_TRUE(tip().contains(">[15.5, 20] K1AB")) << tip().toStdString();
    tick("frmMCMapOptions", "chkCountry");
    point();
    EXPECT_TRUE(tip().contains(">[15.5, 20] R&amp;D &amp;lt;b&gt;: K1AB")) << tip().toStdString();
    main_->showMaximized();
    QApplication::processEvents();
    pick("mnuLoadADIF");
    point();
    EXPECT_TRUE(tip().contains("K1AB")) << "where the map lies in the middle of the window";
}

TEST_F(MapTipTest, BreaksBetweenStationsAndEndsWithTheNumberOfFurtherOnes) {
    startWith(std::vector<std::string>(400, "DL/W1AW"));
    point();
    EXPECT_EQ(tip().section('\n', 0, 0), QStringLiteral("DL/W1AW  ").repeated(13));
    EXPECT_TRUE(tip().endsWith("DL/W1AW  ... and 233 more")) << tip().toStdString();
}

TEST_F(MapTipTest, ATipOnTheScreenGoesAtOnceWhenThePlotDoes) {
    startWith({"K1AB"});
    point();
    QToolTip::showText({100, 100}, tip(), main_->centralWidget());
    ASSERT_TRUE(QToolTip::isVisible());
    pick("mnuClearMap");
    pointAt({200, 200});
    EXPECT_EQ(tip(), "");
    for (const QWidget* shown : QApplication::topLevelWidgets())
        EXPECT_FALSE(shown->isVisible() && shown->windowType() == Qt::ToolTip);
}

} // namespace
} // namespace tovrel
