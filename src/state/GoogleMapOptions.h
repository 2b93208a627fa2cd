#pragma once

#include "state/FilterGroup.h"
#include "state/MapOptions.h"
#include "state/iniFiles.h"

#include <functional>

namespace tovrel {

/// What the export's option window holds. The export reads the filter and chkCall from here, live,
/// and the marker size from the settings, where a click on a marker button puts it at once.
class GoogleMapOptions {
public:
    Filter filter;
    MarkerSize marker = MarkerSize::Large;
    bool chkCall = true;

    /// Called when something but a filter group was set by the program; a group tells by itself.
    std::function<void()> changed;

    /// Chooses a marker as the user does: it goes to the settings at once.
    void pickMarker(iniFiles& ini, MarkerSize size);

    /// Stores filter and chkCall.
    void apply(iniFiles& ini) const;

    /// The window was closed by its close box: all is again as the window is made, until the next
    /// start of the program.
    void resetToDesign();
};

} // namespace tovrel
