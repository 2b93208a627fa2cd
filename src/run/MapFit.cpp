#include "run/MapFit.h"

#include "platform/Twips.h"

#include <algorithm>
#include <cmath>

namespace tovrel {

namespace {

// What a window of the map's width leaves beside the picture.
constexpr float besidePicture = 110.0F;

/// Whether a window has the shape that the program gives it, to the pixel.
bool hasItsShape(const WindowArea& window, bool azimuthal) {
    const float off =
        azimuthal ? window.Width - window.ScaleHeight : window.Height - window.Width / 2.0F;
    return window.free && window.Width > besidePicture &&
           std::abs(off) < static_cast<float>(twipsPerPixel);
}

} // namespace

MapPlace MapFit(const WindowArea& window, Projection projection) {
    const bool azimuthal = projection == Projection::Azimuthal;
    if (hasItsShape(window, azimuthal)) {
        // Square before the base map is stretched over it, so that circles are round and the marks
        // lie where the base map has their places.
        return {0.0F, 0.0F, azimuthal ? window.ScaleHeight : window.Width - besidePicture,
                window.ScaleHeight};
    }
    const float shape = azimuthal ? 1.0F : 2.0F;
    const float width = std::min(window.ScaleWidth, window.ScaleHeight * shape);
    const float height = width / shape;
    return {(window.ScaleWidth - width) / 2.0F, (window.ScaleHeight - height) / 2.0F, width,
            height};
}

} // namespace tovrel
