#pragma once

#include <QObject>
#include <QRect>
#include <QTimer>
#include <functional>
#include <optional>

namespace tovrel {

/// A window as its system has it: rectangles of the outer window, frame included, in pixels.
struct FramedWindow {
    virtual ~FramedWindow() = default;
    /// Whether it is neither minimized nor maximized nor full screen.
    virtual bool isFree() const = 0;
    /// The rectangle that the window has, or was given last.
    virtual QRect outer() const = 0;
    /// Asks for a rectangle. The system answers later, with that or another one, or never.
    virtual void request(const QRect& outer) = 0;
};

/// Gives a window its shape as far as its system goes along: when the user has changed the size
/// and paused, the shape is asked for, and what comes in the end is taken.
class MapFrame : public QObject {
public:
    /// The rectangle of the right shape for a window that was `before` and is `after`.
    using Shape = std::function<QRect(const QRect& before, const QRect& after)>;
    /// @param window has to outlive this object
    MapFrame(FramedWindow& window, Shape shape);
    /// Size of the free window: that which it has, or will have when it is free again.
    QSize size() const;
    /// Asks for a size of the free window, when it is one.
    void ask(QSize outer);
    /// Whether from now on a change that was not asked for is the user's.
    void watch(bool on);
    /// Whether some time has passed since the last change of size.
    bool atRest() const { return !settles_.isActive(); }
    /// To be called when the window has another size or state.
    void changed();
    /// Asks for the shape now, if the window lacks it.
    /// @param edgeIsFree the pointer is over the window and holds no edge: reason for one more try
    void settle(bool edgeIsFree = false);

private:
    FramedWindow& window_;
    Shape shape_;
    QTimer settles_;
    bool watching_ = false;
    QRect free_;                  ///< the window as it settled last
    std::optional<QSize> wanted_; ///< what was asked for while it was not free
    int asked_ = 0;               ///< how often since the window was at rest
};

} // namespace tovrel
