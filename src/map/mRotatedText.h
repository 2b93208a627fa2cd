#pragma once

#include "map/PictureSurface.h"

namespace tovrel {

/// How a text is set: the height is that of its cell, from the top of the tallest letter to the
/// bottom of the deepest, in pixels.
struct TextStyle {
    QString fontName = QStringLiteral("Arial");
    int height = 18;
    int weight = 400; ///< 400 normal, 800 bold
    bool italic = false;
    bool underline = false;
    bool strikethru = false;
};

/// Prints text at the surface's current point, its top left corner there, turned by `escapement`
/// tenths of a degree counterclockwise.
void RotatedPrint(const QString& text, const TextStyle& style, int escapement,
                  PictureSurface& surface);

/// The font of a style.
QFont fontOf(const TextStyle& style);

/// Width in pixels of a text in the 11-pixel Arial of the program's labels.
int labelWidth(const QString& text);

} // namespace tovrel
