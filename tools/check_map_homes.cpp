#include "check_map_homes.h"

#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace tovrel {

namespace {

constexpr double degree = std::numbers::pi / 180.0;
constexpr Place polarAntipode{80.0, -140.0};

/// Degrees of a sign with digits for degrees, minutes and perhaps seconds.
double degreesOf(const QString& sign, const QString& digits, int degreeDigits) {
    const double whole = digits.left(degreeDigits).toDouble();
    const double minutes = digits.mid(degreeDigits, 2).toDouble();
    const double seconds = digits.mid(degreeDigits + 2).toDouble();
    const double value = whole + minutes / 60.0 + seconds / 3600.0;
    return sign == "-" ? -value : value;
}

double arcBetween(Place a, Place b) {
    const double cosine = std::sin(a.latitude * degree) * std::sin(b.latitude * degree) +
                          std::cos(a.latitude * degree) * std::cos(b.latitude * degree) *
                              std::cos((a.longitude - b.longitude) * degree);
    return std::acos(std::clamp(cosine, -1.0, 1.0)) / degree;
}

} // namespace

std::optional<std::vector<Home>> readZoneTable(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    static const QRegularExpression position(R"(^([+-])(\d{4}|\d{6})([+-])(\d{5}|\d{7})$)");
    std::vector<Home> homes;
    while (!file.atEnd()) {
        const QStringList columns = QString::fromUtf8(file.readLine()).trimmed().split('\t');
        if (columns.size() < 3 || columns[0].startsWith('#'))
            continue;
        const QRegularExpressionMatch match = position.match(columns[1]);
        if (match.hasMatch()) {
            homes.push_back({columns[2].toStdString(),
                             {degreesOf(match.captured(1), match.captured(2), 2),
                              degreesOf(match.captured(3), match.captured(4), 3)}});
        }
    }
    return homes.empty() ? std::nullopt : std::optional(homes);
}

std::vector<Home> randomHomes(int count, bool onLand, std::uint32_t seed, const TrueWorld& world) {
    constexpr double leastArc = 3.0;
    std::mt19937 generator(seed);
    // The standard's distributions differ between libraries; the same seed is to give the same
    // homes.
    const auto draw = [&generator] {
        return (static_cast<double>(generator()) + 0.5) / 2147483648.0 - 1.0; // within -1 to 1
    };
    std::vector<Home> homes;
    while (static_cast<int>(homes.size()) < count) {
        const double sine = draw();
        const Place place{std::asin(sine) / degree, draw() * 180.0};
        if ((onLand && !world.isLand(place)) || arcBetween(place, polarAntipode) < leastArc)
            continue;
        const std::string kind = onLand ? "land" : "anywhere";
        homes.push_back({kind + std::to_string(homes.size() + 1), place});
    }
    return homes;
}

} // namespace tovrel
