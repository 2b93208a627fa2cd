#include "check_map_coast.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <tuple>

namespace tovrel {

namespace {

constexpr double degree = std::numbers::pi / 180.0;
constexpr double earthRadius = 6371.0; // kilometres
constexpr double nearKilometres = 25.0;
constexpr double step = 5.0; // kilometres between two points of a line that are looked at

using Line = std::vector<Place>;
using Vector = std::array<double, 3>; ///< kilometres from the middle of the earth

Vector vectorOf(Place place) {
    const double across = earthRadius * std::cos(place.latitude * degree);
    return {across * std::cos(place.longitude * degree),
            across * std::sin(place.longitude * degree),
            earthRadius * std::sin(place.latitude * degree)};
}

double between(const Vector& a, const Vector& b) {
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

/// Calls `take` with points along a line, its corners among them.
template <typename Take>
void walk(const Line& line, Take take) {
    for (std::size_t i = 1; i < line.size(); ++i) {
        const Vector from = vectorOf(line[i - 1]);
        const Vector to = vectorOf(line[i]);
        const int parts = std::max(static_cast<int>(std::ceil(between(from, to) / step)), 1);
        for (int part = 0; part < parts; ++part) {
            const double share = static_cast<double>(part) / parts;
            take(Vector{from[0] + share * (to[0] - from[0]), from[1] + share * (to[1] - from[1]),
                        from[2] + share * (to[2] - from[2])});
        }
    }
}

/// Points in cubes as wide as the distance that is asked for.
class NearPoints {
public:
    void add(const Vector& point) { cubes_[cubeOf(point)].push_back(point); }

    bool isNear(const Vector& point) const {
        const auto [x, y, z] = cubeOf(point);
        for (int dx = -1; dx <= 1; ++dx) {
            for (int dy = -1; dy <= 1; ++dy) {
                for (int dz = -1; dz <= 1; ++dz) {
                    const auto cube = cubes_.find({x + dx, y + dy, z + dz});
                    if (cube != cubes_.end() &&
                        std::any_of(cube->second.begin(), cube->second.end(),
                                    [&point](const Vector& other) {
                                        return between(point, other) <= nearKilometres;
                                    })) {
                        return true;
                    }
                }
            }
        }
        return false;
    }

private:
    using Cube = std::tuple<int, int, int>;
    static Cube cubeOf(const Vector& point) {
        const auto cell = [](double along) {
            return static_cast<int>(std::floor(along / nearKilometres));
        };
        return {cell(point[0]), cell(point[1]), cell(point[2])};
    }
    std::map<Cube, std::vector<Vector>> cubes_;
};

std::vector<Line> linesOf(const std::vector<CoastRecord>& records) {
    std::vector<Line> lines;
    for (const CoastRecord& record : records) {
        if (lines.empty() || startsStroke(record))
            lines.emplace_back();
        lines.back().push_back({record.latitude / 60.0, record.longitude / 60.0});
    }
    return lines;
}

/// Area of a ring in square kilometres, and how much of it is land in another world: the ring is
/// laid over with points a twentieth of a degree apart.
struct Overlap {
    double area = 0.0;
    double land = 0.0;
};

Overlap overlap(const Line& ring, const TrueWorld& drawn) {
    constexpr double cell = 0.05;
    Line unrolled = ring;
    for (std::size_t i = 1; i < unrolled.size(); ++i) {
        const double turns =
            std::round((unrolled[i - 1].longitude - unrolled[i].longitude) / 360.0);
        unrolled[i].longitude += 360.0 * turns;
    }
    const auto [south, north] = std::minmax_element(
        unrolled.begin(), unrolled.end(), [](Place a, Place b) { return a.latitude < b.latitude; });
    Overlap result;
    // Cells are counted from 0, 0; what lies in the middle of one lies in it.
    const auto firstFrom = [](double degrees) {
        return static_cast<int>(std::ceil(degrees / cell - 0.5));
    };
    const auto middle = [](int number) { return (number + 0.5) * cell; };
    for (int row = firstFrom(south->latitude); middle(row) < north->latitude; ++row) {
        const double latitude = middle(row);
        std::vector<double> crossings;
        for (std::size_t i = 1; i < unrolled.size(); ++i) {
            const Place a = unrolled[i - 1];
            const Place b = unrolled[i];
            if ((a.latitude <= latitude) != (b.latitude <= latitude)) {
                crossings.push_back(a.longitude + (latitude - a.latitude) /
                                                      (b.latitude - a.latitude) *
                                                      (b.longitude - a.longitude));
            }
        }
        std::sort(crossings.begin(), crossings.end());
        const double side = cell * degree * earthRadius;
        const double square = side * side * std::cos(latitude * degree);
        for (std::size_t i = 1; i < crossings.size(); i += 2) {
            for (int column = firstFrom(crossings[i - 1]); middle(column) < crossings[i];
                 ++column) {
                result.area += square;
                result.land += drawn.isLand({latitude, middle(column)}) ? square : 0.0;
            }
        }
    }
    return result;
}

} // namespace

CoastResult compareCoast(const std::vector<CoastRecord>& records, const TrueWorld& world) {
    constexpr double leastArea = 2000.0;
    NearPoints truth;
    for (const Line& coast : world.coasts())
        walk(coast, [&truth](const Vector& point) { truth.add(point); });
    const std::vector<Line> lines = linesOf(records);
    CoastResult result;
    int points = 0;
    int nearOnes = 0;
    for (const Line& line : lines) {
        for (std::size_t i = 1; i < line.size(); ++i)
            result.kilometres += between(vectorOf(line[i - 1]), vectorOf(line[i]));
        walk(line, [&](const Vector& point) {
            ++points;
            nearOnes += truth.isNear(point) ? 1 : 0;
        });
    }
    result.nearPercent = points > 0 ? 100.0 * nearOnes / points : 0.0;
    const TrueWorld drawn(lines);
    for (const Line& coast : world.coasts()) {
        const Overlap found = overlap(coast, drawn);
        if (found.area <= leastArea)
            continue;
        ++result.islands;
        result.islandsFound += found.land > found.area / 2 ? 1 : 0;
    }
    return result;
}

} // namespace tovrel
