#pragma once

#include <cstdint>

namespace tovrel {

/// A colour as settings and surfaces hold it: 0x00BBGGRR, red in the low byte.
using Colour = std::uint32_t;

/// The same colour with red in the high byte and an opaque alpha, as a 32-bit image holds it.
constexpr std::uint32_t imageColour(Colour colour) {
    return 0xFF000000U | (colour & 0xFFU) << 16U | (colour & 0xFF00U) | (colour >> 16U & 0xFFU);
}

/// The way back from a 32-bit image.
constexpr Colour colourOfImage(std::uint32_t pixel) {
    return (pixel & 0xFFU) << 16U | (pixel & 0xFF00U) | (pixel >> 16U & 0xFFU);
}

} // namespace tovrel
