#include "map/BaseMapCache.h"

#include "map/PictureFile.h"
#include "platform/Numbers.h"

#include <QBuffer>
#include <QImageWriter>
#include <QtEndian>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace tovrel {

namespace {

constexpr const char* noteKey = "Tovrel base map";

// A bitmap of runs: two headers, the colours, our note, the runs. Other programs pass over what
// lies between colours and runs.
constexpr std::size_t headers = 54;
constexpr std::size_t bytesOfColour = 4;
constexpr int secondHeader = 40;
constexpr int bitsOfRuns = 8;
constexpr int compressedByRuns = 1;

/// Text that tells resolution and home, as "3 50,-20.5".
std::string noteOf(const KeptBaseMap& map) {
    const std::string home =
        map.home ? " " + decimalText(map.home->latitude) + "," + decimalText(map.home->longitude)
                 : std::string();
    return std::to_string(map.resolution) + home;
}

/// Takes resolution and home from their text; without one, those of a plain bitmap stay.
void takeNote(KeptBaseMap& map, const std::string& note) {
    if (note.empty())
        return;
    map.resolution = roundToInt(numberValue(note));
    const std::size_t blank = note.find(' ');
    const std::size_t comma = note.find(',');
    if (blank < comma && comma != std::string::npos) {
        map.home = MapHome{toSingle(numberValue(note.substr(blank))),
                           toSingle(numberValue(note.substr(comma + 1)))};
    }
}

bool isBitmap(std::string_view bytes) { return bytes.starts_with("BM"); }

/// A number of a bitmap's headers, of two bytes or of four.
template <typename Number>
qint64 numberAt(std::string_view bytes, std::size_t at) {
    return qFromLittleEndian<Number>(bytes.data() + at);
}

bool isBitmapOfRuns(std::string_view bytes) {
    return isBitmap(bytes) && bytes.size() >= headers &&
           numberAt<quint16>(bytes, 28) == bitsOfRuns &&
           numberAt<quint32>(bytes, 30) == compressedByRuns;
}

/// Whether a picture ends where it should: a bitmap where its header and its pixels do, any other
/// with the last chunk that we write. Decoders pass over what is missing.
bool isWhole(std::string_view bytes) {
    if (!isBitmap(bytes))
        return bytes.ends_with("IEND\xAE\x42\x60\x82");
    if (bytes.size() < headers)
        return false;
    const qint64 width = std::abs(numberAt<qint32>(bytes, 18));
    const qint64 row = (width * numberAt<quint16>(bytes, 28) + 31) / 32 * 4;
    const auto size = static_cast<qint64>(bytes.size());
    if (row > size)
        return false; // nor could it be multiplied
    return numberAt<qint32>(bytes, 2) == size &&
           numberAt<qint32>(bytes, 10) + row * std::abs(numberAt<qint32>(bytes, 22)) == size;
}

std::string bitmapOfRuns(const KeptBaseMap& map) {
    const PackedPicture& picture = map.picture;
    const std::string note = noteKey + (" " + noteOf(map));
    const std::size_t colours = picture.colours().size();
    const std::size_t pixels = headers + colours * bytesOfColour + note.size();
    std::string bytes = "BM";
    const auto put = [&bytes](auto number) {
        const auto stored = qToLittleEndian(number);
        bytes.append(reinterpret_cast<const char*>(&stored), sizeof(stored));
    };
    const auto put32 = [put](auto number) { put(static_cast<quint32>(number)); };
    put32(pixels + picture.runs().size());
    put32(0);
    put32(pixels);
    put32(secondHeader);
    put32(picture.size().width());
    put32(picture.size().height());
    put(quint16{1});
    put(quint16{bitsOfRuns});
    put32(compressedByRuns);
    put32(picture.runs().size());
    put32(0); // pixels to a metre
    put32(0);
    put32(colours);
    put32(colours);
    for (const QRgb colour : picture.colours())
        put32(colour & 0xFFFFFFU);
    return bytes + note + picture.runs();
}

CachedBaseMap mapOfRuns(const std::string& bytes) {
    const QSize size(static_cast<int>(numberAt<qint32>(bytes, 18)),
                     static_cast<int>(numberAt<qint32>(bytes, 22)));
    const auto pixels = static_cast<std::size_t>(numberAt<quint32>(bytes, 10));
    const auto count = static_cast<std::size_t>(numberAt<quint32>(bytes, 46));
    const std::size_t noteAt = headers + count * bytesOfColour;
    if (numberAt<quint32>(bytes, 14) != secondHeader || noteAt > pixels || pixels > bytes.size())
        return {ReadEnd::Unreadable, {}};
    std::vector<QRgb> colours;
    for (std::size_t at = headers; at < noteAt; at += bytesOfColour)
        colours.push_back(static_cast<QRgb>(numberAt<quint32>(bytes, at)) | 0xFF000000U);
    std::optional<PackedPicture> picture =
        PackedPicture::ofRuns(size, std::move(colours), bytes.substr(pixels));
    if (!picture)
        return {ReadEnd::Unreadable, {}};
    CachedBaseMap cached{ReadEnd::Content, {std::move(*picture), 1, {}}};
    const std::string note = bytes.substr(noteAt, pixels - noteAt);
    const std::string key = std::string(noteKey) + " ";
    takeNote(cached.map, note.starts_with(key) ? note.substr(key.size()) : std::string());
    return cached;
}

} // namespace

CachedBaseMap loadBaseMap(const std::string& path) {
    const FileContent file = readFile(path);
    if (!file)
        return {file.end, {}};
    if (isBitmapOfRuns(file.bytes))
        return mapOfRuns(file.bytes);
    const LoadedPicture picture = isWhole(file.bytes) ? decodeAsStored(file) : LoadedPicture();
    if (!picture)
        return {ReadEnd::Unreadable, {}};
    CachedBaseMap cached{ReadEnd::Content, {PackedPicture(picture.image), 1, {}}};
    takeNote(cached.map, picture.image.text(QLatin1String(noteKey)).toStdString());
    return cached;
}

WriteEnd saveBaseMap(const KeptBaseMap& map, const std::string& path) {
    if (!map.picture.isPlain())
        return writeFile(path, bitmapOfRuns(map));
    constexpr int quick = 20; // of 100; the most takes ten times as long for a tenth less
    QImage noted = map.picture.image();
    noted.setText(QLatin1String(noteKey), QString::fromStdString(noteOf(map)));
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
