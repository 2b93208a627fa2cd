#include "map/WindowShape.h"

#include "platform/Numbers.h"

namespace tovrel {

WindowRect SizingProc(WindowRect proposed, SizingEdge edge, Projection projection) {
    const bool azimuthal = projection == Projection::Azimuthal;
    const int width = proposed.right - proposed.left;
    const int height = proposed.bottom - proposed.top;
    const int wide = azimuthal ? height : 2 * height;
    switch (edge) {
    case SizingEdge::Left:
    case SizingEdge::Right:
    case SizingEdge::BottomLeft:
    case SizingEdge::BottomRight:
        proposed.bottom = azimuthal ? proposed.top + width : roundToInt(proposed.top + width / 2.0);
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

} // namespace tovrel
