#include "map/PictureFile.h"

#include "platform/Files.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

namespace tovrel {

std::optional<QImage> LoadPicture(const std::string& path) {
    QFile file(QString::fromStdString(path));
    if (!fileExists(path) || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    // By content, not by name: the cached base maps are bitmaps with an extension of their own.
    QImage image = QImageReader(&file).read();
    if (image.isNull())
        return std::nullopt;
    image.convertTo(QImage::Format_RGB32);
    return image;
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
