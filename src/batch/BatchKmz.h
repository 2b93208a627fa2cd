#pragma once

#include "batch/BatchOptions.h"
#include "batch/BatchResult.h"

namespace tovrel {

/// Exports a log to Google Earth as the options say, in a folder that stays as it is. The document
/// is written in a folder of its own beside the archive, which is gone at the end.
BatchResult batchKmz(const BatchOptions& options);

} // namespace tovrel
