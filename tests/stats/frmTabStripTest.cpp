#include "stats/frmTabStrip.h"

#include "app/WindowFixture.h"

#include <QAccessible>
#include <QWheelEvent>

namespace tovrel {
namespace {

class frmTabStripTest : public WindowFixture {
protected:
    frmTabStripTest() {
        strip_.resize(127, 400);
        QObject::connect(&strip_, &frmTabStrip::chosen, &strip_,
                         [this](int tab) { chosen_.push_back(tab); });
        strip_.show();
    }
    QAbstractButton& tab(int number) { return *strip_.findChildren<QAbstractButton*>().at(number); }
    void turnWheel(int notches) {
        QWheelEvent event(QPointF(5, 20), QPointF(5, 20), {}, {0, 120 * notches}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&strip_, &event);
    }

    std::vector<int> chosen_;
    frmTabStrip strip_{{"Confirmed", "Stats", "Heard", "Filters", "Worked", "Key"}, nullptr};
};

TEST_F(frmTabStripTest, KeysWalkThroughBothRows) {
    for (const int key : {Qt::Key_Left, Qt::Key_Down, Qt::Key_Right, Qt::Key_Up, Qt::Key_End,
                          Qt::Key_Right, Qt::Key_Home}) {
        QTest::keyClick(&tab(strip_.current()), static_cast<Qt::Key>(key));
    }
    EXPECT_EQ(chosen_, std::vector<int>({3, 4, 1, 5, 0}));
}

TEST_F(frmTabStripTest, WheelGoesOneTabANotchAndStopsAtTheEnds) {
    turnWheel(1);
    turnWheel(-1);
    turnWheel(-4);
    turnWheel(-3);
    turnWheel(1);
    EXPECT_EQ(strip_.current(), 4);
}

TEST_F(frmTabStripTest, AssistiveToolsFindAndPressTheTabs) {
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&strip_);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->role(), QAccessible::PageTabList);
    EXPECT_EQ(list->text(QAccessible::Name), "Confirmed");
    EXPECT_LT(list->rect().height(), 60) << "the pages are not part of the list of tabs";
    ASSERT_EQ(list->childCount(), 6);
    QAccessibleInterface* key = list->child(5);
    EXPECT_EQ(key->role(), QAccessible::PageTab);
    EXPECT_EQ(key->text(QAccessible::Name), "Key");
    EXPECT_FALSE(key->state().selected);
    ASSERT_TRUE(key->actionInterface());
    key->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(strip_.current(), 5);
    EXPECT_TRUE(key->state().selected && key->state().checked);
    EXPECT_FALSE(list->child(0)->state().selected);
    EXPECT_EQ(list->text(QAccessible::Name), "Key");
}

} // namespace
} // namespace tovrel
