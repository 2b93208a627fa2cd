#pragma once

#include <QImage>
#include <optional>
#include <string>

namespace tovrel {

/// Image of a file in any format that can be read (BMP, JPEG, PNG), as a 32-bit image without
/// alpha; nothing when there is no such file or it can't be decoded.
std::optional<QImage> LoadPicture(const std::string& path);

/// Writes an image as a file, beside its place and renamed over it when whole.
/// @param format "BMP", "PNG" or "JPG"
/// @return whether the new file stands
bool SavePicture(const QImage& image, const std::string& path, const char* format = "BMP");

} // namespace tovrel
