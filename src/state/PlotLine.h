#pragma once

#include "platform/Colour.h"
#include "platform/Signal.h"

namespace tovrel {

/// lneGCPlotLine, the line over the map from home to a station. It lies over the picture and is no
/// part of it.
class PlotLine {
public:
    struct Shape {
        bool visible = false;
        double fromX = 0.0; ///< map units
        double fromY = 0.0;
        double toX = 0.0;
        double toY = 0.0;
        int width = 1; ///< pixels
        Colour colour = 0;
    };

    const Shape& shape() const { return shape_; }

    /// Shows the line in a new place.
    void show(const Shape& shape) {
        shape_ = shape;
        shape_.visible = true;
        changed();
    }

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
