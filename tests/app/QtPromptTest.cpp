#include "app/QtPrompt.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

namespace tovrel {
namespace {

class QtPromptTest : public testing::Test {
protected:
    /// Shows the next box to `look`, which closes it.
    void atBox(std::function<void(QMessageBox&)> look) {
        QTimer::singleShot(0, &parent_, [look = std::move(look)] {
            look(dynamic_cast<QMessageBox&>(*QApplication::activeModalWidget()));
        });
    }

    QWidget parent_;
    QtPrompt prompt_{&parent_};
};

TEST_F(QtPromptTest, TellsATextAsItIsLineByLine) {
    bool seen = false;
    atBox([&](QMessageBox& box) {
        seen = true;
        EXPECT_EQ(box.text(), "<b>caf\u00E9</b>\nnext");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.windowTitle(), "Tovrel");
        box.accept();
    });
    prompt_.tell("<b>caf\xE9</b>\r\nnext", MessageIcon::Exclamation);
    EXPECT_TRUE(seen);
}

TEST_F(QtPromptTest, AnswersYesByTheFirstButtonAlone) {
    const struct {
        Question::Buttons buttons;
        bool defaultYes;
        QMessageBox::StandardButton preset, pressed;
        bool yes;
    } rows[] = {{Question::Buttons::YesNo, false, QMessageBox::No, QMessageBox::Yes, true},
                {Question::Buttons::OkCancel, true, QMessageBox::Ok, QMessageBox::NoButton, false},
                {Question::Buttons::OkCancel, true, QMessageBox::Ok, QMessageBox::Cancel, false}};
    for (const auto& row : rows) {
        atBox([&row](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle() + '|' + box.text(), "Title|Text");
            EXPECT_EQ(box.standardButton(box.defaultButton()), row.preset);
            EXPECT_EQ(box.buttons().size(), 2);
            if (row.pressed == QMessageBox::NoButton)
                box.reject(); // Escape
            else
                box.button(row.pressed)->click();
        });
        EXPECT_EQ(prompt_.ask({.title = "Title",
                               .text = "Text",
                               .buttons = row.buttons,
                               .icon = MessageIcon::Critical,
                               .defaultYes = row.defaultYes}),
                  row.yes);
    }
}

} // namespace
} // namespace tovrel
