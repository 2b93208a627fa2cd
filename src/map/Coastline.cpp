#include "map/Coastline.h"

#include "platform/Numbers.h"

#include <cmath>

namespace tovrel {

namespace {

constexpr std::size_t recordSize = 6;
constexpr double minutesPerDegree = 60.0;

} // namespace

EarthPlace placeOf(const CoastRecord& record) {
    return {record.latitude / minutesPerDegree, record.longitude / minutesPerDegree};
}

std::vector<CoastRecord> readCoastRecords(std::string_view bytes) {
    const double count = static_cast<double>(bytes.size()) / recordSize;
    const auto records = static_cast<std::size_t>(roundHalfEven(count));
    const auto field = [bytes](std::size_t at) {
        const auto byte = [bytes](std::size_t i) {
            return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U;
        };
        return static_cast<std::int16_t>(byte(at) | byte(at + 1) << 8U);
    };
    std::vector<CoastRecord> result(records);
    for (std::size_t i = 0; i < records; ++i) {
        const std::size_t at = i * recordSize;
        result[i] = {field(at), field(at + 2), field(at + 4)};
    }
    return result;
}

Coastline::Coastline(PictureSurface& surface, const WorldMap& map, PassListener& listener)
    : surface_(surface), listener_(listener), map_(map),
      line_(surface.resolution() > 1.0 ? MapLine::CoastToRim : MapLine::Coast),
      pen_(surface, map, line_, surface.ForeColor) {}

void Coastline::DrawCoastline(const std::vector<CoastRecord>& records) {
    for (const CoastRecord& record : records) {
        const EarthPlace place = placeOf(record);
        if (startsStroke(record)) {
            pen_.lift();
            strokeCut_ = strokeShown_ = false;
            listener_.yield();
        } else if (line_ == MapLine::CoastToRim && (isFar(last_) || isFar(place))) {
            // Here a straight line between two records would cut across the map.
            constexpr int steps = 16;
            const double east = std::remainder(place.longitude - last_.longitude, 360.0);
            for (int step = 1; step < steps; ++step) {
                const double part = static_cast<double>(step) / steps;
                draw({last_.latitude + part * (place.latitude - last_.latitude),
                      last_.longitude + part * east});
            }
        }
        draw(place);
        last_ = place;
    }
}

bool Coastline::isFar(EarthPlace place) const {
    return std::holds_alternative<CutOff>(
        map_.linePoint(place.latitude, place.longitude, MapLine::Coast));
}

void Coastline::draw(EarthPlace place) {
    const MapPoint before = pen_.point();
    const MapPosition to = pen_.moveTo(place.latitude, place.longitude);
    if (std::holds_alternative<NotShown>(to))
        return;
    const bool cut = std::holds_alternative<CutOff>(to);
    if (cut && strokeShown_)
        cutEnds_.push_back(before);
    if (!cut && strokeCut_)
        cutEnds_.push_back(pen_.point());
    strokeCut_ = cut;
    strokeShown_ = !cut;
}

void Coastline::SealAntipodeRing() {
    for (const MapPoint& end : cutEnds_) {
        const double outward = MapRadius / std::hypot(end.x, end.y);
        surface_.PSet(end.x, end.y);
        surface_.Line(end.x * outward, end.y * outward);
    }
}

} // namespace tovrel
