#pragma once

#include "platform/Signal.h"
#include "state/MapOptions.h"
#include "state/PlotLine.h"
#include "state/RunState.h"
#include "state/iniFiles.h"
#include "stats/Legend.h"
#include "stats/StatusLists.h"

#include <array>
#include <string>

namespace tovrel {

/// What the statistics window holds: the lists, the filter in force and the plot colours. Whoever
/// draws or counts uses it, whether the window is open or not.
///
/// Closing the window drops all of it, and load() brings it back, lists empty, filter and colours
/// from the settings of the map in force. Who draws or counts loads first; looking changes nothing.
class MapStats {
public:
    /// Starts with nothing loaded. All have to outlive this object.
    MapStats(iniFiles& ini, MapOptionForms& maps, RunState& run, PlotLine& lneGCPlotLine);

    /// What the last pass found; whoever fills the lists loads first.
    StatusLists& lists() { return lists_; }
    const StatusLists& lists() const { return lists_; }

    /// The colours of the next drawing; whoever draws loads first.
    Legend& legend() { return legend_; }
    const Legend& legend() const { return legend_; }

    /// Text of the filter boxes txtBand, txtMode and txtIOTA; empty before the first load.
    const std::string& filterText(Criterion criterion) const {
        return filterTexts_[static_cast<std::size_t>(criterion)];
    }

    /// Takes the filter texts from the settings of a map, as when its options were applied.
    void showFilter(Projection projection);

    /// Takes a colour that the user chose: the legend and the settings of the map in force get it.
    void pickColour(MapColour entry, Colour colour);

    /// Draws the line to a station that was picked in a list; for one that can't be shown the line
    /// goes away.
    void pickStation(const Station& station);

    /// Loads what was dropped, if anything was.
    void load();

    /// The window was closed: the lists are empty, the colours those of the design.
    void unload();

    /// Whether there is anything that unload() would drop.
    bool loaded() const { return loaded_; }

    /// Called when filter texts have changed or the window's content was dropped.
    Signal<> changed;

private:
    iniFiles& ini_;
    MapOptionForms& maps_;
    RunState& run_;
    PlotLine& lneGCPlotLine_;
    StatusLists lists_;
    Legend legend_;
    std::array<std::string, 3> filterTexts_;
    bool loaded_ = false;
};

} // namespace tovrel
