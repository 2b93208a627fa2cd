#pragma once

#include <QImage>

namespace tovrel {

/// A smooth stretch of an image that needs no helper threads, for where none can be had: the mean
/// of what a pixel covers where the image shrinks, between the nearest pixels where it grows.
/// @param source of Format_RGB32, not null
/// @param size not empty
QImage stretchedAlone(const QImage& source, QSize size);

} // namespace tovrel
