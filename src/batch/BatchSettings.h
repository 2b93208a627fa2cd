#pragma once

#include "batch/BatchConsole.h"
#include "batch/BatchOptions.h"
#include "run/RunData.h"

namespace tovrel {

/// Puts a run into the state that the settings of its folder and the options on top of them
/// describe. The settings are to be in memory only: all that is set here is written to them.
/// @return false when there is a settings file that can't serve, which is told
bool applyOptions(RunData& data, const BatchOptions& options, BatchConsole& console);

/// Tells, be the run quiet or not, how many places a log without coordinates has for one who reads
/// it as a log of any logger; nothing where it has none.
void hintAtOtherPlaces(RunData& data, BatchConsole& console);

} // namespace tovrel
