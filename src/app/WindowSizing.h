#pragma once

#include "app/OuterFrame.h"
#include "platform/Projection.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <functional>

namespace tovrel {

/// Keeps the main window in the shape of its map while the user drags an edge. The window system
/// tells of a new size only after the fact: the rule is applied at once behind it, and the edge
/// worked out from what moved.
class WindowSizing : public QObject {
    Q_OBJECT

public:
    /// @param frame of the main window
    /// @param projection the map in force
    /// @param Form_Resize called when the window has a new size or state; has to call resized() at
    ///        its end
    WindowSizing(OuterFrame& frame, std::function<Projection()> projection,
                 std::function<void()> Form_Resize);

    /// From now on a change of size that the program did not ask for is the user's.
    void start();
    void stop();

    /// To be called from the window's events.
    void sizeChanged();
    void placeChanged();
    void stateChanged();

    /// Whether the window system insists on a size: asking for another would go on for ever.
    bool insisted() const { return insisted_; }
    void resized() { insisted_ = false; }

private:
    void settle();
    bool applyRule();

    OuterFrame& frame_;
    std::function<Projection()> projection_;
    std::function<void()> Form_Resize_;
    QTimer settles_;           ///< runs out when a new size may be looked at
    QRect lastFrame_;          ///< outer rectangle behind the last change of place or size
    QRect dragStart_;          ///< the same before the first of a row of corrections
    QSize corrected_;          ///< outer size that the rule has changed last
    QElapsedTimer correction_; ///< since then
    int corrections_ = 0;      ///< how often that size was corrected in a row
    bool insisted_ = false;
    bool started_ = false;
    bool stateChanged_ = false; ///< the window was minimized, maximized or restored
};

} // namespace tovrel
