#pragma once

#include "map/MapUnits.h"

namespace tovrel {

/// A window as far as the map's place in it depends on it, in twips.
struct WindowArea {
    float Width = 0.0F;       ///< of the outer window
    float Height = 0.0F;      ///< likewise
    float ScaleWidth = 0.0F;  ///< of the client area below the menu
    float ScaleHeight = 0.0F; ///< likewise
    bool free = true;         ///< neither maximized nor full screen
    float ratio = 1.0F;       ///< pixels of the screen to 15 twips

    bool operator==(const WindowArea&) const = default;
};

/// The rectangle of the map within the client area, in twips.
struct MapPlace {
    /// Offsets to the right and down from the client area's top left corner, then the extent.
    float left = 0.0F;
    float top = 0.0F;
    float width = 0.0F;
    float height = 0.0F;

    bool operator==(const MapPlace&) const = default;
};

/// Where the map lies. A free window that has taken the shape of its map is filled by it, but for
/// 110 twips beside a map that has its shape with the frame. Elsewhere, where the user or the
/// window system has the say, the map is the largest of its shape, in the middle.
MapPlace MapFit(const WindowArea& window, MapShape shape);

/// The least resolution at which a base map has so many pixels across.
int resolutionFor(int pixels);

/// Pixels across of a base map of a resolution.
int baseMapPixels(int resolution);

} // namespace tovrel
