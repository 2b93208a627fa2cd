#pragma once

#include "app/Controls.h"
#include "app/MainMenu.h"
#include "app/frmMain.h"
#include "platform/TestFolder.h"
#include "run/RunData.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <numeric>
#include <set>
#include <utility>

namespace tovrel {

/// The program in a real main window, in a folder of its own with the data files and a log.
class MainFixture : public testing::Test {
protected:
    /// Puts the data files and the settings of a user with a log of `records` contacts in the
    /// folder.
    void furnish(int records = 3) {
        copyData();
        std::string log = "<EOH>\r\n";
        for (int i = 0; i < records; ++i) {
            log += "<CALL:4>K1AB <BAND:3>20M <MODE:2>CW <QSL_RCVD:1>Y <APP_LOGGER32_LAT:5>-15.5 "
                   "<APP_LOGGER32_LNG:4>47.5 <EOR>\r\n";
        }
        folder_.write("Tovrel.ini", "[Globals]\r\nMyCall=W1TVR\r\nLatitude=41.7\r\n"
                                    "Longitude=-72.7\r\n[Log]\r\nadifile=" +
                                        folder_.write("log.adi", log) + "\r\n");
    }
    void copyData() {
        for (const char* name : {"mapper.pnt", "paintma.txt"})
            std::filesystem::copy_file(joinPath(TOVREL_DATA_DIR, name), folder_.path(name));
    }

    /// Starts the program as its user does.
    void start() {
        data_ = std::make_unique<RunData>(folder_.path(), "Tovrel.ini");
        main_ = std::make_unique<frmMain>(*data_);
        // A window that nobody expects would stop the test for ever.
        QObject::connect(&watch_, &QTimer::timeout, &polls_, [this] {
            QWidget* const modal = QApplication::activeModalWidget();
            auto* const dialog = qobject_cast<QDialog*>(modal);
            if (dialog != nullptr && expected_ == 0 && modal == seen_)
                refuse(*dialog);
            seen_ = modal;
        });
        watch_.start(1000);
        main_->start();
        QTest::qWait(400); // the window looks for its frame
    }

    void TearDown() override {
        EXPECT_EQ(expected_, 0) << "a window that should have come did not";
        if (main_ && main_->isVisible()) {
            main_->close();
        }
    }

    QAction& item(const char* name) { return menuItem(*main_->menuBar(), name); }
    void pick(const char* name) { item(name).trigger(); }

    /// The map as the user sees it.
    QImage map() { return main_->centralWidget()->grab().toImage(); }

    /// How many pixels of the map have a colour.
    int pixels(const QColor& colour) {
        const QImage image = map();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += image.pixelColor(x, y) == colour ? 1 : 0;
            }
        }
        return count;
    }
    bool plotOnMap() { return pixels(confirmed) > 0; }

    QWidget& window(const char* name) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QLatin1String(name)) {
                return *window;
            }
        }
        throw std::runtime_error(std::string("no window ") + name);
    }

    /// Names of the dialogs that are on the screen, each with a blank after it, in alphabetic
    /// order.
    static std::string shownDialogs() {
        std::set<std::string> names;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && qobject_cast<const QDialog*>(window))
                names.insert(window->objectName().toStdString() + " ");
        }
        return std::accumulate(names.begin(), names.end(), std::string());
    }

    /// Answers the next modal window. One that does not come fails the test at its end.
    void answer(std::function<void(QDialog&)> act) {
        ++expected_;
        poll(std::move(act), std::make_shared<QElapsedTimer>());
    }
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
    void cancelNext() {
        answer([](QDialog& dialog) { dialog.reject(); });
    }
    void chooseFile(const char* name, const QString& title) {
        const QString file = QString::fromStdString(folder_.path(name));
        answerA<QFileDialog>([file, title](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), title);
            control<QLineEdit>(dialog, "fileNameEdit").setText(file);
            static_cast<QDialog&>(dialog).accept();
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

    const QColor confirmed{0x00, 0xFF, 0x40};

    TestFolder folder_;
    std::unique_ptr<RunData> data_;
    std::unique_ptr<frmMain> main_;

private:
    static void refuse(QDialog& dialog) {
        const auto* const box = qobject_cast<QMessageBox*>(&dialog);
        ADD_FAILURE() << "unexpected: " << (box ? box->text() : dialog.windowTitle()).toStdString();
        dialog.reject();
    }
    void poll(std::function<void(QDialog&)> act, std::shared_ptr<QElapsedTimer> since) {
        constexpr int longest = 10000; // milliseconds
        if (!since->isValid()) {
            since->start();
        }
        QTimer::singleShot(10, &polls_, [this, act, since] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog != nullptr && dialog->isVisible()) {
                --expected_;
                act(*dialog);
            } else if (since->elapsed() < longest) {
                poll(act, since);
            }
        });
    }

    QObject polls_; ///< ends what is still polling
    QTimer watch_;
    const QWidget* seen_ = nullptr; ///< the modal window at the last look
    int expected_ = 0;
};

} // namespace tovrel
