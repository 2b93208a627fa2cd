#include "map/WindowShape.h"

#include "platform/Numbers.h"

#include <cstdlib>

namespace tovrel {

QRect SizingProc(QRect proposed, SizingEdge edge, Projection projection, int chrome) {
    const bool azimuthal = projection == Projection::Azimuthal;
    const int wide = azimuthal ? proposed.height() - chrome : 2 * proposed.height();
    switch (edge) {
    case SizingEdge::Left:
    case SizingEdge::Right:
    case SizingEdge::BottomLeft:
    case SizingEdge::BottomRight:
        // The bottom edge is what is rounded.
        proposed.setHeight(azimuthal
                               ? proposed.width() + chrome
                               : roundToInt(proposed.y() + proposed.width() / 2.0) - proposed.y());
        break;
    case SizingEdge::Top:
    case SizingEdge::TopRight:
    case SizingEdge::Bottom:
        proposed.setWidth(wide);
        break;
    case SizingEdge::TopLeft:
        proposed.setLeft(proposed.x() + proposed.width() - wide);
        break;
    }
    return proposed;
}

SizingEdge draggedEdge(const QRect& before, const QRect& after) {
    const bool wider = after.width() != before.width();
    const bool higher = after.height() != before.height();
    const bool left = wider && after.left() != before.left();
    const bool top = higher && after.top() != before.top();
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

QRect shapedWindow(const QRect& before, const QRect& after, Projection projection, int chrome) {
    const bool hasShape = projection == Projection::Azimuthal
                              ? after.width() == after.height() - chrome
                              : std::abs(2 * after.height() - after.width()) <= 1;
    return hasShape ? after : SizingProc(after, draggedEdge(before, after), projection, chrome);
}

} // namespace tovrel
