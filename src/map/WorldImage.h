#pragma once

#include <QImage>

namespace tovrel {

/// The plate carree picture of the world that is built into the program: 1800 by 900 pixels,
/// longitude -180 at the left edge, latitude 90 at the top, as a 32-bit image without alpha. Each
/// call decodes it anew. Null where Qt has no JPEG decoder.
QImage builtInWorld();

} // namespace tovrel
