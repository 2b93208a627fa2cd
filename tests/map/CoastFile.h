#pragma once

#include <string>
#include <vector>

namespace tovrel {

/// A point of a coastline in arc minutes.
struct CoastPoint {
    int latitude;
    int longitude;
};

/// Bytes of a coastline record.
inline std::string coastRecord(int marker, CoastPoint point) {
    std::string bytes;
    for (const int field : {marker, point.latitude, point.longitude}) {
        bytes += static_cast<char>(field & 0xFF);
        bytes += static_cast<char>(field >> 8 & 0xFF);
    }
    return bytes;
}

/// Bytes of a stroke: its first record has a marker that starts it.
inline std::string coastStroke(const std::vector<CoastPoint>& points) {
    std::string bytes;
    for (const CoastPoint& point : points)
        bytes += coastRecord(bytes.empty() ? 1001 : 0, point);
    return bytes;
}

/// A stroke of points a degree apart along a parallel, in whole degrees.
inline std::string coastAlong(int latitude, int from, int to) {
    std::vector<CoastPoint> points;
    for (int longitude = from; longitude <= to; ++longitude)
        points.push_back({latitude * 60, longitude * 60});
    return coastStroke(points);
}

} // namespace tovrel
