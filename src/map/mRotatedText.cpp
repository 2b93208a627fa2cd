#include "map/mRotatedText.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

namespace tovrel {

QFont fontOf(const TextStyle& style) {
    QFont font(style.fontName);
    font.setStyleHint(QFont::SansSerif);
    font.setWeight(static_cast<QFont::Weight>(std::clamp(style.weight, 1, 1000)));
    font.setItalic(style.italic);
    font.setUnderline(style.underline);
    font.setStrikeOut(style.strikethru);
    // A font's size counts its em square; the cell is higher by a factor of the face.
    constexpr int sample = 100;
    font.setPixelSize(sample);
    const QFontMetricsF metrics(font);
    const double cell = metrics.ascent() + metrics.descent();
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(style.height * sample / cell))));
    return font;
}

void RotatedPrint(const QString& text, const TextStyle& style, int escapement,
                  PictureSurface& surface) {
    surface.Print(text, fontOf(style), escapement);
}

int labelWidth(const QString& text) {
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(11);
    return static_cast<int>(std::lround(QFontMetricsF(font).horizontalAdvance(text)));
}

} // namespace tovrel
