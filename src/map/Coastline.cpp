#include "map/Coastline.h"

#include "platform/Numbers.h"

#include <cmath>

namespace tovrel {

namespace {

constexpr std::size_t recordSize = 6;
constexpr double minutesPerDegree = 60.0;

} // namespace

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
    : surface_(surface), listener_(listener),
      pen_(surface, map, MapLine::Coast, surface.ForeColor) {}

void Coastline::DrawCoastline(const std::vector<CoastRecord>& records) {
    for (const CoastRecord& record : records) {
        if (startsStroke(record)) {
            pen_.lift();
            strokeCut_ = strokeShown_ = false;
            listener_.yield();
        }
        draw(record);
    }
}

void Coastline::draw(const CoastRecord& record) {
    const MapPoint before = pen_.point();
    const MapPosition to =
        pen_.moveTo(record.latitude / minutesPerDegree, record.longitude / minutesPerDegree);
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
