#include "map/PictureFile.h"

#include "platform/Files.h"

#include <QBuffer>

namespace tovrel {

std::optional<QImage> LoadPicture(const std::string& path) {
    const std::optional<std::string> bytes = readFile(path);
    if (!bytes)
        return std::nullopt;
    // By content, not by name: the cached base maps are bitmaps with an extension of their own.
    const QImage image =
        QImage::fromData(QByteArrayView(bytes->data(), static_cast<qsizetype>(bytes->size())));
    if (image.isNull())
        return std::nullopt;
    return image.convertToFormat(QImage::Format_RGB32);
}

bool SavePicture(const QImage& image, const std::string& path, const char* format) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format))
        return false;
    const QByteArray& bytes = buffer.data();
    return writeFile(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace tovrel
