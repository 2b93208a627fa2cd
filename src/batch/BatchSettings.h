#pragma once

#include "batch/BatchOptions.h"
#include "run/RunData.h"

namespace tovrel {

/// Puts a run into the state that the settings of its folder and the options on top of them
/// describe. The settings are to be in memory only: all that is set here is written to them.
void applyOptions(RunData& data, const BatchOptions& options);

} // namespace tovrel
