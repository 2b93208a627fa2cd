#pragma once

#include "batch/BatchOptions.h"

namespace tovrel {

/// Exit statuses of the program.
enum class BatchResult { Done = 0, NothingPlotted = 1, WrongUse = 2, FileFailed = 3 };

/// Draws the map of a log as the options say, in a folder that stays as it is.
BatchResult batchPlot(const BatchOptions& options);

} // namespace tovrel
