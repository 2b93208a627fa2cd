#pragma once

#include "map/PictureSurface.h"
#include "platform/Twips.h"

#include <QImage>
#include <algorithm>
#include <gtest/gtest.h>

namespace tovrel {

/// A white surface of a number of pixels.
inline PictureSurface whiteSurface(int width, int height) {
    return {twipsFromPixels(width), twipsFromPixels(height)};
}

/// A surface that shows a picture, pixel by pixel.
inline PictureSurface surfaceOf(const QImage& image) {
    PictureSurface surface = whiteSurface(image.width(), image.height());
    surface.setPicture(PackedPicture(image));
    return surface;
}

/// A picture of one colour.
inline QImage plainImage(int width, int height, Colour colour) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(imageColour(colour));
    return image;
}

/// The pixels of some kind: how many there are, and the smallest rectangle that holds them.
struct Ink {
    int count = 0;
    int left = 1 << 30;
    int top = 1 << 30;
    int right = -1;
    int bottom = -1;

    int width() const { return right - left + 1; }
    int height() const { return bottom - top + 1; }
};

template <typename Wanted>
Ink inkWhere(const PictureSurface& surface, Wanted wanted) {
    Ink ink;
    for (int y = 0; y < surface.pixelHeight(); ++y) {
        const uchar* const bytes = surface.Image().constScanLine(y); // GetPixel would take seconds
        const auto* const row = reinterpret_cast<const std::uint32_t*>(bytes);
        for (int x = 0; x < surface.pixelWidth(); ++x) {
            if (!wanted(x, y, colourOfImage(row[x])))
                continue;
            ++ink.count;
            ink.left = std::min(ink.left, x);
            ink.right = std::max(ink.right, x);
            ink.top = std::min(ink.top, y);
            ink.bottom = std::max(ink.bottom, y);
        }
    }
    return ink;
}

/// All pixels of a colour.
inline Ink inkOf(const PictureSurface& surface, Colour colour) {
    return inkWhere(surface, [=](int, int, Colour found) { return found == colour; });
}

/// All pixels that are no longer of a colour.
inline Ink inkOver(const PictureSurface& surface, Colour paper) {
    return inkWhere(surface, [=](int, int, Colour found) { return found != paper; });
}

/// Colour of the pixel that a position in map units falls on.
inline Colour colourAt(const PictureSurface& surface, double x, double y) {
    return surface.GetPixel(static_cast<int>(surface.pixelX(x)),
                            static_cast<int>(surface.pixelY(y)));
}

} // namespace tovrel
