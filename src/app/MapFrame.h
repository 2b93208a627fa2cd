#pragma once

#include "app/FramedWindow.h"
#include "platform/Projection.h"

#include <QObject>
#include <QTimer>
#include <functional>
#include <optional>

namespace tovrel {

/// Gives the main window the shape of its map as far as its system goes along: when the user has
/// changed the size and paused, the shape is asked for, and what comes in the end is taken.
class MapFrame : public QObject {
public:
    MapFrame(FramedWindow& window, std::function<Projection()> projection);

    /// Size of the free window: that which it has, or will have when it is free again.
    QSize size() const;
    /// Asks for a size of the free window, when it is one.
    void ask(QSize outer);

    /// From now on a change that was not asked for is the user's.
    void start();
    void stop();
    /// To be called when the window has another size or state.
    void changed();
    /// Asks for the shape now, if the window lacks it.
    /// @param edgeIsFree the pointer is over the window and holds no edge: reason for one more try
    void settle(bool edgeIsFree = false);

private:
    FramedWindow& window_;
    std::function<Projection()> projection_;
    QTimer settles_;
    bool started_ = false;
    QRect free_;                  ///< the window as it settled last
    std::optional<QSize> wanted_; ///< what was asked for while it was not free
    QSize proposed_;              ///< what the user made of it, for which another was asked
    int asked_ = 0;               ///< how often for that
    int askedInARow_ = 0;         ///< and for others since the window had its shape
};

} // namespace tovrel
