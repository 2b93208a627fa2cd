#pragma once

#include "platform/Projection.h"
#include "platform/Signal.h"
#include "state/LogReading.h"

#include <string>

namespace tovrel {

/// The check marks of the menu. They hold the options of the map; which projection is on stands in
/// `projection` (mnuGreatCircle or mnuMiller is checked, never both).
struct MenuMarks {
    Projection projection = Projection::Azimuthal; ///< of the map on show
    bool mnuShowMe = false;                        ///< the home station has its mark
    bool mnuMeridian = false;                      ///< meridians and parallels are drawn
    bool mnuTopo = false;                          ///< the base map has the relief
    bool mnuShowCompass = false;                   ///< the azimuthal map has its compass
    bool mnuBoldCompass = false;                   ///< with bold labels
    bool mnuLightCompass = false;                  ///< with normal ones, also when neither is set
    bool mnu15Degrees = false;                     ///< with a tick every 15 degrees
    bool mnu45Degrees = false;                     ///< or every 45, also when neither is set

    bool operator==(const MenuMarks&) const = default;
};

/// The state of a run of the program that no table and no window holds.
struct RunState {
    std::string LogFileName; ///< path of the log, UTF-8; empty when none is chosen
    std::string LogTitle;    ///< how to name the log when its path means nothing to the user
    LogReading reading;      ///< how the next pass reads it; whoever changes it calls marksChanged
    float HomeLatitude = 0.0F;   ///< degrees, north positive
    float HomeLongitude = 0.0F;  ///< degrees, east positive
    bool MapPlotted = false;     ///< a plot pass was started on the map on show
    bool AbortRequested = false; ///< polled and cleared by the passes over the log
    bool FormReady = false;      ///< Form_Resize may rearrange the map
    MenuMarks marks;             ///< whoever changes one calls marksChanged

    /// The log as messages name it.
    const std::string& shownLog() const { return LogTitle.empty() ? LogFileName : LogTitle; }

    /// Called by whoever changes a mark of the menu, so that the menu shows it.
    Signal<> marksChanged;
};

} // namespace tovrel
