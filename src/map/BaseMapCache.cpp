#include "map/BaseMapCache.h"

#include "platform/Numbers.h"

#include <QtEndian>

namespace tovrel {

namespace {

constexpr std::string_view homeMark = "\nTovrel home ";
constexpr std::size_t longestNote = 128; // a single takes up to 49 bytes
constexpr std::size_t lengthOffset = 2;  // of the file's length in the header of a bitmap

std::optional<MapHome> homeIn(std::string_view bytes) {
    bytes.remove_prefix(bytes.size() - std::min(bytes.size(), longestNote));
    const std::size_t mark = bytes.rfind(homeMark);
    if (mark == std::string_view::npos)
        return std::nullopt;
    const std::string_view note = bytes.substr(mark + homeMark.size());
    const std::size_t comma = std::min(note.find(','), note.size() - 1);
    return MapHome{toSingle(numberValue(note)), toSingle(numberValue(note.substr(comma + 1)))};
}

/// Whether bytes are a bitmap of the length that its header tells.
bool isWhole(std::string_view bytes) {
    return bytes.starts_with("BM") && bytes.size() >= lengthOffset + sizeof(quint32) &&
           qFromLittleEndian<quint32>(bytes.data() + lengthOffset) == bytes.size();
}

} // namespace

CachedBaseMap loadBaseMap(const std::string& path) {
    const FileContent file = readFile(path);
    if (file && !isWhole(file.bytes))
        return {{ReadEnd::Unreadable, {}, "Not a whole bitmap"}, {}};
    return {decodePicture(file), file ? homeIn(file.bytes) : std::nullopt};
}

WriteEnd saveBaseMap(const QImage& image, const std::optional<MapHome>& home,
                     const std::string& path) {
    std::string bytes = encodePicture(image, "BMP");
    if (home) {
        bytes.append(homeMark)
            .append(decimalText(home->latitude))
            .append(",")
            .append(decimalText(home->longitude));
        qToLittleEndian(static_cast<quint32>(bytes.size()), bytes.data() + lengthOffset);
    }
    return writeFile(path, bytes);
}

} // namespace tovrel
