#include "map/WindowShape.h"

#include "platform/Numbers.h"

#include <cstdlib>

namespace tovrel {

QRect SizingProc(QRect proposed, SizingEdge edge, MapShape shape, int chrome) {
    const int beside = shape.beside(chrome);
    const int wide = shape.widthPerHeight * (proposed.height() - beside);
    switch (edge) {
    case SizingEdge::Left:
    case SizingEdge::Right:
    case SizingEdge::BottomLeft:
    case SizingEdge::BottomRight:
        // The bottom edge is what is rounded.
        proposed.setHeight(roundToInt(proposed.y() + proposed.width() / static_cast<double>(
                                                                            shape.widthPerHeight)) -
                           proposed.y() + beside);
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

QRect shapedWindow(const QRect& before, const QRect& after, MapShape shape, int chrome) {
    const int tooWide =
        after.width() - shape.widthPerHeight * (after.height() - shape.beside(chrome));
    const bool hasShape = std::abs(tooWide) < shape.widthPerHeight;
    return hasShape ? after : SizingProc(after, draggedEdge(before, after), shape, chrome);
}

} // namespace tovrel
