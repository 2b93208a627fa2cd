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

QImage blankImage(float width, float height, Colour colour) {
    QImage image(std::max(pixelsFromTwips(width), 1), std::max(pixelsFromTwips(height), 1),
                 QImage::Format_RGB32);
    image.fill(imageColour(colour));
    return image;
}

/// Half the number of pixels that a row of a round dot holds beside its middle one.
/// @param dy rows from the middle of a dot `width` pixels across
constexpr int dotReach(int width, int dy) {
    const int limit = width * width - 4 * dy * dy; // four times the square that dx must stay below
    int reach = 0;
    while (4 * (reach + 1) * (reach + 1) < limit)
        ++reach;
    return reach;
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

PictureSurface::PictureSurface(float width, float height)
    : width_(width), height_(height), image_(blankImage(width, height, BackColor)) {}

void PictureSurface::setSize(float width, float height) {
    if (width == width_ && height == height_)
        return Cls();
    width_ = width;
    height_ = height;
    pixelsAcross_ = width / twipsPerPixel;
    pixelsDown_ = height / twipsPerPixel;
    image_ = blankImage(width, height, BackColor);
}

void PictureSurface::Cls() {
    // To fill a picture that is shared would copy it first.
    if (image_.isDetached())
        image_.fill(imageColour(BackColor));
    else
        image_ = blankImage(width_, height_, BackColor);
}

void PictureSurface::setPicture(const QImage& picture) {
    if (picture.size() == image_.size() && picture.format() == QImage::Format_RGB32) {
        image_ = picture;
        return;
    }
    Cls();
    QPainter(&image_).drawImage(0, 0, picture);
}

double PictureSurface::mapX(double x) const {
    return x / (static_cast<double>(width_) / twipsPerPixel) * mapWidth - mapEdge;
}

double PictureSurface::mapY(double y) const {
    return mapEdge - y / (static_cast<double>(height_) / twipsPerPixel) * mapWidth;
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
    const double px = pixelX(x);
    const double py = pixelY(y);
    const int reach = DrawWidth / 2;
    const int width = image_.width();
    const int height = image_.height();
    const bool near = px >= -reach && py >= -reach && px < width + reach && py < height + reach;
    if (!near)
        return; // also when one of them is no number
    const int middleX = static_cast<int>(px);
    const int middleY = static_cast<int>(py);
    const std::uint32_t pixel = imageColour(colour);
    if (middleX >= reach && middleY >= reach && middleX + reach < width &&
        middleY + reach < height) {
        const auto stride =
            static_cast<std::ptrdiff_t>(image_.bytesPerLine() / sizeof(std::uint32_t));
        std::uint32_t* const middle = row(0) + middleY * stride + middleX;
        switch (DrawWidth) {
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
    for (int dy = std::max(-reach, -middleY); dy <= std::min(reach, height - 1 - middleY); ++dy) {
        const int half = dotReach(DrawWidth, dy);
        const int first = std::max(middleX - half, 0);
        const int last = std::min(middleX + half, width - 1);
        if (first <= last)
            std::fill_n(row(middleY + dy) + first, last - first + 1, pixel);
    }
}

void PictureSurface::Line(double x, double y, Colour colour) {
    drawLine(pixelX(CurrentX), pixelY(CurrentY), pixelX(x), pixelY(y), colour);
    CurrentX = x;
    CurrentY = y;
}

void PictureSurface::drawLine(double x0, double y0, double x1, double y1, Colour colour) {
    if (!std::isfinite(x0 + y0 + x1 + y1))
        return;
    const double right = image_.width() - 1.0;
    const double bottom = image_.height() - 1.0;
    if (!clipAxis(0.0, right, x0, y0, x1, y1) || !clipAxis(0.0, bottom, y0, x0, y1, x1))
        return;
    const Pixel from{roundToInt(x0), roundToInt(y0)};
    const Pixel to{roundToInt(x1), roundToInt(y1)};
    if (!contains(from.x, from.y) || !contains(to.x, to.y))
        return;
    walkLine(from, to, imageColour(colour));
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
    const int corners = static_cast<int>(std::min(8.0 * pixels + 8.0, mostCorners));
    const double step = 2.0 * std::numbers::pi / corners;
    double lastX = pixelX(x + radius);
    double lastY = pixelY(y);
    for (int corner = 1; corner <= corners; ++corner) {
        const double nextX = pixelX(x + radius * std::cos(step * corner));
        const double nextY = pixelY(y + radius * std::sin(step * corner));
        drawLine(lastX, lastY, nextX, nextY, ForeColor);
        lastX = nextX;
        lastY = nextY;
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
