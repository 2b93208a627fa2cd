#include "app/MainMenu.h"

#include <QAccessible>
#include <QMenu>
#include <gtest/gtest.h>
#include <set>

namespace tovrel {
namespace {

/// The caption as the user reads it.
QString plain(QString caption) { return caption.remove(QLatin1Char('&')); }

void expectOwnLetters(const QWidget& owner) {
    std::set<QString> letters;
    for (const QAction* action : owner.actions()) {
        if (action->isSeparator()) {
            continue;
        }
        const QString caption = action->text();
        ASSERT_EQ(caption.count(QLatin1Char('&')), 1) << caption.toStdString();
        const QString letter = caption.mid(caption.indexOf(QLatin1Char('&')) + 1, 1).toUpper();
        EXPECT_TRUE(letters.insert(letter).second) << caption.toStdString();
        if (action->menu()) {
            expectOwnLetters(*action->menu());
        }
    }
}

void expectNamesWithoutMarks(QWidget& owner) {
    QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(&owner);
    ASSERT_TRUE(face);
    const QList<QAction*> actions = owner.actions();
    ASSERT_EQ(face->childCount(), actions.size());
    for (int i = 0; i < actions.size(); ++i) {
        if (!actions[i]->isSeparator()) {
            EXPECT_EQ(face->child(i)->text(QAccessible::Name).toStdString(),
                      plain(actions[i]->text()).toStdString());
        }
        if (actions[i]->menu()) {
            expectNamesWithoutMarks(*actions[i]->menu());
        }
    }
}

class MainMenuTest : public testing::Test {
protected:
    MainMenuTest() { buildMainMenu(bar_); }
    QMenuBar bar_;
};

TEST_F(MainMenuTest, EachItemHasALetterThatNoOtherOfItsMenuHas) { expectOwnLetters(bar_); }

TEST_F(MainMenuTest, TheLettersDoNotShowInAccessibleNames) { expectNamesWithoutMarks(bar_); }

TEST_F(MainMenuTest, BothItemsOfAPairMayBeClear) {
    RunState run;
    for (const bool on : {true, false}) {
        run.marks.mnu45Degrees = on;
        showMarks(bar_, run);
        EXPECT_EQ(menuItem(bar_, "mnu45Degrees").isChecked(), on);
        EXPECT_FALSE(menuItem(bar_, "mnu15Degrees").isChecked());
    }
}

} // namespace
} // namespace tovrel
