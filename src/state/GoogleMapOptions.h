#pragma once

#include "platform/Signal.h"
#include "state/FilterGroup.h"
#include "state/MapOptions.h"
#include "state/iniFiles.h"

namespace tovrel {

/// What the export's option window holds. The export reads the filter and chkCall from here, live,
/// and the marker size from the settings, where a click on a marker button puts it at once.
class GoogleMapOptions {
public:
    Filter filter;                         ///< which QSOs the document has
    MarkerSize marker = MarkerSize::Large; ///< as the window shows it; see storedMarker()
    bool chkCall = true;                   ///< the placemarks have the calls as their names

    /// Called when something but a filter group was set by the program; a group tells by itself.
    Signal<> changed;

    /// Chooses a marker as the user does: it goes to the settings at once.
    void pickMarker(iniFiles& ini, MarkerSize size);

    /// The word of the marker that was chosen last, whatever the window shows.
    static std::string storedMarker(const iniFiles& ini);

    /// Stores filter and chkCall.
    void apply(iniFiles& ini) const;

    /// The window was closed by its close box: all is again as the window is made, until the next
    /// start of the program.
    void resetToDesign();
};

} // namespace tovrel
