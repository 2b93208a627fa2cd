#include "map/mRotatedText.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

namespace tovrel {

void RotatedPrint(const QString& text, int weight, int escapement, PictureSurface& surface) {
    constexpr int cellHeight = 18; // pixels
    QFont font(QStringLiteral("Arial"));
    font.setStyleHint(QFont::SansSerif);
    font.setWeight(static_cast<QFont::Weight>(weight));
    // A font's size counts its em square; the cell is higher by a factor of the face.
    constexpr int sample = 100;
    font.setPixelSize(sample);
    const QFontMetricsF metrics(font);
    const double cell = metrics.ascent() + metrics.descent();
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(cellHeight * sample / cell))));
    surface.Print(text, font, escapement);
}

int labelWidth(const QString& text) {
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(11);
    return static_cast<int>(std::lround(QFontMetricsF(font).horizontalAdvance(text)));
}

} // namespace tovrel
