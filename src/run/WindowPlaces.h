#pragma once

#include <QRect>
#include <QSize>

namespace tovrel {

/// Upper left corner of a window of an outer size in the middle of a screen, its title bar and left
/// edge on the part of it that is available.
QPoint centred(const QRect& screen, const QRect& available, QSize outer);

/// Where the main window and the statistics window go when the latter is opened.
struct PairPlaces {
    QPoint main; ///< upper left corner
    QRect stats; ///< outer rectangle
};

/// The main window makes room to the left by half of the statistics window's width, as far as the
/// screen has room there, and the statistics window stands beside it, as high, all of it on the
/// screen.
/// @param main outer rectangle of the main window
/// @param statsWidth outer width of the statistics window
/// @param available part of the screen for windows
/// @param free whether the main window may be moved
PairPlaces sideBySide(const QRect& main, int statsWidth, const QRect& available, bool free);

} // namespace tovrel
