#pragma once

#include "state/GoogleMapOptions.h"
#include "state/MapOptions.h"
#include "state/iniFiles.h"

namespace tovrel {

/// Runs once at every start. Without a settings file it writes one with all defaults; an existing
/// one gets the keys that it lacks, and the option windows take their filters and the export's
/// marker and chkCall from it.
/// @return whether what was written is stored
bool InitSettings(iniFiles& ini, MapOptionForms& maps, GoogleMapOptions& google, RunState& run);

} // namespace tovrel
