#pragma once

#include "app/Controls.h"
#include "app/MainMenu.h"
#include "app/frmMain.h"
#include "platform/SuppliedFiles.h"
#include "plot/PlotLog.h"

#include <QColorDialog>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTimer>
#include <QWindow>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <utility>

namespace tovrel {

/// The program in a real main window, in a folder of its own with the data files and a log.
class MainFixture : public testing::Test {
protected:
    /// Puts the data files and the settings of a user with a log of `records` contacts in the
    /// folder.
    void furnish(int records = 3) {
        copySupplied(folder_);
        std::string log = "<EOH>\r\n";
        for (int i = 0; i < records; ++i)
            log += record({"K1AB", "-15.5", "47.5", "20M", "CW", "", adif("QSL_RCVD", "Y")});
        folder_.write("Tovrel.ini", "[Globals]\r\nMyCall=W1TVR\r\nLatitude=41.7\r\n"
                                    "Longitude=-72.7\r\n[Log]\r\nadifile=" +
                                        folder_.write("log.adi", log) + "\r\n");
    }

    /// Starts the program as its user does.
    /// @param log of the command line
    void start(const std::string& log = {}) {
        main_.reset(); // of the run before
        data_ = std::make_unique<RunData>(folder_.path(), "Tovrel.ini");
        main_ = std::make_unique<frmMain>(*data_);
        looks_.callOnTimeout(main_.get(), [this] { look(); });
        looks_.start(5);
        main_->start(log);
        // Where the frame is known at once, the start is over with the events that it has left.
        EXPECT_FALSE(main_->windowHandle()->frameMargins().isNull());
        QApplication::processEvents();
    }

    void TearDown() override {
        if (main_)
            main_->close();
        EXPECT_TRUE(answers_.empty()) << "a window that should have come did not";
    }

    QAction& item(const char* name) { return menuItem(*main_->menuBar(), name); }
    void pick(const char* name) { item(name).trigger(); }

    /// The map as the user sees it.
    QImage map() { return main_->centralWidget()->grab().toImage(); }

    /// Where the map has a colour.
    Ink ink(const QColor& colour) { return inkOf(surfaceOf(map()), colourOfImage(colour.rgb())); }
    int pixels(const QColor& colour) { return ink(colour).count; }
    /// What the key says of a colour.
    QColor colourOf(MapColour entry) const {
        return QColor::fromRgb(imageColour(data_->stats.legend().colour(entry)));
    }
    bool plotOnMap() { return pixels(colourOf(MapColour::Confirmed)) > 0; }

    QWidget& window(const char* name) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QLatin1String(name)) {
                return *window;
            }
        }
        throw std::runtime_error(std::string("no window ") + name);
    }

    /// Answers the next modal window that has none before it. One that does not come fails the
    /// test at its end, one that nobody expects at once.
    void answer(std::function<void(QDialog&)> act) { answers_.push_back(std::move(act)); }
    /// The same for a window of some kind; another kind fails the test.
    template <typename Kind>
    void answerA(std::function<void(Kind&)> act) {
        answer([act = std::move(act)](QDialog& dialog) {
            if (auto* const window = dynamic_cast<Kind*>(&dialog))
                act(*window);
            else
                refuse(dialog);
        });
    }
    void chooseFile(const char* name, const QString& title) {
        const QString file = QString::fromStdString(folder_.path(name));
        answerA<QFileDialog>([file, title](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), title);
            EXPECT_EQ(dialog.nameFilters().filter(QRegularExpression("^[A-Z].* Files \\(")).size(),
                      dialog.nameFilters().size());
            control<QLineEdit>(dialog, "fileNameEdit").setText(file);
            static_cast<QDialog&>(dialog).accept();
        });
    }
    /// @param colour none cancels
    void chooseColour(const QColor& start, const QColor& colour) {
        answerA<QColorDialog>([start, colour](QColorDialog& dialog) {
            EXPECT_EQ(dialog.currentColor(), start);
            dialog.setCurrentColor(colour);
            colour.isValid() ? static_cast<QDialog&>(dialog).accept() : dialog.reject();
        });
    }
    void answerMessage(const QString& start, QMessageBox::StandardButton button = QMessageBox::Ok) {
        answerA<QMessageBox>([start, button](QMessageBox& box) {
            if (box.text().startsWith(start) && box.button(button))
                box.button(button)->click();
            else
                refuse(box);
        });
    }

    std::string setting(std::string_view section, std::string_view key) {
        return data_->ini.ReadIniValue(section, key);
    }

    TestFolder folder_;
    std::unique_ptr<RunData> data_;
    std::unique_ptr<frmMain> main_;

private:
    static void refuse(QDialog& dialog) {
        const auto* const box = qobject_cast<QMessageBox*>(&dialog);
        ADD_FAILURE() << "unexpected: " << (box ? box->text() : dialog.windowTitle()).toStdString();
        dialog.reject();
    }
    void look() {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isVisible())
            return;
        if (answers_.empty())
            return refuse(*dialog);
        const std::function<void(QDialog&)> act = std::move(answers_.front());
        answers_.pop_front();
        act(*dialog);
    }

    QTimer looks_;
    std::deque<std::function<void(QDialog&)>> answers_;
};

} // namespace tovrel
