#pragma once

#include "state/MapColours.h"

namespace tovrel {

constexpr Colour white = 0xFFFFFF;
constexpr Colour black = 0x000000;
constexpr Colour land = keyOf(MapColour::Land).byDefault;
constexpr Colour water = keyOf(MapColour::Water).byDefault;
constexpr Colour grey = keyOf(MapColour::Meridian).byDefault;

} // namespace tovrel
