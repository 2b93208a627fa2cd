#include "run/MapFit.h"

#include "map/BaseMap.h"
#include "platform/Twips.h"

#include <algorithm>
#include <cmath>

namespace tovrel {

namespace {

// What a window of the map's width leaves beside the picture.
constexpr float besidePicture = 110.0F;

/// Whether a window has the shape that the program gives it, to the pixel.
bool hasItsShape(const WindowArea& window, MapShape shape) {
    const float height = shape.ofClientArea ? window.ScaleHeight : window.Height;
    const float off = height - window.Width / static_cast<float>(shape.widthPerHeight);
    return window.free && window.Width > besidePicture &&
           std::abs(off) < static_cast<float>(twipsPerPixel);
}

} // namespace

MapPlace MapFit(const WindowArea& window, MapShape shape) {
    const auto widthPerHeight = static_cast<float>(shape.widthPerHeight);
    if (hasItsShape(window, shape)) {
        // Of its shape before the base map is stretched over it, so that circles are round and the
        // marks lie where the base map has their places.
        return {0.0F, 0.0F,
                shape.ofClientArea ? window.ScaleHeight * widthPerHeight
                                   : window.Width - besidePicture,
                window.ScaleHeight};
    }
    const float width = std::min(window.ScaleWidth, window.ScaleHeight * widthPerHeight);
    const float height = width / widthPerHeight;
    return {(window.ScaleWidth - width) / 2.0F, (window.ScaleHeight - height) / 2.0F, width,
            height};
}

int resolutionFor(int pixels) {
    int resolution = 1;
    while (baseMapPixels(resolution) < pixels)
        ++resolution;
    return resolution;
}

int baseMapPixels(int resolution) {
    return pixelsFromTwips(static_cast<double>(baseMapSize) * resolution);
}

} // namespace tovrel
