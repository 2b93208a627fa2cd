#include "map/PackedPicture.h"

#include "map/PictureFile.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace tovrel {

namespace {

constexpr std::size_t mostColours = 256;
constexpr std::ptrdiff_t longestRun = 255;
constexpr std::string_view endOfRow("\0\0", 2);
constexpr std::string_view endOfPicture("\0\1", 2);

std::size_t byteAt(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes[at]);
}

/// Whether runs fill so many rows of a width, in so many colours.
bool fill(QSize size, std::size_t colours, std::string_view runs) {
    std::size_t at = 0;
    for (int y = 0; y < size.height(); ++y) {
        std::size_t pixels = 0;
        for (; at + 1 < runs.size() && runs[at] != 0; at += 2) {
            if (byteAt(runs, at + 1) >= colours)
                return false;
            pixels += byteAt(runs, at);
        }
        if (pixels != static_cast<std::size_t>(size.width()) ||
            runs.substr(at, endOfRow.size()) != endOfRow)
            return false;
        at += endOfRow.size();
    }
    return runs.substr(at) == endOfPicture;
}

} // namespace

PackedPicture::PackedPicture(const QImage& image)
    : size_(image.size()), plain_(withoutAlpha(image)) {
    std::unordered_map<QRgb, char> numbers;
    for (int y = size_.height() - 1; y >= 0; --y) {
        const auto* pixel = reinterpret_cast<const QRgb*>(plain_.constScanLine(y));
        const QRgb* const end = pixel + size_.width();
        while (pixel < end) {
            const QRgb* const last = std::min(pixel + longestRun, end);
            const QRgb* const after = std::find_if(
                pixel, last, [colour = *pixel](QRgb other) { return other != colour; });
            const auto [number, isNew] =
                numbers.try_emplace(*pixel, static_cast<char>(colours_.size()));
            if (isNew && colours_.size() == mostColours) {
                colours_.clear();
                runs_.clear();
                return;
            }
            if (isNew)
                colours_.push_back(*pixel | 0xFF000000U);
            runs_ += static_cast<char>(after - pixel);
            runs_ += number->second;
            pixel = after;
        }
        runs_ += endOfRow;
    }
    runs_ += endOfPicture;
    plain_ = QImage();
}

std::optional<PackedPicture> PackedPicture::ofRuns(QSize size, std::vector<QRgb> colours,
                                                   std::string runs) {
    if (size.isEmpty() || colours.size() > mostColours || !fill(size, colours.size(), runs))
        return std::nullopt;
    PackedPicture picture;
    picture.size_ = size;
    picture.colours_ = std::move(colours);
    picture.runs_ = std::move(runs);
    return picture;
}

QImage PackedPicture::image() const {
    QImage image;
    unpackTo(image);
    return image;
}

void PackedPicture::unpackTo(QImage& image) const {
    if (isPlain()) {
        image = plain_;
        return;
    }
    if (image.size() != size_ || image.format() != QImage::Format_RGB32 || !image.isDetached()) {
        image = QImage(); // not both at once
        image = QImage(size_, QImage::Format_RGB32);
    }
    std::size_t at = 0;
    for (int y = size_.height() - 1; y >= 0; --y) {
        auto* pixel = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (; runs_[at] != 0; at += 2)
            pixel = std::fill_n(pixel, byteAt(runs_, at), colours_[byteAt(runs_, at + 1)]);
        at += endOfRow.size();
    }
}

} // namespace tovrel
