#pragma once

#include "state/FilterGroup.h"

#include <string_view>

namespace tovrel {

/// Name of the mode group of a log's mode: "Phone" for "SSB", "CW" for "CW", "Digital" for any
/// other text, case counting: the modes of a Logger32 log.
std::string_view modeGroupOf(std::string_view mode);

/// Whether two texts with letters of another case are two.
enum class LetterCase { AsWritten, Any };

/// Whether a QSO meets all three criteria of a filter. A criterion that is "OFF" is met by any
/// value; else one of the selected members has to equal the value: the band, the group of the mode,
/// the first two characters of the IOTA reference.
/// @param band, iota values of the log without blanks at their ends; may be empty
/// @param modeGroup of the log's mode
bool passesFilter(const Filter& filter, std::string_view band, std::string_view modeGroup,
                  std::string_view iota, LetterCase letters);

} // namespace tovrel
