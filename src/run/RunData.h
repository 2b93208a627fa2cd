#pragma once

#include "map/WorldMap.h"
#include "plot/PlotTables.h"
#include "state/GoogleMapOptions.h"
#include "state/MapOptions.h"
#include "state/PlotLine.h"
#include "state/RunState.h"
#include "state/iniFiles.h"
#include "stats/MapStats.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace tovrel {

/// All that a run of the program remembers, besides its pictures.
struct RunData {
    /// @param programFolder folder of the program and its data
    /// @param IniFileName name of the settings file in it
    /// @param storage Memory for a run that leaves the folder as it is
    RunData(std::string programFolder, std::string_view IniFileName,
            PrivateProfile::Storage storage = PrivateProfile::Storage::File)
        : ini(std::move(programFolder), IniFileName, storage) {}
    RunData(const RunData&) = delete;
    RunData& operator=(const RunData&) = delete;

    /// The map in force, for the home in force.
    std::unique_ptr<const WorldMap> map() const {
        return worldMap(run.marks.projection, run.HomeLatitude, run.HomeLongitude);
    }
    /// What that map is called.
    const MapNames& mapNames() const { return namesOf(run.marks.projection); }

    iniFiles ini;                                  ///< what lasts
    RunState run;                                  ///< which map of which log is on show
    MapOptionForms maps{ini, run};                 ///< the options of both maps
    GoogleMapOptions google;                       ///< the options of the export
    PlotLine lneGCPlotLine;                        ///< from home to the station picked last
    MapStats stats{ini, maps, run, lneGCPlotLine}; ///< lists, filter texts and colours
    PlotTables tables;                             ///< what the last plot pass found
};

} // namespace tovrel
