#pragma once

#include "app/MainMenu.h"
#include "app/frmMain.h"
#include "platform/Files.h"
#include "platform/frmStyle.h"
#include "run/RunData.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>

namespace tovrel {

/// The program in a real main window, in a folder of its own with the data files and a log.
class MainFixture : public testing::Test {
protected:
    static constexpr const char* settings = "[Globals]\r\nMyCall=W1TVR\r\nLatitude=41.7\r\n"
                                            "Longitude=-72.7\r\n[Log]\r\n";

    static void SetUpTestSuite() { QApplication::setStyle(new frmStyle); }

    /// Puts the data files and the settings of a user with a log of `records` contacts in the
    /// folder.
    void furnish(int records = 3) {
        for (const char* name : {"mapper.pnt", "paintma.txt"}) {
            QFile::copy(QString::fromUtf8(TOVREL_DATA_DIR "/") + name, path(name));
        }
        std::string log = "<EOH>\r\n";
        for (int i = 0; i < records; ++i) {
            log += "<CALL:4>K1AB <BAND:3>20M <MODE:2>CW <QSL_RCVD:1>Y <APP_LOGGER32_LAT:5>-15.5 "
                   "<APP_LOGGER32_LNG:4>47.5 <EOR>\r\n";
        }
        const std::string logPath = text("log.adi");
        ASSERT_TRUE(writeFile(logPath, log));
        ASSERT_TRUE(writeFile(text("Tovrel.ini"), settings + ("adifile=" + logPath + "\r\n")));
    }

    /// Starts the program as its user does.
    void start() {
        data_ = std::make_unique<RunData>(folder_.path().toStdString(), "Tovrel.ini");
        main_ = std::make_unique<frmMain>(*data_);
        main_->start();
        QTest::qWait(400); // the window looks for its frame
    }

    void TearDown() override {
        EXPECT_TRUE(answered()) << "a window that should have come did not";
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

    QWidget* window(const char* name) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QLatin1String(name)) {
                return window;
            }
        }
        return nullptr;
    }

    /// Answers the next modal window. One that does not come fails the test at its end.
    void answer(std::function<void(QDialog&)> act) {
        ++expected_;
        poll(std::move(act), std::make_shared<QElapsedTimer>());
    }
    bool answered() const { return expected_ == 0; }

    std::string setting(std::string_view section, std::string_view key) {
        return data_->ini.ReadIniValue(section, key);
    }
    QString path(const char* name) const { return folder_.filePath(QLatin1String(name)); }
    std::string text(const char* name) const { return path(name).toStdString(); }

    const QColor confirmed{0x00, 0xFF, 0x40};

    QTemporaryDir folder_;
    std::unique_ptr<RunData> data_;
    std::unique_ptr<frmMain> main_;

private:
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
    int expected_ = 0;
};

} // namespace tovrel
