#include "map/PictureStretch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace tovrel {

namespace {

/// What a pixel takes of the pixels before the stretch, along one axis.
struct Share {
    int first = 0;
    std::vector<float> weights; ///< of `first` and those after it; their sum is 1
};

/// A triangle over the middle of each pixel, as wide as a pixel of the coarser side.
std::vector<Share> sharesOf(int from, int to) {
    const double step = static_cast<double>(from) / to;
    const double reach = std::max(step, 1.0);
    std::vector<Share> shares(static_cast<std::size_t>(to));
    for (int i = 0; i < to; ++i) {
        const double middle = (i + 0.5) * step - 0.5;
        Share& share = shares[static_cast<std::size_t>(i)];
        share.first = std::clamp(static_cast<int>(std::ceil(middle - reach)), 0, from - 1);
        const int last = std::clamp(static_cast<int>(std::floor(middle + reach)), 0, from - 1);
        double sum = 0.0;
        for (int at = share.first; at <= last; ++at) {
            const double weight = std::max(1.0 - std::abs(at - middle) / reach, 1e-9);
            share.weights.push_back(static_cast<float>(weight));
            sum += weight;
        }
        for (float& weight : share.weights)
            weight = static_cast<float>(weight / sum);
    }
    return shares;
}

/// Stretches along rows and turns the image over its diagonal, so that twice is both ways.
QImage stretchedAndTurned(const QImage& source, int width) {
    const std::vector<Share> shares = sharesOf(source.width(), width);
    QImage result(source.height(), width, QImage::Format_RGB32);
    for (int y = 0; y < source.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        for (int x = 0; x < width; ++x) {
            const Share& share = shares[static_cast<std::size_t>(x)];
            std::array<float, 3> sum{0.5F, 0.5F, 0.5F}; // for the rounding
            for (std::size_t i = 0; i < share.weights.size(); ++i) {
                const QRgb pixel = row[static_cast<std::size_t>(share.first) + i];
                sum[0] += share.weights[i] * static_cast<float>(qRed(pixel));
                sum[1] += share.weights[i] * static_cast<float>(qGreen(pixel));
                sum[2] += share.weights[i] * static_cast<float>(qBlue(pixel));
            }
            reinterpret_cast<QRgb*>(result.scanLine(x))[y] =
                qRgb(static_cast<int>(sum[0]), static_cast<int>(sum[1]), static_cast<int>(sum[2]));
        }
    }
    return result;
}

} // namespace

QImage stretchedAlone(const QImage& source, QSize size) {
    return stretchedAndTurned(stretchedAndTurned(source, size.width()), size.height());
}

} // namespace tovrel
