#pragma once

#include "map/MapPen.h"
#include "platform/PassListener.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tovrel {

/// One record of the coastline database.
struct CoastRecord {
    std::int16_t marker;    ///< above 1000 the record starts a new stroke
    std::int16_t latitude;  ///< arc minutes, north positive
    std::int16_t longitude; ///< arc minutes, east positive, may pass 180 degrees
};

/// Whether a record starts a new stroke.
constexpr bool startsStroke(const CoastRecord& record) { return record.marker > 1000; }

/// The place of a record.
EarthPlace placeOf(const CoastRecord& record);

/// Records of a coastline database: 6 bytes each, little-endian, no header. The count is the length
/// divided by 6, rounded; bytes that a last record lacks count as 0.
std::vector<CoastRecord> readCoastRecords(std::string_view bytes);

/// Draws coastlines on a surface.
class Coastline {
public:
    /// @param surface, map, listener have to outlive it
    Coastline(PictureSurface& surface, const WorldMap& map, PassListener& listener);

    /// Draws all records in ForeColor, letting events run at each stroke start.
    void DrawCoastline(const std::vector<CoastRecord>& records);

    /// Carries each stroke that was cut off near the antipode straight outward to the inner circle,
    /// and likewise from where it comes back. At resolutions beyond 1 strokes go on nearly so far.
    /// Without it the sea would run round through the gap between the coast's last point and the
    /// circle, and flood a continent.
    void SealAntipodeRing();

    /// The last point that was shown; (0, 0) before the first.
    MapPoint lastPoint() const { return pen_.point(); }

private:
    bool isFar(EarthPlace place) const;
    void draw(EarthPlace place);

    PictureSurface& surface_;
    PassListener& listener_;
    const WorldMap& map_;
    MapLine line_;
    MapPen pen_;
    EarthPlace last_;               ///< of the record before
    bool strokeCut_ = false;        ///< the record before, in this stroke, was cut off
    bool strokeShown_ = false;      ///< the record before, in this stroke, was drawn
    std::vector<MapPoint> cutEnds_; ///< where strokes were cut off or came back
};

} // namespace tovrel
