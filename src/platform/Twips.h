#pragma once

#include "platform/Numbers.h"

/// Windows and controls are measured in twips, 1/1440 inch; a pixel is always 15 of them.
namespace tovrel {

/// The same on every screen: an inch has 96 pixels here, whatever the screen's real size.
inline constexpr int twipsPerPixel = 15;

/// Whole pixels nearest to a length in twips.
inline int pixelsFromTwips(double twips) { return roundToInt(twips / twipsPerPixel); }

/// Twips of a length in pixels.
constexpr float twipsFromPixels(int pixels) { return static_cast<float>(pixels * twipsPerPixel); }

} // namespace tovrel
