#include "app/MainFixture.h"

#include <QMenu>
#include <set>

namespace tovrel {
namespace {

/// The program without a mouse.
class KeyboardTest : public MainFixture {
protected:
    void SetUp() override {
        furnish();
        start();
    }
    static Qt::Key letterOf(const QAction& action) {
        const QString caption = action.text();
        return static_cast<Qt::Key>(
            caption.at(caption.indexOf(QLatin1Char('&')) + 1).toUpper().unicode());
    }
    static void expectOwnLetters(const QWidget& menu) {
        std::set<Qt::Key> letters;
        for (const QAction* action : menu.actions())
            EXPECT_TRUE(action->isSeparator() || letters.insert(letterOf(*action)).second)
                << action->text().toStdString();
    }
};

TEST_F(KeyboardTest, SpaceChoosesAndArrowsWalkAFrame) {
    pick("mnuPlotOptions");
    QWidget& options = window("frmGCMapOptions");
    QApplication::setActiveWindow(&options);
    QTest::keyClick(&control(options, "chkBand(7)"), Qt::Key_Space);
    control(options, "Option3").setFocus();
    QTest::keyClick(&control(options, "Option3"), Qt::Key_Up);
    EXPECT_TRUE(checked(options, "chkBand(7)") && checked(options, "Option2"));
}

TEST_F(KeyboardTest, ReturnAndEscapeEndADialogAsTheyShould) {
    struct Row {
        const char *item, *window, *control;
        Qt::Key key;
        bool open; ///< afterwards
    };
    for (const Row& row :
         {Row{"mnuPlotOptions", "frmGCMapOptions", "chkBand(1)", Qt::Key_Return, true},
          Row{"mnuPlotOptions", "frmGCMapOptions", "cmdApply", Qt::Key_Return, false},
          Row{"mnuGoogleMapOptions", "frmGoogleMapOptions", "chkBand(1)", Qt::Key_Enter, true},
          Row{"mnuGoogleMapOptions", "frmGoogleMapOptions", "chkBand(1)", Qt::Key_Escape, false},
          Row{"mnuGoogleMapOptions", "frmGoogleMapOptions", "cmdApply", Qt::Key_Enter, false},
          Row{"mnuInfo", "frmInfoInput", "txtLatitude", Qt::Key_Return, true},
          Row{"mnuInfo", "frmInfoInput", "cmdInfoExit", Qt::Key_Return, false},
          Row{"mnuAbout", "frmAbout", "cmdSysInfo", Qt::Key_Escape, false}}) {
        const std::string before = folder_.read("Tovrel.ini");
        pick(row.item);
        QWidget& dialog = window(row.window);
        if (auto* box = dialog.findChild<QAbstractButton*>("chkBand(1)"))
            box->click();
        control(dialog, row.control).setFocus();
        QTest::keyClick(&control(dialog, row.control), row.key);
        EXPECT_EQ(dialog.isVisible(), row.open) << row.window << ' ' << row.control;
        EXPECT_EQ(folder_.read("Tovrel.ini") != before, row.control == std::string("cmdApply"));
        dialog.close();
    }
}

TEST_F(KeyboardTest, EveryMenuOpensByItsLetters) {
    QApplication::setActiveWindow(main_.get());
    int menus = 0;
    expectOwnLetters(*main_->menuBar());
    for (QMenu* menu : main_->menuBar()->findChildren<QMenu*>()) {
        if (menu->menuAction()->objectName().isEmpty())
            continue; // the bar's own, for items that have no room
        expectOwnLetters(*menu);
        std::vector<const QMenu*> road;
        for (const QMenu* at = menu; at; at = qobject_cast<const QMenu*>(at->parent()))
            road.insert(road.begin(), at);
        for (const QMenu* at : road) {
            QWidget* const popup = QApplication::activePopupWidget();
            QTest::keyClick(popup ? popup : main_.get(), letterOf(*at->menuAction()),
                            popup ? Qt::NoModifier : Qt::AltModifier);
        }
        EXPECT_EQ(QApplication::activePopupWidget(), menu) << menu->title().toStdString();
        while (QApplication::activePopupWidget())
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        ++menus;
    }
    EXPECT_EQ(menus, 9);

    QTest::keyClick(main_.get(), Qt::Key_L, Qt::AltModifier);
    EXPECT_TRUE(plotOnMap());
    QApplication::setActiveWindow(
        main_.get()); // as a window manager does behind the progress window
    QTest::keyClick(main_.get(), Qt::Key_M, Qt::AltModifier);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_C);
    EXPECT_FALSE(plotOnMap());
}

} // namespace
} // namespace tovrel
