#include "map/PictureFile.h"

#include "platform/ByteText.h"
#include "platform/Threads.h"

#include <QBuffer>
#include <QImageReader>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace tovrel {

namespace {

constexpr int mostMebibytes = 512; // of a decoded picture: 16,384 by 8,192 pixels
constexpr qint64 mostPixels = (qint64{mostMebibytes} << 20U) / 4;
constexpr const char* tooLarge = "The picture takes more than 512 MiB of memory";

LoadedPicture unreadable(std::string reason) {
    return {ReadEnd::Unreadable, {}, std::move(reason)};
}

} // namespace

QImage withoutAlpha(QImage image) {
    if (image.isNull() || image.format() == QImage::Format_RGB32)
        return image;
    if (hasHelperThreads()) {
        image.convertTo(QImage::Format_RGB32);
        return image;
    }
    QImage copy(image.size(), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            copy.setPixel(x, y, image.pixel(x, y));
    }
    return copy;
}

LoadedPicture decodeAsStored(const FileContent& file) {
    if (!file)
        return {file.end, {}, file.reason};
    QByteArray bytes =
        QByteArray::fromRawData(file.bytes.data(), static_cast<qsizetype>(file.bytes.size()));
    QBuffer buffer(&bytes);
    QImageReader::setAllocationLimit(mostMebibytes);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    const qint64 width = std::abs(qint64{size.width()}); // a bitmap may count downward
    const qint64 height = std::abs(qint64{size.height()});
    if (width > 0 && height > mostPixels / width)
        return unreadable(tooLarge);
    QImage image;
    if (reader.format() == "bmp") {
        // What a bitmap lacks at its end is left as it was: black, and not what the memory held.
        image = QImage(size, reader.imageFormat());
        image.fill(0);
    }
    if (!reader.read(&image))
        return unreadable(byteText(reader.errorString()));
    return {ReadEnd::Content, std::move(image), {}};
}

LoadedPicture LoadPicture(const std::string& path) {
    LoadedPicture picture = decodeAsStored(readFile(path));
    picture.image = withoutAlpha(std::move(picture.image));
    return picture;
}

bool encodePicture(const QImage& image, const char* format, QIODevice& file) {
    constexpr int jpegQuality = 92;
    const bool lossy = std::string_view(format) == "JPG";
    return image.save(&file, format, lossy ? jpegQuality : -1);
}

WriteEnd SavePicture(const QImage& image, const std::string& path, const char* format) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!encodePicture(image, format, buffer))
        return WriteEnd{"the picture could not be encoded"};
    const QByteArray& bytes = buffer.data();
    return writeFile(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace tovrel
