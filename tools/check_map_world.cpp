#include "check_map_world.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cmath>

namespace tovrel {

namespace {

constexpr int cellsPerDegree = 40;
constexpr int rows = 180 * cellsPerDegree;
constexpr int columns = 360 * cellsPerDegree;

using Line = std::vector<Place>;

/// The arcs of a topology: differences of whole numbers, scaled and moved.
std::vector<Line> readArcs(const QJsonObject& topology) {
    const QJsonObject transform = topology["transform"].toObject();
    const QJsonArray scale = transform["scale"].toArray();
    const QJsonArray move = transform["translate"].toArray();
    std::vector<Line> arcs;
    for (const auto& arc : topology["arcs"].toArray()) {
        Line line;
        double x = 0.0;
        double y = 0.0;
        for (const auto& step : arc.toArray()) {
            x += step[0].toDouble();
            y += step[1].toDouble();
            line.push_back({y * scale[1].toDouble() + move[1].toDouble(),
                            x * scale[0].toDouble() + move[0].toDouble()});
        }
        arcs.push_back(std::move(line));
    }
    return arcs;
}

/// One ring of a polygon; a number ~n means arc n taken backwards.
Line readRing(const QJsonArray& numbers, const std::vector<Line>& arcs) {
    Line ring;
    for (const auto& value : numbers) {
        const int number = value.toInt();
        const auto index = static_cast<std::size_t>(number < 0 ? ~number : number);
        if (index >= arcs.size())
            continue;
        const Line& arc = arcs[index];
        if (number < 0) {
            ring.insert(ring.end(), arc.rbegin(), arc.rend());
        } else {
            ring.insert(ring.end(), arc.begin(), arc.end());
        }
    }
    return ring;
}

void appendRings(const QJsonObject& geometry, const std::vector<Line>& arcs,
                 std::vector<Line>& rings) {
    for (const auto& part : geometry["geometries"].toArray())
        appendRings(part.toObject(), arcs, rings);
    QJsonArray polygons = geometry["arcs"].toArray();
    if (geometry["type"].toString() == "Polygon")
        polygons = QJsonArray{polygons};
    for (const auto& polygon : polygons) {
        for (const auto& numbers : polygon.toArray()) {
            Line ring = readRing(numbers.toArray(), arcs);
            if (!ring.empty())
                rings.push_back(std::move(ring));
        }
    }
}

/// The ring with longitudes that run on past 180 degrees. One that winds round the south pole is
/// closed along the edge of the raster.
Line unrolled(Line ring) {
    for (std::size_t i = 1; i < ring.size(); ++i) {
        const double turns = std::round((ring[i - 1].longitude - ring[i].longitude) / 360.0);
        ring[i].longitude += 360.0 * turns;
    }
    const Place first = ring.front();
    const Place last = ring.back();
    if (std::abs(last.longitude - first.longitude) > 180.0) {
        ring.push_back({-90.0, last.longitude});
        ring.push_back({-90.0, first.longitude});
    }
    ring.push_back(first);
    return ring;
}

/// Notes, for each row of cell middles that the ring's sides cross, the first column after them.
void noteCrossings(const Line& ring, std::vector<std::vector<int>>& crossings) {
    for (std::size_t i = 1; i < ring.size(); ++i) {
        Place low = ring[i - 1];
        Place high = ring[i];
        if (low.latitude > high.latitude)
            std::swap(low, high);
        const auto rowOf = [](double latitude) {
            return static_cast<int>(std::ceil((latitude + 90.0) * cellsPerDegree - 0.5));
        };
        const int end = std::min(rowOf(high.latitude), rows);
        for (int row = std::max(rowOf(low.latitude), 0); row < end; ++row) {
            const double latitude = (row + 0.5) / cellsPerDegree - 90.0;
            const double part = (latitude - low.latitude) / (high.latitude - low.latitude);
            const double longitude = low.longitude + part * (high.longitude - low.longitude);
            const double column = (longitude + 180.0) * cellsPerDegree - 0.5;
            crossings[static_cast<std::size_t>(row)].push_back(static_cast<int>(std::ceil(column)));
        }
    }
}

} // namespace

std::optional<TrueWorld> TrueWorld::read(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QJsonObject topology = QJsonDocument::fromJson(file.readAll()).object();
    std::vector<Line> rings;
    appendRings(topology["objects"]["land"].toObject(), readArcs(topology), rings);
    if (rings.empty())
        return std::nullopt;
    return TrueWorld(std::move(rings));
}

TrueWorld::TrueWorld(std::vector<Line> coasts)
    : coasts_(std::move(coasts)), land_(static_cast<std::size_t>(rows) * columns) {
    std::vector<std::vector<int>> crossings(rows);
    for (const Line& coast : coasts_)
        noteCrossings(unrolled(coast), crossings);
    for (std::size_t row = 0; row < crossings.size(); ++row) {
        std::vector<int>& line = crossings[row];
        std::sort(line.begin(), line.end());
        for (std::size_t i = 1; i < line.size(); i += 2) {
            for (int column = line[i - 1]; column < line[i]; ++column) {
                const int inside = (column % columns + columns) % columns;
                const std::size_t cell = row * columns + static_cast<std::size_t>(inside);
                land_[cell] = !land_[cell];
            }
        }
    }
}

bool TrueWorld::isLand(Place place) const {
    const double turned = place.longitude + 180.0;
    const double longitude = turned - 360.0 * std::floor(turned / 360.0);
    const auto cell = [](double degrees, int count) {
        return static_cast<std::size_t>(
            std::clamp(static_cast<int>(degrees * cellsPerDegree), 0, count - 1));
    };
    return land_[cell(place.latitude + 90.0, rows) * columns + cell(longitude, columns)];
}

} // namespace tovrel
