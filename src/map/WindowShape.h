#pragma once

#include "platform/Projection.h"

namespace tovrel {

/// An outer window rectangle in pixels; right and bottom lie behind the last pixel.
struct WindowRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool operator==(const WindowRect&) const = default;
};

/// The edge or corner of a window that the user drags.
enum class SizingEdge { Left = 1, Right, Top, TopLeft, TopRight, Bottom, BottomLeft, BottomRight };

/// The rectangle that a window shall take while an edge is dragged: on the azimuthal map as wide as
/// the client area below the menu is high, so that the edge follows the pointer, on the Miller map
/// twice as wide as high. One side of `proposed` is corrected.
/// @param chrome height of title bar, frame and menu
WindowRect SizingProc(WindowRect proposed, SizingEdge edge, Projection projection, int chrome);

/// The edge that must have been dragged for one rectangle to become the other: the side that moved
/// of each pair, a corner when both axes changed. Right bottom when nothing moved.
SizingEdge draggedEdge(const WindowRect& before, const WindowRect& after);

/// What SizingProc makes of a window that was `before`; `after` itself when it has the shape.
WindowRect shapedWindow(const WindowRect& before, const WindowRect& after, Projection projection,
                        int chrome);

} // namespace tovrel
