#pragma once

#include "platform/Colour.h"

namespace tovrel {

constexpr Colour white = 0xFFFFFF;
constexpr Colour black = 0x000000;
constexpr Colour land = 0xC0FFC0;
constexpr Colour water = 0xFECDA5;

} // namespace tovrel
