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

/// The rectangle that a window shall take while an edge is dragged: square on the azimuthal map,
/// twice as wide as high on the Miller map. One side of `proposed` is corrected.
WindowRect SizingProc(WindowRect proposed, SizingEdge edge, Projection projection);

/// The edge that must have been dragged for one rectangle to become the other: the side that moved
/// of each pair, a corner when both axes changed. Right bottom when nothing moved.
SizingEdge draggedEdge(const WindowRect& before, const WindowRect& after);

} // namespace tovrel
