#pragma once

#include "platform/Signal.h"
#include "state/FilterGroup.h"
#include "state/RunState.h"
#include "state/iniFiles.h"

#include <string>

namespace tovrel {

/// Size of the plot marks; the settings hold the words "Small", "Medium" and "Large".
enum class MarkerSize { Small, Medium, Large };

/// The word of a size as the settings hold it.
std::string_view wordOf(MarkerSize size);

/// Sets `size` when `word` is one of the three words, exactly so written; leaves it else.
void readMarkerWord(std::string_view word, MarkerSize& size);

/// What the option window of one map holds, applied or not.
struct MapOptions {
    Filter filter;                         ///< which QSOs a plot has
    MarkerSize marker = MarkerSize::Small; ///< Option1, Option2, Option3
    int line = 1;                          ///< optLine1 to optLine3: thickness of the plot line
    bool chkCall = false;                  ///< the tool tip has the calls
    bool chkLatLong = false;               ///< it has the first station's coordinates
    bool chkCountry = false;               ///< it has the first station's country

    /// Called when the other options were set from the settings; a filter group tells by itself.
    Signal<> changed;

    /// The state in which a window is made, before it reads the settings.
    void resetToDesign();
};

/// The options of both maps, in memory: loaded when a run starts, when a projection is switched,
/// and when an option window is closed without Apply. Looking at them changes nothing.
class MapOptionForms {
public:
    /// Starts with the options as the windows are made, no settings read.
    /// @param ini, run have to outlive this object
    MapOptionForms(iniFiles& ini, RunState& run);

    /// The options of a map, be it on show or not. A change of them works at once and is stored by
    /// save() alone.
    const MapOptions& of(Projection projection) const {
        return options_[static_cast<std::size_t>(projection)];
    }
    MapOptions& of(Projection projection) { return options_[static_cast<std::size_t>(projection)]; }

    /// The same of the map that the menu's marks say is on show.
    const MapOptions& inForce() const { return of(run_.marks.projection); }
    MapOptions& inForce() { return of(run_.marks.projection); }

    /// load() of the azimuthal and of the Miller map.
    void LoadGCMapOptions() { load(Projection::Azimuthal); }
    void LoadMCMapOptions() { load(Projection::Miller); }

    /// Takes a map's options and the menu's marks from its settings. Of two marks that exclude each
    /// other the first one in the settings counts: bold characters, every 15 degrees.
    void load(Projection projection);

    /// Takes a map's options, but not the marks, from its settings, as a new window does.
    void loadBoxes(Projection projection);

    /// save() of the azimuthal and of the Miller map.
    void SaveGCMapOptions() { save(Projection::Azimuthal); }
    void SaveMCMapOptions() { save(Projection::Miller); }

    /// Stores a map's options and the menu's marks in its section, and takes its line's width. A
    /// failure is told by iniFiles::failed.
    void save(Projection projection);

    /// Width of the plot line in pixels, 1 to 3: that of the map whose options were stored last, or
    /// given to takeLineWidth().
    int PlotLineWidth() const { return PlotLineWidth_; }

    /// Takes a map's width for the plot lines to come.
    void takeLineWidth(Projection projection) { PlotLineWidth_ = of(projection).line; }

    /// save() of the map on show.
    void saveInForce() { save(run_.marks.projection); }

    /// Loads a group's boxes from the settings, member 0 and all others in rising order; with an
    /// empty key of member 0, OFF is selected and the rest left alone.
    static void loadGroup(const iniFiles& ini, std::string_view section, FilterGroup& group);

    /// Stores every box of the three groups as 1 or 0.
    static void saveFilter(iniFiles& ini, std::string_view section, const Filter& filter);

private:
    void loadMarks(Projection projection);
    void readBoxes(Projection projection);

    iniFiles& ini_;
    RunState& run_;
    std::array<MapOptions, allProjections.size()> options_;
    int PlotLineWidth_ = 1;
};

/// Text of a filter box of the statistics window: heading, rule, and the captions of the members
/// that the section's settings select, each followed by CR LF.
std::string filterText(const iniFiles& ini, std::string_view section, Criterion criterion);

} // namespace tovrel
