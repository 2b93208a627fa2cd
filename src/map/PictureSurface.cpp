#include "map/PictureSurface.h"

#include "map/PictureStretch.h"
#include "platform/Threads.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <vector>

namespace tovrel {

namespace {

/// Pixels from which on a line is more than the row of pixels that is nearest to it.
constexpr double thinnestBand = 1.28;

QImage blankImage(QSize size, Colour colour) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(imageColour(colour));
    return image;
}

/// Pixels across what is some pixels wide at resolution 1. All odd widths come out odd, or all
/// even, so that a dot lies in the middle of a wider one.
int scaledWidth(int width, double resolution) {
    const int parity = std::max(roundToInt(resolution), 1) % 2;
    return std::max(2 * roundToInt((width * resolution - parity) / 2.0) + parity, 2 - parity);
}

/// Half the number of pixels that a row of a round dot holds beside its middle one.
/// @param dy rows from the middle of a dot `width` pixels across, odd
constexpr int dotReach(int width, int dy) {
    const int limit = width * width - 4 * dy * dy; // four times the square that dx must stay below
    int reach = 0;
    while (4 * (reach + 1) * (reach + 1) < limit)
        ++reach;
    return reach;
}

/// Half the pixels in a row of a dot of any width, rounded up.
/// @param fromMiddle twice the rows from the middle, which is a corner of pixels where the width is
///        even
int halfRow(int width, int fromMiddle) {
    const double chord = std::sqrt(width * width - fromMiddle * fromMiddle);
    return static_cast<int>(std::ceil((width % 2 == 0 ? chord - 1.0 : chord) / 2.0));
}

/// Fills a dot whose pixels all lie on the picture. A plot is a million dots of few widths: with
/// the width known beforehand a row is one or two stores.
/// @param stride pixels from a row to the next
template <int width, int dy = -(width / 2)>
void fillDot(std::uint32_t* middle, std::ptrdiff_t stride, std::uint32_t pixel) {
    constexpr int reach = dotReach(width, dy);
    std::uint32_t* const line = middle + dy * stride;
    std::fill(line - reach, line + reach + 1, pixel);
    if constexpr (dy < width / 2)
        fillDot<width, dy + 1>(middle, stride, pixel);
}

/// Cuts the line to the part whose coordinate `p` lies between `low` and `high`.
bool clipAxis(double low, double high, double& p0, double& q0, double& p1, double& q1) {
    if ((p0 < low && p1 < low) || (p0 > high && p1 > high))
        return false;
    const double slope = p1 == p0 ? 0.0 : (q1 - q0) / (p1 - p0);
    const double startP = p0;
    const double startQ = q0;
    for (auto [p, q] : {std::pair<double*, double*>{&p0, &q0}, {&p1, &q1}}) {
        const double clipped = std::clamp(*p, low, high);
        if (clipped == *p)
            continue;
        *q = startQ + (clipped - startP) * slope;
        *p = clipped;
    }
    return true;
}

} // namespace

PictureSurface::PictureSurface(float width, float height, double resolution) {
    setSize(width, height, resolution);
}

/// @return the size in pixels
QSize PictureSurface::measure(float width, float height, double resolution) {
    width_ = width;
    height_ = height;
    resolution_ = resolution;
    pixelsAcross_ = static_cast<float>(width * resolution / twipsPerPixel);
    pixelsDown_ = static_cast<float>(height * resolution / twipsPerPixel);
    return {std::max(pixelsFromTwips(width * resolution), 1),
            std::max(pixelsFromTwips(height * resolution), 1)};
}

void PictureSurface::setSize(float width, float height, double resolution) {
    const QSize size = measure(width, height, resolution);
    if (size == image_.size())
        return Cls();
    image_ = QImage(); // not both at once
    image_ = blankImage(size, BackColor);
}

void PictureSurface::Cls() {
    // To fill a picture that is shared would copy it first.
    if (image_.isDetached())
        image_.fill(imageColour(BackColor));
    else
        image_ = blankImage(image_.size(), BackColor);
}

void PictureSurface::setPicture(const PackedPicture& picture, double resolution) {
    if (picture.size() == measure(width_, height_, resolution))
        return picture.unpackTo(image_);
    setSize(width_, height_, resolution);
    QPainter(&image_).drawImage(0, 0, picture.image());
}

double PictureSurface::mapX(double x) const {
    return x / (width_ / TwipsPerPixel()) * mapWidth - mapEdge;
}

double PictureSurface::mapY(double y) const {
    return mapEdge - y / (height_ / TwipsPerPixel()) * mapWidth;
}

bool PictureSurface::contains(int x, int y) const {
    return x >= 0 && y >= 0 && x < image_.width() && y < image_.height();
}

std::uint32_t* PictureSurface::row(int y) {
    return reinterpret_cast<std::uint32_t*>(image_.scanLine(y));
}

const std::uint32_t* PictureSurface::row(int y) const {
    return reinterpret_cast<const std::uint32_t*>(image_.constScanLine(y));
}

void PictureSurface::PSet(double x, double y, Colour colour) {
    CurrentX = x;
    CurrentY = y;
    drawDot(across(x), down(y), scaledWidth(DrawWidth, resolution_), imageColour(colour));
}

void PictureSurface::fillSpan(int y, int first, int last, std::uint32_t pixel) {
    first = std::max(first, 0);
    last = std::min(last, image_.width() - 1);
    if (y >= 0 && y < image_.height() && first <= last)
        std::fill_n(row(y) + first, last - first + 1, pixel);
}

/// A dot whose middle is the nearest pixel or, for an even width, the nearest corner of pixels.
void PictureSurface::drawDot(double x, double y, int width, std::uint32_t pixel) {
    const bool even = width % 2 == 0;
    const double px = even ? std::floor(x) + 1.0 : roundHalfEven(x);
    const double py = even ? std::floor(y) + 1.0 : roundHalfEven(y);
    const int reach = width / 2;
    const int right = image_.width();
    const int bottom = image_.height();
    const bool near =
        px >= -reach && py >= -reach && px < right + reach + 1 && py < bottom + reach + 1;
    if (!near)
        return; // also when one of them is no number
    const int middleX = static_cast<int>(px);
    const int middleY = static_cast<int>(py);
    if (middleX >= reach && middleY >= reach && middleX + reach < right &&
        middleY + reach < bottom) {
        const auto stride =
            static_cast<std::ptrdiff_t>(image_.bytesPerLine() / sizeof(std::uint32_t));
        std::uint32_t* const middle = row(0) + middleY * stride + middleX;
        switch (width) {
        case 3:
            return fillDot<3>(middle, stride, pixel);
        case 5:
            return fillDot<5>(middle, stride, pixel);
        case 7:
            return fillDot<7>(middle, stride, pixel);
        case 9:
            return fillDot<9>(middle, stride, pixel);
        default:
            break;
        }
    }
    for (int dy = -reach; dy < width - reach; ++dy) {
        const int half = halfRow(width, 2 * dy + (even ? 1 : 0));
        fillSpan(middleY + dy, middleX - half + (even ? 0 : 1), middleX + half - 1, pixel);
    }
}

void PictureSurface::Line(double x, double y, Colour colour) {
    drawLine(across(CurrentX), down(CurrentY), across(x), down(y), colour);
    CurrentX = x;
    CurrentY = y;
}

void PictureSurface::drawLine(double x0, double y0, double x1, double y1, Colour colour) {
    const double width = LineWidth * resolution_;
    const bool thin = width < thinnestBand;
    if (thin) {
        for (double* const end : {&x0, &y0, &x1, &y1})
            *end = roundHalfEven(*end);
    }
    if (!std::isfinite(x0 + y0 + x1 + y1))
        return;
    const double margin = thin ? 0.0 : width;
    const double right = image_.width() - 1.0 + margin;
    const double bottom = image_.height() - 1.0 + margin;
    if (!clipAxis(-margin, right, x0, y0, x1, y1) || !clipAxis(-margin, bottom, y0, x0, y1, x1))
        return;
    if (!thin)
        return drawBand(x0, y0, x1, y1, width, imageColour(colour));
    const Pixel from{roundToInt(x0), roundToInt(y0)};
    const Pixel to{roundToInt(x1), roundToInt(y1)};
    if (contains(from.x, from.y) && contains(to.x, to.y))
        walkLine(from, to, imageColour(colour));
}

/// A line of some width with round ends. In each column, or in each row of a steep line, its pixels
/// touch those of the column before, so that no fill comes through.
void PictureSurface::drawBand(double x0, double y0, double x1, double y1, double width,
                              std::uint32_t pixel) {
    for (const auto& [x, y] : {std::pair{x0, y0}, {x1, y1}})
        drawDot(x, y, static_cast<int>(width), pixel);
    const bool steep = std::abs(y1 - y0) > std::abs(x1 - x0);
    if (steep) {
        std::swap(x0, y0);
        std::swap(x1, y1);
    }
    if (x0 > x1) {
        std::swap(x0, x1);
        std::swap(y0, y1);
    }
    if (x1 == x0)
        return;
    const double slope = (y1 - y0) / (x1 - x0);
    const double reach = width / 2.0 * std::hypot(1.0, slope);
    const int last = roundToInt(x1);
    for (int at = roundToInt(x0); at <= last; ++at) {
        const double middle = y0 + slope * (std::clamp<double>(at, x0, x1) - x0);
        const int nearest = roundToInt(middle);
        const int low = std::min(static_cast<int>(std::ceil(middle - reach)), nearest);
        const int high = std::max(static_cast<int>(std::ceil(middle + reach)) - 1, nearest);
        if (!steep) {
            for (int y = std::max(low, 0); y <= std::min(high, image_.height() - 1); ++y)
                fillSpan(y, at, at, pixel);
        } else {
            fillSpan(at, low, high, pixel);
        }
    }
}

void PictureSurface::walkLine(Pixel from, Pixel to, std::uint32_t pixel) {
    const int dx = std::abs(to.x - from.x);
    const int dy = -std::abs(to.y - from.y);
    const int stepX = from.x < to.x ? 1 : -1;
    const int stepY = from.y < to.y ? 1 : -1;
    int error = dx + dy;
    for (;;) {
        row(from.y)[from.x] = pixel;
        if (from.x == to.x && from.y == to.y)
            return;
        const int doubled = 2 * error;
        if (doubled >= dy) {
            error += dy;
            from.x += stepX;
        }
        if (doubled <= dx) {
            error += dx;
            from.y += stepY;
        }
    }
}

void PictureSurface::Circle(double x, double y, double radius) {
    constexpr double mostCorners = 100000.0;
    const double pixels = radius / mapWidth * pixelsAcross_;
    if (!(pixels >= 0.0))
        return;
    if (LineWidth * resolution_ >= thinnestBand)
        return drawRing(x, y, radius);
    const int corners = static_cast<int>(std::min(8.0 * pixels + 8.0, mostCorners));
    const double step = 2.0 * std::numbers::pi / corners;
    double lastX = across(x + radius);
    double lastY = down(y);
    for (int corner = 1; corner <= corners; ++corner) {
        const double nextX = across(x + radius * std::cos(step * corner));
        const double nextY = down(y + radius * std::sin(step * corner));
        drawLine(lastX, lastY, nextX, nextY, ForeColor);
        lastX = nextX;
        lastY = nextY;
    }
}

/// The pixels between two circles, half a line's width within and without the one that is meant.
void PictureSurface::drawRing(double x, double y, double radius) {
    const double half = LineWidth * resolution_ / 2.0;
    const double wide = radius / mapWidth * static_cast<double>(pixelsAcross_);
    const double high = radius / mapWidth * static_cast<double>(pixelsDown_);
    const double middleX = across(x);
    const double middleY = down(y);
    const double most = 2.0 * (image_.width() + image_.height()) + half;
    if (!(std::abs(middleX) < most && std::abs(middleY) < most && wide < most && high < most))
        return;
    const std::uint32_t pixel = imageColour(ForeColor);
    const auto reach = [=](double halfWidth, double halfHeight, double fromMiddle) {
        const double part = fromMiddle / halfHeight;
        return std::abs(part) < 1.0 ? halfWidth * std::sqrt(1.0 - part * part) : 0.0;
    };
    for (int row = 0; row < image_.height(); ++row) {
        const double fromMiddle = row - middleY;
        const double outer = reach(wide + half, high + half, fromMiddle);
        const double inner =
            wide > half && high > half ? reach(wide - half, high - half, fromMiddle) : 0.0;
        if (outer <= 0.0)
            continue;
        const auto after = [](double edge) { return static_cast<int>(std::ceil(edge)); };
        fillSpan(row, after(middleX - outer), after(middleX - inner) - 1, pixel);
        fillSpan(row, after(middleX + inner), after(middleX + outer) - 1, pixel);
    }
}

void PictureSurface::Print(const QString& text, const QFont& font, int escapement) {
    const double x = pixelX(CurrentX);
    const double y = pixelY(CurrentY);
    if (!std::isfinite(x + y))
        return;
    QPainter painter(&image_);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(font);
    painter.setPen(QColor::fromRgb(imageColour(ForeColor)));
    painter.translate(x, y);
    painter.rotate(-escapement / 10.0);
    if (resolution_ != 1.0)
        painter.scale(resolution_, resolution_);
    painter.drawText(QPointF(0.0, QFontMetricsF(font).ascent()), text);
}

Colour PictureSurface::GetPixel(int x, int y) const {
    constexpr Colour none = 0xFFFFFFFF;
    return contains(x, y) ? colourOfImage(row(y)[x]) : none;
}

void PictureSurface::SetPixel(int x, int y, Colour colour) {
    if (contains(x, y))
        row(y)[x] = imageColour(colour);
}

void PictureSurface::ExtFloodFill(int x, int y, Colour colour) {
    if (!contains(x, y))
        return;
    const std::uint32_t wanted = row(y)[x];
    const std::uint32_t pixel = imageColour(colour);
    if (wanted == pixel)
        return;

    std::vector<Pixel> seeds{{x, y}};
    const auto seedRow = [&](int first, int last, int y2) {
        if (y2 < 0 || y2 >= image_.height())
            return;
        const std::uint32_t* line = row(y2);
        for (int x2 = first; x2 <= last; ++x2) {
            // One seed for each run of the wanted colour.
            if (line[x2] == wanted && (x2 == last || line[x2 + 1] != wanted)) {
                seeds.push_back({x2, y2});
            }
        }
    };
    while (!seeds.empty()) {
        const Pixel seed = seeds.back();
        seeds.pop_back();
        std::uint32_t* line = row(seed.y);
        if (line[seed.x] != wanted)
            continue;
        int first = seed.x;
        int last = seed.x;
        while (first > 0 && line[first - 1] == wanted)
            --first;
        while (last + 1 < image_.width() && line[last + 1] == wanted)
            ++last;
        std::fill(line + first, line + last + 1, pixel);
        seedRow(first, last, seed.y - 1);
        seedRow(first, last, seed.y + 1);
    }
}

void PictureSurface::StretchBlt(const PictureSurface& source) {
    if (!hasHelperThreads()) {
        image_ = stretchedAlone(source.image_, image_.size());
        return;
    }
    image_ = source.image_.scaled(image_.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                 .convertToFormat(QImage::Format_RGB32);
}

} // namespace tovrel
