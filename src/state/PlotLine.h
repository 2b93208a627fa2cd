#pragma once

#include "platform/Colour.h"
#include "platform/Signal.h"

namespace tovrel {

/// lneGCPlotLine, the line over the map from home to a station. It lies over the picture and is no
/// part of it.
class PlotLine {
public:
    /// Where the line runs, in map units, and how it looks.
    struct Shape {
        bool visible = false; ///< set by show() and hide() themselves
        double fromX = 0.0;   ///< where lines begin, at home
        double fromY = 0.0;   ///< likewise
        double toX = 0.0;     ///< the station picked
        double toY = 0.0;     ///< likewise
        int width = 1;        ///< pixels, 1 to 3
        Colour colour = 0;    ///< as the key had it when the station was picked
    };

    /// The line as it was shown last, visible or not.
    const Shape& shape() const { return shape_; }

    /// Shows the line in a new place.
    void show(const Shape& shape) {
        shape_ = shape;
        shape_.visible = true;
        changed();
    }

    /// Takes the line away. Nobody is told when there was none.
    void hide() {
        if (!shape_.visible)
            return;
        shape_.visible = false;
        changed();
    }

    /// Called after every change.
    Signal<> changed;

private:
    Shape shape_;
};

} // namespace tovrel
