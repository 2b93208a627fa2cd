#pragma once

#include "platform/PassListener.h"
#include "run/RunData.h"

#include <cstdint>

namespace tovrel {

/// How many contacts of the run's log, filter aside, have a place if it is read as one of any
/// logger: by LAT and LON, by their locator, or by their country where the run wants that. For
/// those whose Logger32 log has turned out to tell no coordinates.
/// @return 0 too for a log that is read so already, and where the count was aborted or the log
/// can't
///         be read
std::int64_t countOtherPlaces(RunData& data, PassListener& listener);

} // namespace tovrel
