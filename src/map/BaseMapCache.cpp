#include "map/BaseMapCache.h"

#include "platform/Numbers.h"

#include <QBuffer>
#include <QImageWriter>
#include <QtEndian>
#include <cstdlib>
#include <unordered_map>

namespace tovrel {

namespace {

constexpr const char* resolutionKey = "Tovrel resolution";
constexpr const char* homeKey = "Tovrel home";

std::optional<MapHome> homeOf(const std::string& note) {
    const std::size_t comma = note.find(',');
    if (comma == std::string::npos)
        return std::nullopt;
    return MapHome{toSingle(numberValue(note)), toSingle(numberValue(note.substr(comma + 1)))};
}

bool isBitmap(std::string_view bytes) { return bytes.starts_with("BM"); }

/// Whether a picture ends where it should: a bitmap where its header and its pixels do, any other
/// with the last chunk that we write. Decoders pass over what is missing.
bool isWhole(std::string_view bytes) {
    if (!isBitmap(bytes))
        return bytes.ends_with("IEND\xAE\x42\x60\x82");
    constexpr std::size_t headers = 54;
    if (bytes.size() < headers)
        return false;
    const auto number = [bytes](std::size_t at) {
        return qint64{qFromLittleEndian<qint32>(bytes.data() + at)};
    };
    const qint64 bits = qFromLittleEndian<quint16>(bytes.data() + 28);
    const qint64 row = (number(18) * bits + 31) / 32 * 4;
    const auto size = static_cast<qint64>(bytes.size());
    return number(2) == size && number(10) + row * std::abs(number(22)) == size;
}

/// The image with a colour table if it has few colours, which makes its file small and quick to
/// read.
QImage withFewColours(const QImage& image) {
    constexpr int mostColours = 256;
    QImage indexed(image.size(), QImage::Format_Indexed8);
    std::unordered_map<QRgb, uchar> numbers;
    QList<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        const auto* const from = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        uchar* const to = indexed.scanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            if (x > 0 && from[x] == from[x - 1]) {
                to[x] = to[x - 1];
                continue;
            }
            const auto [entry, isNew] =
                numbers.try_emplace(from[x], static_cast<uchar>(colours.size()));
            if (isNew && colours.size() == mostColours)
                return image;
            if (isNew)
                colours.push_back(from[x]);
            to[x] = entry->second;
        }
    }
    indexed.setColorTable(colours);
    return indexed;
}

} // namespace

CachedBaseMap loadBaseMap(const std::string& path) {
    const FileContent file = readFile(path);
    if (file && !isWhole(file.bytes))
        return {{ReadEnd::Unreadable, {}, "Not a whole picture"}, 1, {}};
    CachedBaseMap cached{decodeAsStored(file), 1, {}};
    if (cached.picture && !isBitmap(file.bytes)) {
        cached.resolution = cached.picture.image.text(QLatin1String(resolutionKey)).toInt();
        cached.home = homeOf(cached.picture.image.text(QLatin1String(homeKey)).toStdString());
    }
    return cached;
}

WriteEnd saveBaseMap(const QImage& image, int resolution, const std::optional<MapHome>& home,
                     const std::string& path) {
    constexpr int quick = 20; // of 100; the most takes ten times as long for a tenth less
    QImage noted = withFewColours(image);
    noted.setText(QLatin1String(resolutionKey), QString::number(resolution));
    if (home) {
        noted.setText(QLatin1String(homeKey),
                      QString::fromStdString(decimalText(home->latitude) + "," +
                                             decimalText(home->longitude)));
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "PNG");
    writer.setCompression(quick);
    if (!writer.write(noted))
        return {writer.errorString().toStdString()};
    const QByteArray& bytes = buffer.data();
    return writeFile(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace tovrel
