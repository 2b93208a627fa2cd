#include "map/TopoOverlay.h"

#include "platform/Numbers.h"
#include "platform/Twips.h"

#include <QLocale>
#include <QPoint>
#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tovrel {

namespace {

constexpr int calculationsPerPixel = 3; // as they are counted to the user
constexpr int yieldEvery = 5000;
constexpr Colour white = 0xFFFFFF;

/// Decimal digits in groups of three, as in "4,860,000".
std::string groupedText(std::int64_t number) {
    return QLocale(QLocale::English).toString(number).toStdString();
}

bool askUser(const std::string& total, UserPrompt& prompt) {
    return prompt.ask(
        {.title = "QRX ...",
         .text =
             "This is very complicated.  You have requested a colored topographical map overlay.  "
             "To do this, I have to calculate " +
             total +
             " spatial trigonometric calculations.  It'll take a couple of minutes...\r\n\r\n"
             "If you want to wait that long, click on OK, otherwise click CANCEL, and I wont do "
             "the calculations.",
         .buttons = Question::Buttons::OkCancel,
         .icon = MessageIcon::Exclamation});
}

/// Where the pixels of a world picture lie on the map, column by column, and the other way round.
/// What belongs to a whole row or column is worked out once.
class TargetPixels {
public:
    TargetPixels(const PictureSurface& surface, QSize source, const WorldMap& map, MapPoint last)
        : surface_(surface), map_(map), isPlateCarree_(map.isPlateCarree()), last_(last),
          pixelsPerDegree_(toSingle(source.width() / 360.0)), source_(source),
          width_(surface.Width()), height_(surface.Height()),
          twipsPerPixel_(surface.TwipsPerPixel()) {
        for (int y = 0; y < source.height(); ++y) {
            latitudes_.push_back(-toSingle(y / pixelsPerDegree_ - 90.0));
            stretchedRows_.push_back(
                roundToInt(y / static_cast<double>(source.height()) * (height_ / twipsPerPixel_)));
        }
    }

    void beginColumn(int x) {
        longitude_ = toSingle(x / pixelsPerDegree_ - 180.0);
        stretchedColumn_ =
            roundToInt(x / static_cast<double>(source_.width()) * (width_ / twipsPerPixel_));
    }

    /// Target of a pixel of the column, nearest whole pixel, perhaps off the surface.
    QPoint target(int y) {
        const auto row = static_cast<std::size_t>(y);
        if (isPlateCarree_)
            return {stretchedColumn_, stretchedRows_[row]};
        last_ = pointOr(map_.position(latitudes_[row], longitude_), last_);
        const double left = last_.x / unitsPerTwipX_ + width_ / 2.0;
        const double top = last_.y / unitsPerTwipY_ + height_ / 2.0;
        return {roundToInt(left / twipsPerPixel_), roundToInt(top / twipsPerPixel_)};
    }

    /// The pixel of the picture that shows the place of a target pixel.
    /// @return nothing outside the map
    std::optional<QPoint> source(int x, int y) const {
        double column = 0.0;
        double row = 0.0;
        if (isPlateCarree_) {
            column = x / (width_ / twipsPerPixel_) * source_.width();
            row = y / (height_ / twipsPerPixel_) * source_.height();
        } else {
            const std::optional<EarthPlace> place =
                map_.placeAt({surface_.mapX(x), surface_.mapY(y)});
            if (!place)
                return std::nullopt;
            column = (place->longitude + 180.0) * pixelsPerDegree_;
            row = (90.0 - place->latitude) * pixelsPerDegree_;
        }
        return QPoint(std::clamp(roundToInt(column), 0, source_.width() - 1),
                      std::clamp(roundToInt(row), 0, source_.height() - 1));
    }

private:
    const PictureSurface& surface_;
    const WorldMap& map_;
    bool isPlateCarree_;
    MapPoint last_;
    double pixelsPerDegree_; // of single precision
    QSize source_;
    double width_; // twips
    double height_;
    double twipsPerPixel_;
    double unitsPerTwipX_ = mapWidth / width_;
    double unitsPerTwipY_ = -mapWidth / height_; // Y grows upward
    std::vector<float> latitudes_;               // of each row, degrees
    std::vector<int> stretchedRows_;
    float longitude_ = 0.0F;
    int stretchedColumn_ = 0;
};

/// A mark for each pixel of a surface.
class PixelMarks {
public:
    explicit PixelMarks(const PictureSurface& surface)
        : width_(static_cast<std::size_t>(surface.pixelWidth())),
          marks_(width_ * static_cast<std::size_t>(surface.pixelHeight())) {}

    auto at(int x, int y) {
        return marks_[static_cast<std::size_t>(y) * width_ + static_cast<std::size_t>(x)];
    }

private:
    std::size_t width_;
    std::vector<bool> marks_;
};

} // namespace

bool TopoOverlay(PictureSurface& Picture1, const QImage& mapPix, const WorldMap& map, Colour land,
                 MapPoint last, PassListener& listener, UserPrompt& prompt) {
    const float total =
        toSingle(static_cast<double>(mapPix.height()) * mapPix.width() * calculationsPerPixel);
    const std::string totalText = groupedText(static_cast<std::int64_t>(total));
    if (!askUser(totalText, prompt))
        return false;

    listener.beginPass("Colored Topographical Calculations", "", total);
    const QImage source = mapPix.convertToFormat(QImage::Format_RGB32);
    const auto colourOf = [&source](int x, int y) {
        return colourOfImage(reinterpret_cast<const QRgb*>(source.constScanLine(y))[x]);
    };
    const auto takesPicture = [&Picture1, land](int x, int y) {
        const Colour found = Picture1.GetPixel(x, y);
        return found == land || found == white;
    };
    TargetPixels targets(Picture1, source.size(), map, last);
    PixelMarks reached(Picture1);
    std::int64_t counter = 0;
    for (int x = 0; x < source.width(); ++x) {
        targets.beginColumn(x);
        for (int y = 0; y < source.height(); ++y) {
            counter += calculationsPerPixel;
            if (counter % yieldEvery == 0) {
                listener.showStatus(groupedText(counter) + " of " + totalText + " complete.");
                listener.showProgress(static_cast<float>(counter));
                listener.yield();
            }
            const QPoint target = targets.target(y);
            if (takesPicture(target.x(), target.y())) {
                Picture1.SetPixel(target.x(), target.y(), colourOf(x, y));
                reached.at(target.x(), target.y()) = true;
            }
        }
    }
    // What no pixel of the picture falls on shows its place all the same.
    for (int y = 0; y < Picture1.pixelHeight(); ++y) {
        listener.yield();
        for (int x = 0; x < Picture1.pixelWidth(); ++x) {
            if (!takesPicture(x, y) || reached.at(x, y))
                continue;
            if (const std::optional<QPoint> from = targets.source(x, y))
                Picture1.SetPixel(x, y, colourOf(from->x(), from->y()));
        }
    }
    listener.endPass();
    return true;
}

} // namespace tovrel
