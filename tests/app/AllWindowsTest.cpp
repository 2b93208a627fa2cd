#include "app/MainMenu.h"
#include "app/WindowFixture.h"
#include "app/frmAbout.h"
#include "app/frmExportPicture.h"
#include "app/frmGCMapCalculations.h"
#include "app/frmInfoInput.h"
#include "app/frmMapOptions.h"
#include "export/frmGoogleMapOptions.h"
#include "stats/frmMapStats.h"
#include "stats/frmTabStrip.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QStyleOptionButton>
#include <memory>

namespace tovrel {
namespace {

class AllWindowsTest : public WindowFixture {
protected:
    AllWindowsTest() {
        auto stats = std::make_unique<frmMapStats>(data_.stats, [](MapColour) {});
        stats->loadForm({100, 100, frmMapStats::outerWidth(), 533}, {1, 22, 1, 5});
        auto progress = std::make_unique<frmGCMapCalculations>();
        progress->begin("Plotting ADIF File", "Processing: sample.adi", 100.0, {0, 0, 440, 500});
        auto info = std::make_unique<frmInfoInput>(data_.ini, prompt_);
        info->loadForm();
        windows_.push_back(
            std::make_unique<frmMapOptions>(Projection::Azimuthal, data_.maps, [] {}));
        windows_.push_back(std::make_unique<frmMapOptions>(Projection::Miller, data_.maps, [] {}));
        windows_.push_back(std::make_unique<frmGoogleMapOptions>(data_.ini, data_.google));
        windows_.push_back(std::make_unique<frmAbout>(prompt_, "1.0.0", "/home/x/Tovrel"));
        windows_.push_back(std::move(info));
        windows_.push_back(std::make_unique<frmExportPicture>(PictureWish(), MapShape()));
        windows_.push_back(std::move(progress));
        windows_.push_back(std::move(stats));
        for (const auto& window : windows_)
            window->show();
    }

    std::vector<std::unique_ptr<QWidget>> windows_;
};

/// Room that a button's caption has beside its indicator and frame.
QRect captionRoom(const QAbstractButton& button) {
    QStyleOptionButton option;
    option.initFrom(&button);
    if (qobject_cast<const QCheckBox*>(&button))
        return button.style()->subElementRect(QStyle::SE_CheckBoxContents, &option, &button);
    if (qobject_cast<const QRadioButton*>(&button))
        return button.style()->subElementRect(QStyle::SE_RadioButtonContents, &option, &button);
    return button.rect().adjusted(2, 2, -2, -2);
}

std::string nameOf(const QWidget& control) {
    return (control.window()->objectName() + '.' + control.objectName()).toStdString();
}

TEST_F(AllWindowsTest, NoCaptionIsClipped) {
    int looked = 0;
    for (const auto& window : windows_) {
        for (const QAbstractButton* button : window->findChildren<QAbstractButton*>()) {
            if (button->text().isEmpty())
                continue;
            const QSize needed = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
            EXPECT_EQ(needed, needed.boundedTo(captionRoom(*button).size())) << nameOf(*button);
            EXPECT_TRUE(button->parentWidget()->rect().contains(button->geometry()))
                << nameOf(*button);
            ++looked;
        }
        for (const QLabel* label : window->findChildren<QLabel*>()) {
            const int wrap = label->wordWrap() ? Qt::TextWordWrap : 0;
            // The explanation of the filters takes a run of blanks for a new line.
            const QString text = label->text().replace(QRegularExpression(" {3,}"), "\n");
            const QRect needed = label->fontMetrics().boundingRect(label->rect(), wrap, text);
            EXPECT_LE(needed.width(), label->width()) << nameOf(*label);
            // Below the last line may be a pixel that no letter uses.
            EXPECT_LE(needed.height(), label->height() + 1) << nameOf(*label);
            ++looked;
        }
        for (const QGroupBox* box : window->findChildren<QGroupBox*>()) {
            EXPECT_LE(box->fontMetrics().horizontalAdvance(box->title()) + 16, box->width());
            ++looked;
        }
    }
    EXPECT_GT(looked, 120) << "the windows have lost their controls";
}

TEST_F(AllWindowsTest, EveryControlThatTakesTheFocusHasAnAccessibleName) {
    for (const auto& window : windows_) {
        EXPECT_FALSE(window->windowTitle().isEmpty());
        for (QWidget* control : window->findChildren<QWidget*>()) {
            if (control->focusPolicy() == Qt::NoFocus || control->objectName().startsWith("qt_"))
                continue;
            QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(control);
            ASSERT_TRUE(interface);
            EXPECT_FALSE(interface->text(QAccessible::Name).isEmpty()) << nameOf(*control);
        }
    }
}

TEST_F(AllWindowsTest, MenuOfTheMainWindowFitsItsWidthInALargeFontOfTheDesktop) {
    const QFont before = QApplication::font();
    const auto restore = qScopeGuard([&before] { QApplication::setFont(before); });
    QFont large = before;
    large.setPointSize(18);
    QApplication::setFont(large);
    QMenuBar bar;
    buildMainMenu(bar);
    EXPECT_LE(bar.sizeHint().width(), 440);
}

TEST_F(AllWindowsTest, AboutTellsItsVersionItsFolderAndThatThereIsNoSystemTool) {
    const QWidget& about = *windows_[3];
    EXPECT_EQ(control<QLabel>(about, "lblVersion").text(), "Version: 1.0.0");
    EXPECT_EQ(control<QLineEdit>(about, "txtFolder").text(), "/home/x/Tovrel");
    click(about, "cmdSysInfo");
    EXPECT_EQ(prompt_.told,
              std::vector<std::string>({"System Information Is Unavailable At This Time"}));
    click(about, "cmdOK");
    EXPECT_FALSE(about.isVisible());
}

} // namespace
} // namespace tovrel
