#pragma once

#include "map/MapUnits.h"

#include <QRect>

namespace tovrel {

/// The edge or corner of a window that the user drags.
enum class SizingEdge { Left = 1, Right, Top, TopLeft, TopRight, Bottom, BottomLeft, BottomRight };

/// The outer rectangle, in pixels, that a window shall take while an edge is dragged: that of the
/// map's shape, so that the edge follows the pointer. One side of `proposed` is corrected.
/// @param chrome height of title bar, frame and menu
QRect SizingProc(QRect proposed, SizingEdge edge, MapShape shape, int chrome);

/// The edge that must have been dragged for one rectangle to become the other: the side that moved
/// of each pair, a corner when both axes changed. Right bottom when nothing moved.
SizingEdge draggedEdge(const QRect& before, const QRect& after);

/// What SizingProc makes of a window that was `before`; `after` itself when it has the shape.
QRect shapedWindow(const QRect& before, const QRect& after, MapShape shape, int chrome);

} // namespace tovrel
