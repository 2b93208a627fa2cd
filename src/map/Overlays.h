#pragma once

#include "map/PictureSurface.h"
#include "map/WorldMap.h"
#include "platform/PassListener.h"

namespace tovrel {

/// Pixels across the two dots of a mark: the inner one leaves a ring of the outer.
struct DotWidths {
    int outer = 5; ///< odd
    int inner = 3; ///< odd, less than the outer one
};

/// Draws a mark at a position in map units; DrawWidth is 1 after it.
void drawMark(PictureSurface& surface, MapPoint at, DotWidths widths, Colour outline, Colour inner);

/// How the compass is drawn.
struct CompassStyle {
    int step = 15;     ///< degrees between two ticks, 15 or 45
    bool bold = false; ///< the labels are
};

/// Draws the compass rose round the azimuthal map: ticks between its circles and labels "000" to
/// "345" outside them, each centred over its tick.
void DrawCompass(PictureSurface& Picture1, CompassStyle style);

/// Draws meridians and parallels, letting events run after each meridian.
void DrawGraticule(PictureSurface& Picture2, const WorldMap& map, Colour colour,
                   PassListener& listener);

/// Draws the home station's mark.
void DrawHomeMarker(PictureSurface& Picture2, HomePosition home, DotWidths widths, Colour outline,
                    Colour inner);

} // namespace tovrel
