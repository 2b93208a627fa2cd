#pragma once

#include "state/FilterGroup.h"

#include <string_view>

namespace tovrel {

/// The kind of a pass over the log, in LogLayout.
namespace layout {
inline constexpr std::string_view map = "GCMap";
inline constexpr std::string_view google = "GOOGLE";
} // namespace layout

/// Name of the mode group of a log's mode: "Phone" for "SSB", "CW" for "CW", "Digital" for any
/// other text, case counting.
std::string_view modeGroupOf(std::string_view mode);

/// Whether a QSO meets all three criteria of a filter. A criterion that is "OFF" is met by any
/// value; else one of the selected members has to equal the value exactly: the band, the group of
/// the mode, the first two characters of the IOTA reference.
/// @param band, mode, iota values of the log without blanks at their ends; may be empty
bool passesFilter(const Filter& filter, std::string_view band, std::string_view mode,
                  std::string_view iota);

/// The filter of the azimuthal map, on the options of that map.
inline bool PassesAzimuthalFilter(const Filter& gcMapOptions, std::string_view band,
                                  std::string_view mode, std::string_view iota) {
    return passesFilter(gcMapOptions, band, mode, iota);
}

/// The filter of the Miller map, on the options of that map.
inline bool PassesMillerFilter(const Filter& mcMapOptions, std::string_view band,
                               std::string_view mode, std::string_view iota) {
    return passesFilter(mcMapOptions, band, mode, iota);
}

/// The filter of the export, on the export's options. Lets nothing pass in any other kind of pass.
inline bool PassesGoogleFilter(std::string_view LogLayout, const Filter& googleMapOptions,
                               std::string_view band, std::string_view mode,
                               std::string_view iota) {
    return LogLayout == layout::google && passesFilter(googleMapOptions, band, mode, iota);
}

} // namespace tovrel
