#include "check_map_compare.h"

#include "map/WorldMap.h"
#include "platform/VectorState.h"

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
constexpr double unitsAtResolution1 = 66.0; // map units a pixel
constexpr int floodPixels = 300;
constexpr double floodSquareKilometres = 250000.0;
constexpr Colour black = 0x000000;
constexpr Colour white = 0xFFFFFF;

/// The exact projections and their inverses, in double precision and without the program's limits.
class ExactMap {
public:
    ExactMap(const WorldMap& map, Place home)
        : miller_(!map.centredOnHome()), home_(home), sinHome_(std::sin(home_.latitude * degree)),
          cosHome_(std::cos(home_.latitude * degree)) {}

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

    /// Whether the map shows points there.
    bool isShown(MapPoint point) const {
        return miller_ || std::hypot(point.x, point.y) < shownReach;
    }

    /// @return nothing outside the map: beyond the inner circle, or past a pole or the date line
    std::optional<Place> placeAt(MapPoint point) const {
        if (miller_) {
            const Place place{point.y / millerUnitsPerLatitude, point.x / millerUnitsPerLongitude};
            if (std::abs(place.latitude) > 90.0 || std::abs(place.longitude) > 180.0)
                return std::nullopt;
            return place;
        }
        const double distance = std::hypot(point.x, point.y);
        if (distance >= MapRadius)
            return std::nullopt;
        const double cosArc = std::cos(distance / earthRadius);
        const double sinArc = std::sin(distance / earthRadius);
        const double east = distance > 0.0 ? sinArc * point.x / distance : 0.0;
        const double north = distance > 0.0 ? sinArc * point.y / distance : 0.0;
        const double sinLat = sinHome_ * cosArc + cosHome_ * north;
        const double turn = std::atan2(east, cosHome_ * cosArc - sinHome_ * north);
        return Place{std::asin(std::clamp(sinLat, -1.0, 1.0)) / degree,
                     home_.longitude + turn / degree};
    }

    /// Ground covered by a pixel there, in square kilometres.
    double pixelArea(MapPoint point, double unitsPerPixel) const {
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
    bool miller_;
    Place home_;
    double sinHome_;
    double cosHome_;
};

/// The true coast as one-pixel lines on a surface like the map's.
PictureSurface drawTrueCoast(const ExactMap& exact, const TrueWorld& world, double resolution) {
    constexpr double longestStep = 8000.0; // map units; longer ones run round the rim or the edge
    PictureSurface surface(baseMapSize, baseMapSize, resolution);
    surface.LineWidth = 1.0 / resolution;
    for (const std::vector<Place>& coast : world.coasts()) {
        bool drawing = false;
        for (const Place place : coast) {
            const MapPoint point = exact.project(place);
            const double step = std::hypot(point.x - surface.CurrentX, point.y - surface.CurrentY);
            if (!drawing || step >= longestStep) {
                surface.CurrentX = point.x;
                surface.CurrentY = point.y;
            }
            surface.Line(point.x, point.y, black);
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
                     const TrueWorld& world) {
    const ExactMap exact(*style.map, home);
    const PictureSurface coast = drawTrueCoast(exact, world, map.resolution());
    const double unitsPerPixel = unitsAtResolution1 / map.resolution();
    const int width = map.pixelWidth();
    const int height = map.pixelHeight();
    const auto pointOf = [width, unitsPerPixel](int pixel) {
        const int column = pixel % width;
        const int row = pixel / width;
        return MapPoint{column * unitsPerPixel - mapEdge, mapEdge - row * unitsPerPixel};
    };
    MapResult result;
    const int pixels = width * height;
    result.black.all = pixels;
    std::vector<Fault> faults(static_cast<std::size_t>(pixels), Fault::None);
    for (int pixel = 0; pixel < pixels; ++pixel) {
        const int x = pixel % width;
        const int y = pixel / width;
        if (x == 0)
            clearUpperHalves();
        const Colour colour = map.GetPixel(x, y);
        result.black.wrong += colour == black ? 1 : 0;
        const MapPoint point = pointOf(pixel);
        const std::optional<Place> place = exact.placeAt(point);
        if (!place)
            continue;
        const bool isLand = world.isLand(*place);
        const bool isShown = exact.isShown(point);
        Share& toCircle = isLand ? result.toCircle.land : result.toCircle.sea;
        Share& shown = isLand ? result.shown.land : result.shown.sea;
        ++toCircle.all;
        shown.all += isShown ? 1 : 0;
        const bool wrong = isLand ? colour != style.land && colour != white : colour != style.water;
        if (!wrong || colour == black || nearCoast(coast, x, y))
            continue;
        ++toCircle.wrong;
        if (!isShown)
            continue;
        ++shown.wrong;
        faults[static_cast<std::size_t>(pixel)] = isLand ? Fault::Land : Fault::Sea;
    }
    FloodSearch search(faults, width);
    for (int pixel = 0; pixel < pixels; ++pixel) {
        const Fault fault = faults[static_cast<std::size_t>(pixel)];
        if (fault == Fault::None)
            continue;
        const std::vector<int> region = search.takeRegion(pixel);
        double area = 0.0;
        for (const int part : region)
            area += exact.pixelArea(pointOf(part), unitsPerPixel);
        const int size = static_cast<int>(region.size());
        if (size > floodPixels && area > floodSquareKilometres) {
            result.floods.push_back({fault == Fault::Land, size, area,
                                     exact.placeAt(pointOf(pixel)).value_or(Place{})});
        }
    }
    return result;
}

} // namespace tovrel
