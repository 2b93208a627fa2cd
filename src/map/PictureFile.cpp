#include "map/PictureFile.h"

#include "platform/ByteText.h"
#include "platform/Threads.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>
#include <utility>

namespace tovrel {

namespace {

constexpr int mostMebibytes = 512; // of a decoded picture: 16,384 by 8,192 pixels
constexpr const char* tooLarge = "The picture takes more than 512 MiB of memory";

LoadedPicture unreadable(std::string reason) {
    return {ReadEnd::Unreadable, {}, std::move(reason)};
}

/// The image as 32 bits without alpha.
QImage withoutAlpha(QImage image) {
    if (hasHelperThreads() || image.format() == QImage::Format_RGB32) {
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

LoadedPicture decode(const FileContent& file) {
    if (!file)
        return {file.end, {}, file.reason};
    QByteArray bytes =
        QByteArray::fromRawData(file.bytes.data(), static_cast<qsizetype>(file.bytes.size()));
    QBuffer buffer(&bytes);
    QImageReader::setAllocationLimit(mostMebibytes);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (qint64{4} * size.width() * size.height() > qint64{mostMebibytes} << 20U)
        return unreadable(tooLarge);
    QImage image = reader.read();
    if (image.isNull())
        return unreadable(byteText(reader.errorString()));
    return {ReadEnd::Content, withoutAlpha(std::move(image)), {}};
}

/// Whether bytes are a bitmap of the length that its header tells.
bool isWholeBitmap(std::string_view bytes) {
    constexpr std::size_t lengthOffset = 2;
    return bytes.starts_with("BM") && bytes.size() >= lengthOffset + sizeof(quint32) &&
           qFromLittleEndian<quint32>(bytes.data() + lengthOffset) == bytes.size();
}

} // namespace

LoadedPicture LoadPicture(const std::string& path) { return decode(readFile(path)); }

LoadedPicture LoadWholeBitmap(const std::string& path) {
    const FileContent file = readFile(path);
    if (file && !isWholeBitmap(file.bytes))
        return unreadable("Not a whole bitmap");
    return decode(file);
}

WriteEnd SavePicture(const QImage& image, const std::string& path, const char* format) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format))
        return {"the picture could not be encoded"};
    const QByteArray& bytes = buffer.data();
    return writeFile(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace tovrel
