#pragma once

#include "platform/UserPrompt.h"
#include "platform/frmStyle.h"
#include "state/GoogleMapOptions.h"
#include "state/MapOptions.h"
#include "state/PlotLine.h"
#include "state/RunState.h"
#include "state/iniFiles.h"
#include "stats/MapStats.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tovrel {

/// Keeps what the user would have been told.
class RecordingPrompt : public UserPrompt {
public:
    void tell(const std::string& text, MessageIcon /*icon*/) override { told.push_back(text); }
    bool ask(const Question& question) override {
        told.push_back(question.text);
        return true;
    }

    std::vector<std::string> told;
};

/// The state behind the windows, over a settings file of its own.
class WindowFixture : public testing::Test {
protected:
    static void SetUpTestSuite() { QApplication::setStyle(new frmStyle); }

    /// The control of a name; the test ends here when there is none.
    template <typename Control>
    static Control& control(const QWidget& window, const char* name) {
        auto* found = window.findChild<Control*>(QLatin1String(name));
        if (!found)
            throw std::runtime_error(std::string("no control ") + name);
        return *found;
    }

    /// Clicks a control near its left edge, where a check box has its indicator.
    static void click(QWidget& target) {
        QTest::mouseClick(&target, Qt::LeftButton, {}, {8, target.height() / 2});
    }

    QTemporaryDir folder_;
    iniFiles ini_{folder_.path().toStdString(), "Tovrel.ini"};
    RunState run_;
    MapOptionForms forms_{ini_, run_};
    GoogleMapOptions google_;
    PlotLine line_;
    MapStats stats_{ini_, forms_, run_, line_};
    RecordingPrompt prompt_;
};

} // namespace tovrel
