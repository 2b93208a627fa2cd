#pragma once

#include "run/MapFrame.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QWindow>

namespace tovrel {

/// The main window, which has to outlive it, by its frame, known some time after it was shown.
struct QtFrame : FramedWindow {
    explicit QtFrame(QMainWindow& mainWindow) : window(mainWindow) {}

    /// @return whether the widths of the frame are known
    bool learnMargins() {
        if (window.windowHandle() != nullptr && !window.windowHandle()->frameMargins().isNull())
            margins = window.windowHandle()->frameMargins();
        return !margins.isNull();
    }
    bool isFree() const override { return !(window.windowState() & ~Qt::WindowActive); }
    QRect outer() const override { return window.geometry().marginsAdded(margins); }
    /// Pixels that the menu bar takes in a window of this width, one line or more.
    int menuHeight() const { return window.menuBar()->heightForWidth(window.width()); }
    /// What its height has beside the map: title bar, frame and menu; pixels.
    int chrome() const { return margins.top() + margins.bottom() + menuHeight(); }
    void request(const QRect& wanted) override {
        const QRect inner = wanted.marginsRemoved(margins);
        // A place that is not asked for is the window system's affair.
        if (wanted.topLeft() == outer().topLeft())
            window.resize(inner.size());
        else
            window.setGeometry(inner);
    }

    QMainWindow& window; ///< its geometry is without the frame
    QMargins margins;    ///< widths of the frame, pixels; 0 until learnMargins() has succeeded
};

} // namespace tovrel
