#include "map/WindowShape.h"

#include "platform/Numbers.h"

#include <cstdlib>

namespace tovrel {

WindowRect SizingProc(WindowRect proposed, SizingEdge edge, Projection projection, int chrome) {
    const bool azimuthal = projection == Projection::Azimuthal;
    const int width = proposed.right - proposed.left;
    const int height = proposed.bottom - proposed.top;
    const int wide = azimuthal ? height - chrome : 2 * height;
    switch (edge) {
    case SizingEdge::Left:
    case SizingEdge::Right:
    case SizingEdge::BottomLeft:
    case SizingEdge::BottomRight:
        proposed.bottom =
            azimuthal ? proposed.top + width + chrome : roundToInt(proposed.top + width / 2.0);
        break;
    case SizingEdge::Top:
    case SizingEdge::TopRight:
    case SizingEdge::Bottom:
        proposed.right = proposed.left + wide;
        break;
    case SizingEdge::TopLeft:
        proposed.left = proposed.right - wide;
        break;
    }
    return proposed;
}

SizingEdge draggedEdge(const WindowRect& before, const WindowRect& after) {
    const bool wider = after.right - after.left != before.right - before.left;
    const bool higher = after.bottom - after.top != before.bottom - before.top;
    const bool left = wider && after.left != before.left;
    const bool top = higher && after.top != before.top;
    if (wider && higher) {
        if (top)
            return left ? SizingEdge::TopLeft : SizingEdge::TopRight;
        return left ? SizingEdge::BottomLeft : SizingEdge::BottomRight;
    }
    if (higher)
        return top ? SizingEdge::Top : SizingEdge::Bottom;
    if (wider)
        return left ? SizingEdge::Left : SizingEdge::Right;
    return SizingEdge::BottomRight;
}

WindowRect shapedWindow(const WindowRect& before, const WindowRect& after, Projection projection,
                        int chrome) {
    const int width = after.right - after.left;
    const int height = after.bottom - after.top;
    const bool hasShape = projection == Projection::Azimuthal ? width == height - chrome
                                                              : std::abs(2 * height - width) <= 1;
    return hasShape ? after : SizingProc(after, draggedEdge(before, after), projection, chrome);
}

} // namespace tovrel
