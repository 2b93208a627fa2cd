#include "check_map_compare.h"

#include "map/WorldMap.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace tovrel {

namespace {

constexpr double earthRadius = 6371.29; // kilometres, as the map draws it
// Map units of the cylindrical map for a degree.
constexpr double millerUnitsPerLatitude = 240.0;
constexpr double millerUnitsPerLongitude = 122.0;

constexpr double degree = std::numbers::pi / 180.0;
constexpr double unitsPerPixel = 66.0;
constexpr int floodPixels = 300;
constexpr double floodSquareKilometres = 250000.0;
constexpr Colour black = 0x000000;
constexpr Colour white = 0xFFFFFF;

/// The exact projections and their inverses, in double precision and without the program's limits.
class ExactMap {
public:
    ExactMap(const WorldMap& map, Place home, double reach)
        : reach_(reach), miller_(!map.centredOnHome()), home_(home),
          sinHome_(std::sin(home_.latitude * degree)), cosHome_(std::cos(home_.latitude * degree)) {
    }

    MapPoint project(Place place) const {
        if (miller_) {
            return {place.longitude * millerUnitsPerLongitude,
                    place.latitude * millerUnitsPerLatitude};
        }
        const double sinLat = std::sin(place.latitude * degree);
        const double cosLat = std::cos(place.latitude * degree);
        const double turn = (place.longitude - home_.longitude) * degree;
        const double east = cosLat * std::sin(turn);
        const double north = cosHome_ * sinLat - sinHome_ * cosLat * std::cos(turn);
        const double along = sinHome_ * sinLat + cosHome_ * cosLat * std::cos(turn);
        const double across = std::hypot(east, north);
        if (across == 0.0)
            return {};
        const double distance = std::atan2(across, along) * earthRadius;
        return {east / across * distance, north / across * distance};
    }

    /// @return nothing outside the map: beyond its reach, or past a pole or the date line
    std::optional<Place> placeAt(MapPoint point) const {
        if (miller_) {
            const Place place{point.y / millerUnitsPerLatitude, point.x / millerUnitsPerLongitude};
            if (std::abs(place.latitude) > 90.0 || std::abs(place.longitude) > 180.0)
                return std::nullopt;
            return place;
        }
        const double distance = std::hypot(point.x, point.y);
        if (distance >= reach_)
            return std::nullopt;
        const double arc = distance / earthRadius;
        const double bearing = std::atan2(point.x, point.y);
        const double sinLat =
            sinHome_ * std::cos(arc) + cosHome_ * std::sin(arc) * std::cos(bearing);
        const double turn =
            std::atan2(std::sin(bearing) * std::sin(arc),
                       cosHome_ * std::cos(arc) - sinHome_ * std::sin(arc) * std::cos(bearing));
        return Place{std::asin(std::clamp(sinLat, -1.0, 1.0)) / degree,
                     home_.longitude + turn / degree};
    }

    /// Ground covered by a pixel there, in square kilometres.
    double pixelArea(MapPoint point) const {
        const double side = unitsPerPixel * unitsPerPixel;
        if (miller_) {
            const double length = earthRadius * degree;
            const double latitude = point.y / millerUnitsPerLatitude;
            return side / (millerUnitsPerLatitude * millerUnitsPerLongitude) * length * length *
                   std::cos(latitude * degree);
        }
        const double arc = std::hypot(point.x, point.y) / earthRadius;
        return arc > 0.0 ? side * std::sin(arc) / arc : side;
    }

private:
    double reach_;
    bool miller_;
    Place home_;
    double sinHome_;
    double cosHome_;
};

/// The true coast as one-pixel lines on a surface like the map's.
PictureSurface drawTrueCoast(const ExactMap& exact, const TrueWorld& world) {
    constexpr double longestStep = 8000.0; // map units; longer ones run round the rim or the edge
    PictureSurface surface(baseMapSize, baseMapSize);
    for (const std::vector<Place>& coast : world.coasts()) {
        bool drawing = false;
        for (const Place place : coast) {
            const MapPoint point = exact.project(place);
            const double step = std::hypot(point.x - surface.CurrentX, point.y - surface.CurrentY);
            if (drawing && step < longestStep) {
                surface.Line(point.x, point.y, black);
            } else {
                surface.PSet(point.x, point.y, black);
            }
            drawing = true;
        }
    }
    return surface;
}

bool nearCoast(const PictureSurface& coast, int x, int y) {
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            if (coast.GetPixel(x + dx, y + dy) == black)
                return true;
        }
    }
    return false;
}

enum class Fault : std::uint8_t { None, Sea, Land };

/// Gathers connected regions of the same fault; the faults that were looked at are cleared.
class FloodSearch {
public:
    FloodSearch(std::vector<Fault>& faults, int width) : faults_(faults), width_(width) {}

    /// The region round a faulty pixel: its pixels as indices.
    std::vector<int> takeRegion(int start) {
        const Fault fault = at(start);
        std::vector<int> region{start};
        at(start) = Fault::None;
        for (std::size_t next = 0; next < region.size(); ++next) {
            const int pixel = region[next];
            const int x = pixel % width_;
            for (const auto& [inside, beside] : {std::pair{x > 0, pixel - 1},
                                                 {x + 1 < width_, pixel + 1},
                                                 {pixel >= width_, pixel - width_},
                                                 {true, pixel + width_}}) {
                if (inside && beside < static_cast<int>(faults_.size()) && at(beside) == fault) {
                    at(beside) = Fault::None;
                    region.push_back(beside);
                }
            }
        }
        return region;
    }

private:
    Fault& at(int pixel) { return faults_[static_cast<std::size_t>(pixel)]; }

    std::vector<Fault>& faults_;
    int width_;
};

} // namespace

MapResult compareMap(const PictureSurface& map, const BaseMapStyle& style, Place home,
                     const TrueWorld& world, double reach) {
    const ExactMap exact(*style.map, home, reach);
    const PictureSurface coast = drawTrueCoast(exact, world);
    const int width = map.pixelWidth();
    const int height = map.pixelHeight();
    const auto pointOf = [width](int pixel) {
        const int column = pixel % width;
        const int row = pixel / width;
        return MapPoint{column * unitsPerPixel - mapEdge, mapEdge - row * unitsPerPixel};
    };
    MapResult result;
    result.allPixels = width * height;
    std::vector<Fault> faults(static_cast<std::size_t>(result.allPixels), Fault::None);
    for (int pixel = 0; pixel < result.allPixels; ++pixel) {
        const int x = pixel % width;
        const int y = pixel / width;
        const Colour colour = map.GetPixel(x, y);
        result.blackPixels += colour == black ? 1 : 0;
        const std::optional<Place> place = exact.placeAt(pointOf(pixel));
        if (!place)
            continue;
        const bool isLand = world.isLand(*place);
        ++(isLand ? result.landPixels : result.seaPixels);
        const bool wrong = isLand ? colour != style.land && colour != white : colour != style.water;
        if (!wrong || colour == black || nearCoast(coast, x, y))
            continue;
        ++(isLand ? result.wrongLand : result.wrongSea);
        faults[static_cast<std::size_t>(pixel)] = isLand ? Fault::Land : Fault::Sea;
    }
    FloodSearch search(faults, width);
    for (int pixel = 0; pixel < result.allPixels; ++pixel) {
        const Fault fault = faults[static_cast<std::size_t>(pixel)];
        if (fault == Fault::None)
            continue;
        const std::vector<int> region = search.takeRegion(pixel);
        double area = 0.0;
        for (const int part : region)
            area += exact.pixelArea(pointOf(part));
        const int pixels = static_cast<int>(region.size());
        if (pixels > floodPixels && area > floodSquareKilometres) {
            result.floods.push_back({fault == Fault::Land, pixels, area,
                                     exact.placeAt(pointOf(pixel)).value_or(Place{})});
        }
    }
    return result;
}

} // namespace tovrel
