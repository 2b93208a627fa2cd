#pragma once

#include "platform/Files.h"

#include <QImage>
#include <string>

class QIODevice;

namespace tovrel {

/// A picture file that was read.
struct LoadedPicture {
    ReadEnd end = ReadEnd::Missing; ///< Unreadable also of what can't be decoded
    QImage image;                   ///< with Content: 32-bit without alpha
    std::string reason;             ///< with Unreadable, UTF-8

    /// Whether there is an image.
    explicit operator bool() const { return end == ReadEnd::Content; }
};

/// Image of a file in any format that can be read (BMP, JPEG, PNG), known by its content and not by
/// its name. One that takes more than 512 MiB of memory is not decoded.
LoadedPicture LoadPicture(const std::string& path);

/// The same of a file that was read, in the format that it is stored in: with a colour table it
/// takes a quarter of the memory.
LoadedPicture decodeAsStored(const FileContent& file);

/// The image as 32 bits without alpha.
QImage withoutAlpha(QImage image);

/// Encodes an image, JPEG at a quality that keeps letters clean.
/// @param format "BMP", "PNG" or "JPG"
/// @param file open for writing; a failure of it ends the encoding
/// @return whether all was encoded
bool encodePicture(const QImage& image, const char* format, QIODevice& file);

/// Replaces a file by an image, as FileReplacement does.
/// @param format "BMP", "PNG" or "JPG"
WriteEnd SavePicture(const QImage& image, const std::string& path, const char* format = "BMP");

} // namespace tovrel
