#include "map/Coastline.h"

#include "platform/Numbers.h"

#include <cmath>

namespace tovrel {

namespace {

constexpr std::size_t recordSize = 6;
constexpr double minutesPerDegree = 60.0;

// Where a stroke that crosses the date line leaves the surface, and enters it on the other side.
constexpr double beyondEdge = 23000.0;

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

Coastline::Coastline(PictureSurface& surface, GreatCircle& greatCircle, PassListener& listener)
    : surface_(surface), greatCircle_(greatCircle), listener_(listener) {}

void Coastline::DrawCoastline(const std::vector<CoastRecord>& records, Projection projection) {
    for (const CoastRecord& record : records) {
        if (startsStroke(record)) {
            greatCircle_.PenUp = 1;
            strokeCut_ = strokeShown_ = false;
            listener_.yield();
        }
        if (projection == Projection::Azimuthal) {
            drawAzimuthal(record);
        } else {
            drawMiller(record);
        }
    }
}

void Coastline::drawAzimuthal(const CoastRecord& record) {
    const MapPoint before{greatCircle_.ProjX, greatCircle_.ProjY};
    int mode = 0;
    greatCircle_.ProjectAzimuthal(toSingle(record.latitude / minutesPerDegree),
                                  toSingle(record.longitude / minutesPerDegree), mode);
    if (mode >= 900) {
        if (!greatCircle_.cutAtAntipode())
            return;
        if (strokeShown_)
            cutEnds_.push_back(before);
        strokeShown_ = false;
        strokeCut_ = true;
        return;
    }
    if (strokeCut_)
        cutEnds_.push_back({greatCircle_.ProjX, greatCircle_.ProjY});
    strokeCut_ = false;
    strokeShown_ = true;
    PlotCoastPoint();
}

void Coastline::drawMiller(const CoastRecord& record) {
    const double y = record.latitude / minutesPerDegree * millerUnitsPerLatitude;
    double x = record.longitude / minutesPerDegree * millerUnitsPerLongitude;
    if (x >= mapEdge)
        x -= mapWidth;
    if (greatCircle_.PenUp != 1 && std::abs(x - PreviousCoastX_) > mapEdge) {
        // The stroke runs off the near edge at its old latitude and starts again at the far one.
        greatCircle_.ProjX = PreviousCoastX_ > 0 ? beyondEdge : -beyondEdge;
        PlotCoastPoint();
        greatCircle_.PenUp = 1;
        x = roundToInt(x) > 0 ? beyondEdge : -beyondEdge;
    }
    greatCircle_.ProjX = x;
    greatCircle_.ProjY = y;
    PlotCoastPoint();
    PreviousCoastX_ = roundToInt(x);
}

void Coastline::PlotCoastPoint() {
    if (greatCircle_.PenUp == 1) {
        greatCircle_.PenUp = 0;
        surface_.PSet(greatCircle_.ProjX, greatCircle_.ProjY);
    } else {
        surface_.Line(greatCircle_.ProjX, greatCircle_.ProjY);
    }
}

void Coastline::SealAntipodeRing() {
    for (const MapPoint& end : cutEnds_) {
        const double outward = MapRadius / std::hypot(end.x, end.y);
        surface_.PSet(end.x, end.y);
        surface_.Line(end.x * outward, end.y * outward);
    }
}

} // namespace tovrel
