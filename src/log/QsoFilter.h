#pragma once

#include "state/FilterGroup.h"

#include <string_view>

namespace tovrel {

/// Name of the mode group of a log's mode: "Phone" for "SSB", "CW" for "CW", "Digital" for any
/// other text, case counting.
std::string_view modeGroupOf(std::string_view mode);

/// Whether a QSO meets all three criteria of a filter. A criterion that is "OFF" is met by any
/// value; else one of the selected members has to equal the value exactly: the band, the group of
/// the mode, the first two characters of the IOTA reference.
/// @param band, mode, iota values of the log without blanks at their ends; may be empty
bool passesFilter(const Filter& filter, std::string_view band, std::string_view mode,
                  std::string_view iota);

} // namespace tovrel
