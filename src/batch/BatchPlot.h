#pragma once

#include "batch/BatchOptions.h"
#include "batch/BatchResult.h"

namespace tovrel {

/// Draws the map of a log as the options say, in a folder that stays as it is.
BatchResult batchPlot(const BatchOptions& options);

} // namespace tovrel
