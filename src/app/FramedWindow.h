#pragma once

#include <QRect>

namespace tovrel {

/// A window as its system has it: rectangles of the outer window, frame included, in pixels.
class FramedWindow {
public:
    virtual ~FramedWindow() = default;

    /// Whether it is neither minimized nor maximized nor full screen.
    virtual bool isFree() const = 0;
    virtual QRect outer() const = 0;

    /// What its height has beside the map: title bar, frame and menu.
    virtual int chrome() const = 0;

    /// Asks for a rectangle. The system answers later, with that or another one, or never.
    virtual void request(const QRect& outer) = 0;
};

} // namespace tovrel
