#pragma once

#include "log/ContactPlace.h"
#include "log/QsoStatus.h"

#include <cstdint>
#include <limits>
#include <string_view>

namespace tovrel {

/// A QSO to be drawn.
struct PlotRow {
    /// Stands for the map units of a QSO without a place.
    static constexpr double nowhere = std::numeric_limits<double>::quiet_NaN();

    float latitude = 0.0F;  ///< degrees, north positive, as the log has it, no range tested
    float longitude = 0.0F; ///< degrees, east positive: the log's value with its sign turned
    QsoStatus status = QsoStatus::Worked;              ///< gives the mark its layer and colour
    PlaceSource from = PlaceSource::LoggerCoordinates; ///< what told the place
    std::uint32_t country = 0; ///< number of the country's name in the table
    std::string_view call;     ///< view into the table's texts

    /// Where it was drawn, in map units rounded to 4 decimals; NaN before, and for a QSO that can't
    /// be shown since it lies too near the antipode.
    double mapY = nowhere;
    double mapX = nowhere;

    /// Whether it has a mark on the map; none has before the marks are drawn.
    bool shown() const { return mapY == mapY && mapX == mapX; }
};

} // namespace tovrel
