#include "stats/frmMapStats.h"

#include "app/WindowFixture.h"
#include "stats/frmItemList.h"
#include "stats/frmTabStrip.h"

#include <QApplication>

namespace tovrel {
namespace {

class frmMapStatsTest : public WindowFixture {
protected:
    frmMapStatsTest() {
        window_.loadForm({100, 100, frmMapStats::outerWidth(), 533}, {1, 22, 1, 5});
        window_.show();
    }
    frmItemList& list(const char* name) { return control<frmItemList>(window_, name); }
    void addStations() {
        data_.stats.lists().lstConfirmed.add(
            {{"ZZ", 7.0, 8.0}, {"AA", 1.0, 2.0}, {"MM", 3.5, -4.0}}, nullptr);
    }
    void clickItem(frmItemList& view, int row) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                          view.visualRect(view.model()->index(row, 0)).topLeft() + QPoint(5, 5));
    }

    std::vector<MapColour> picked_;
    frmMapStats window_{data_.stats, [this](MapColour entry) { picked_.push_back(entry); }};
};

TEST_F(frmMapStatsTest, TheKeyScrollsToTheEntryThatHasTheFocus) {
    window_.resize(133, 180);
    QApplication::setActiveWindow(&window_);
    control<frmTabStrip>(window_, "tabStats").choose(5);
    QWidget& last = control(window_, "cmdMeridian");
    EXPECT_TRUE(last.visibleRegion().isEmpty());
    control(window_, "cmdLine").setFocus();
    QTest::keyClick(&control(window_, "cmdLine"), Qt::Key_Tab);
    EXPECT_TRUE(last.hasFocus());
    EXPECT_EQ(last.visibleRegion().boundingRect(), last.rect());
}

TEST_F(frmMapStatsTest, AChosenItemDrawsTheLineToItsStation) {
    addStations();
    window_.refreshLists();
    frmItemList& view = list("lstConfirmed");
    const PlotLine::Shape& line = data_.lneGCPlotLine.shape();
    view.setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
    EXPECT_FALSE(line.visible) << "focus alone draws none";
    EXPECT_TRUE(view.model()->index(1, 0).data().toString().startsWith("MM   "));
    for (int time = 0; time < 2; ++time) { // the selected item answers again
        clickItem(view, 1);
        EXPECT_TRUE(line.visible && line.toX == -4.0 && line.toY == 3.5);
        data_.lneGCPlotLine.hide();
    }
    QTest::keyClick(&view, Qt::Key_Up);
    EXPECT_EQ(line.toX, 2.0);
    data_.lneGCPlotLine.hide();
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_TRUE(line.visible);
}

TEST_F(frmMapStatsTest, ListsFollowAtARefreshOrWhenShownAndClosingEmptiesThem) {
    const auto rows = [this] { return list("lstConfirmed").model()->rowCount(); };
    addStations();
    EXPECT_EQ(rows(), 0);
    window_.refreshLists();
    EXPECT_EQ(rows(), 3);
    clickItem(list("lstConfirmed"), 0);
    window_.refreshLists();
    EXPECT_TRUE(list("lstConfirmed").selectionModel()->hasSelection()) << "nothing has changed";
    window_.hide();
    addStations();
    window_.refreshLists();
    EXPECT_EQ(rows(), 3);
    window_.show();
    EXPECT_EQ(rows(), 6);
    window_.close();
    EXPECT_FALSE(data_.stats.loaded());
    window_.show();
    EXPECT_TRUE(data_.stats.loaded());
    EXPECT_EQ(rows(), 0);
}

TEST_F(frmMapStatsTest, ColourButtonsShowAndTellTheLegend) {
    control<frmTabStrip>(window_, "tabStats").choose(5);
    auto& home = control<QAbstractButton>(window_, "cmdHome");
    EXPECT_EQ(home.accessibleName(), "Home QTH colour");
    data_.stats.legend().set(MapColour::Home, 0x332211);
    EXPECT_EQ(home.accessibleDescription(), "#112233");
    EXPECT_EQ(home.grab().toImage().pixelColor(8, 8), QColor(0x11, 0x22, 0x33));
    click(home);
    EXPECT_EQ(picked_, std::vector<MapColour>({MapColour::Home}));
    window_.hide();
    data_.stats.legend().set(MapColour::Home, 0x0000FF);
    window_.show();
    EXPECT_EQ(home.accessibleDescription(), "#ff0000");
}

} // namespace
} // namespace tovrel
