#include "app/MainMenu.h"

#include <QAccessible>
#include <QActionGroup>
#include <QMenu>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace tovrel {
namespace {

/// The tree as a user's manual would print it: depth, name, kind, caption.
const std::vector<std::string> tree = {
    "0 mnuFile submenu File",
    "1 mnuInfo command Your Information",
    "1 mnuOpenADIFFile command Open ADIF File",
    "1 mnuSaveMap command Save Map",
    "0 mnuLoadADIF command Load ADIF",
    "0 mnuMap submenu Map",
    "1 mnuClearMap command Clear Map",
    "1 mnuHidePlotLine command Hide Plot Line",
    "1 mnuNothing11 separator -",
    "1 mnuAppearance submenu Appearance",
    "2 mnuShowMe check Show Home Location",
    "2 mnuMeridian check Show Meridian Lines",
    "2 mnuTopo check Color Topogographic Overlay",
    "2 mnuNothing4 separator -",
    "2 mnuCompass submenu Compass",
    "3 mnuShowCompass check Show Compass",
    "3 mnuNothing7 separator -",
    "3 mnuBoldCompass radio Bold characters",
    "3 mnuLightCompass radio Normal characters",
    "3 mnuNothing8 separator -",
    "3 mnu15Degrees radio Show every 15°",
    "3 mnu45Degrees radio Show every 45°",
    "1 mnuChangeBaseMap submenu Change Base Map",
    "2 mnuLoadCustomMap command Load Custom Map",
    "2 mnuChangeBaseColors submenu Change Base Colors",
    "3 mnuChangeLandColor command Land Color",
    "3 mnuChangeWaterColor command Water Color",
    "3 mnuResetBaseColors command Reset to Default",
    "1 mnuNothing2 separator -",
    "1 mnuProjection submenu Projection",
    "2 mnuGreatCircle radio Azimuthal Equidistant projection",
    "2 mnuMiller radio Miller Cylindrical projection",
    "1 mnuNothing9 separator -",
    "1 mnuGoogle command Create Google File",
    "1 mnuGoogleMapOptions command Google Map Options",
    "1 mnuNothing10 separator -",
    "1 mnuRecreateMap command Recreate map",
    "0 mnuView_Stats command View Statistics",
    "0 mnuPlotOptions command Plot Options",
    "0 mnuAbort command Abort Function",
    "0 mnuHelpFile submenu Help",
    "1 mnuHelp command Help",
    "1 mnuAbout command About",
};

std::string kind(const QAction& action) {
    if (action.menu()) {
        return "submenu";
    }
    if (action.isSeparator()) {
        return "separator";
    }
    if (!action.isCheckable()) {
        return "command";
    }
    return action.actionGroup() ? "radio" : "check";
}

/// The caption as the user reads it.
QString plain(QString caption) { return caption.remove(QLatin1Char('&')); }

void walk(const QWidget& owner, int depth, std::vector<std::string>& found) {
    for (const QAction* action : owner.actions()) {
        found.push_back(std::to_string(depth) + ' ' + action->objectName().toStdString() + ' ' +
                        kind(*action) + ' ' + plain(action->text()).toStdString());
        EXPECT_TRUE(action->isEnabled()) << action->objectName().toStdString();
        EXPECT_FALSE(action->isChecked()) << action->objectName().toStdString();
        if (action->menu()) {
            walk(*action->menu(), depth + 1, found);
        }
    }
}

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

TEST_F(MainMenuTest, HasItsItemsInTheirOrder) {
    std::vector<std::string> found;
    walk(bar_, 0, found);
    EXPECT_EQ(found, tree);
}

TEST_F(MainMenuTest, EachItemHasALetterThatNoOtherOfItsMenuHas) { expectOwnLetters(bar_); }

TEST_F(MainMenuTest, TheLettersDoNotShowInAccessibleNames) { expectNamesWithoutMarks(bar_); }

TEST_F(MainMenuTest, ShowsTheMarksOfTheState) {
    MenuMarks marks;
    marks.mnuTopo = true;
    marks.mnu45Degrees = true;
    showMarks(bar_, marks);
    EXPECT_TRUE(menuItem(bar_, "mnuTopo").isChecked());
    EXPECT_TRUE(menuItem(bar_, "mnu45Degrees").isChecked());
    EXPECT_FALSE(menuItem(bar_, "mnu15Degrees").isChecked());
    EXPECT_FALSE(menuItem(bar_, "mnuBoldCompass").isChecked());
    EXPECT_TRUE(menuItem(bar_, "mnuCompass").isEnabled());
    marks.projection = Projection::Miller;
    marks.mnu45Degrees = false;
    showMarks(bar_, marks);
    EXPECT_FALSE(menuItem(bar_, "mnu45Degrees").isChecked()) << "both of a pair may be clear";
    EXPECT_TRUE(menuItem(bar_, "mnuMiller").isChecked());
    EXPECT_FALSE(menuItem(bar_, "mnuGreatCircle").isChecked());
    EXPECT_FALSE(menuItem(bar_, "mnuCompass").isEnabled());
}

} // namespace
} // namespace tovrel
