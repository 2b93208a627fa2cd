#include "map/MapImage.h"

#include <QFontMetricsF>
#include <QLocale>
#include <algorithm>

namespace tovrel {

namespace {

const QString creditLine = QStringLiteral("Maps of amateur radio contacts");

constexpr double leftEdge = -21500.0;
constexpr double rightStamp = 13000.0;
constexpr double upperLine = -19600.0;
constexpr double lowerLine = -20500.0;

} // namespace

void composeMapImage(const PictureSurface& Picture2, const WorldMap& map, const QDateTime& now,
                     PictureSurface& Picture3) {
    Picture3.setSize(Picture2.Width(), Picture2.Height(), Picture2.resolution());
    Picture3.StretchBlt(Picture2);
    Picture3.ForeColor = 0x000000;

    QFont font(QStringLiteral("Arial"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(11); // 8 points
    const auto print = [&Picture3, &font](double x, double y, const QString& text) {
        Picture3.CurrentX = x;
        Picture3.CurrentY = y;
        Picture3.Print(text, font);
    };
    const QString clock = QLocale::system().toString(now, QLocale::ShortFormat);
    // A small map has less room for it than its told place leaves.
    const double unitsPerPixel = mapWidth / Picture3.pixelWidth() * Picture3.resolution();
    const double clockWidth = (QFontMetricsF(font).horizontalAdvance(clock) + 2.0) * unitsPerPixel;
    const double clockLeft = std::max(std::min(rightStamp, mapEdge - clockWidth), -mapEdge);
    const QString creator = QStringLiteral("Created by Tovrel");
    if (map.hasFrame()) {
        print(leftEdge, upperLine, creator);
        print(leftEdge, lowerLine, creditLine);
        print(clockLeft, lowerLine, clock);
    } else {
        print(leftEdge, upperLine, creator + QStringLiteral(" - ") + creditLine);
        print(clockLeft, upperLine, clock);
    }
}

std::string mapImageName(Projection projection, const QDateTime& now) {
    return std::string(namesOf(projection).savedPrefix) +
           now.toString(QStringLiteral("yyyyMMdd-HHmmss")).toStdString();
}

} // namespace tovrel
