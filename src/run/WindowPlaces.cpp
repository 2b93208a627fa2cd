#include "run/WindowPlaces.h"

#include <algorithm>

namespace tovrel {

QPoint centred(const QRect& screen, const QRect& available, QSize outer) {
    const QPoint middle(screen.left() + (screen.width() - outer.width()) / 2,
                        screen.top() + (screen.height() - outer.height()) / 2);
    return {std::max(middle.x(), available.left()), std::max(middle.y(), available.top())};
}

PairPlaces sideBySide(const QRect& main, int statsWidth, const QRect& available, bool free) {
    QRect moved = main;
    if (free && main.left() > available.left())
        moved.moveLeft(std::max(main.left() - statsWidth / 2, available.left()));
    const int height = std::min(main.height(), available.height());
    const int left = std::min(moved.right() + 1, available.right() + 1 - statsWidth);
    const int top = std::min(main.top(), available.bottom() + 1 - height);
    return {moved.topLeft(),
            {std::max(left, available.left()), std::max(top, available.top()), statsWidth, height}};
}

} // namespace tovrel
