#pragma once

#include "state/RunState.h"
#include "state/iniFiles.h"

#include <string>
#include <string_view>

namespace tovrel {

/// What the user tells of the station, as typed (bytes, UTF-8).
struct StationInfo {
    std::string MyCall;    ///< any text; its form is not tested
    std::string Latitude;  ///< decimal degrees, south negative; empty counts as 0
    std::string Longitude; ///< decimal degrees, west negative; empty counts as 0
};

/// The three texts as the settings have them; empty for those that they lack.
StationInfo readStationInfo(const iniFiles& ini);

/// Stores the three texts as they stand. The keys of the station are read and written here alone,
/// but for their defaults.
void writeStationInfo(iniFiles& ini, const StationInfo& info);

/// Takes the home station's position from the settings, as single-precision degrees; 0 for what is
/// no number.
void readHome(const iniFiles& ini, RunState& run);

/// What is wrong with the text of a coordinate.
enum class CoordinateFault {
    None,
    Blank,   ///< a blank anywhere: degrees, minutes and seconds were meant, or a stray key
    NoNumber ///< not empty and no plain decimal number
};

/// Judges a coordinate by its form alone; no range is tested.
CoordinateFault coordinateFault(std::string_view text);

/// Message for a fault.
/// @param coordinate "Latitude" or "Longitude"
std::string coordinateMessage(std::string_view coordinate, CoordinateFault fault);

} // namespace tovrel
