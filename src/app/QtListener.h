#pragma once

#include "app/frmGCMapCalculations.h"
#include "platform/PassListener.h"
#include "platform/Signal.h"

#include <QElapsedTimer>
#include <QRect>
#include <functional>

namespace tovrel {

/// Passes in the program: shows their progress in frmGCMapCalculations and lets the event loop run,
/// user input included. A pass calls at every record; events run and windows repaint only when
/// some milliseconds have gone by, so that a million records don't pay for a million repaints.
class QtListener : public PassListener {
public:
    /// @param mainWindow over which the progress window lies
    /// @param mainWindowFrame gives its outer rectangle
    QtListener(QWidget& mainWindow, std::function<QRect()> mainWindowFrame);

    void beginPass(std::string_view caption, std::string_view status, float maximum) override;
    void showStatus(std::string_view status) override;
    void showProgress(float value) override { progress_ = value; }
    void endPass() override;
    void yield() override;

    /// Closes the progress window, which an aborted pass leaves open.
    void closeWindow() { window_.close(); }

    /// Called about ten times a second during a pass.
    Signal<> refreshLists;

private:
    std::function<QRect()> mainWindowFrame_;
    frmGCMapCalculations window_;
    float progress_ = 0.0F;
    QElapsedTimer sinceEvents_;
    QElapsedTimer sinceLists_;
};

} // namespace tovrel
