#pragma once

#include "map/PictureSurface.h"

namespace tovrel {

/// Prints text in the map's lettering at the surface's current point, its top left corner there,
/// turned by `escapement` tenths of a degree counterclockwise. Its cell, from the top of the
/// tallest letter to the bottom of the deepest, is 18 pixels high.
/// @param weight 400 normal, 800 bold
void RotatedPrint(const QString& text, int weight, int escapement, PictureSurface& surface);

/// Width in pixels of a text in the 11-pixel Arial of the program's labels.
int labelWidth(const QString& text);

} // namespace tovrel
