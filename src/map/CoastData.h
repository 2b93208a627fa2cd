#pragma once

#include "map/Coastline.h"
#include "map/ColourFill.h"
#include "platform/UserPrompt.h"

#include <optional>
#include <string>
#include <vector>

namespace tovrel {

/// What became of the files that a map is drawn from.
struct DataFilesEnd {
    bool missing = false;    ///< one is missing
    bool unreadable = false; ///< one can't be read, or is damaged
};

/// The coastline of a base map with the seeds of its sea.
struct CoastData {
    std::vector<CoastRecord> coastline; ///< empty when its file does not serve
    std::optional<std::string> seeds;   ///< nothing when their file does not serve
    SeedRule seedRule = SeedRule::Shifted;
};

/// Reads the coastline and the seeds from the program's folder: `mapper.pnt` with `paintma.txt` or,
/// from resolution 2 on, the finer `mapper-fine.pnt` with `paintma-fine.txt`. The coarse ones serve
/// where the finer are missing, and where they are not those that come with the program: a coast of
/// the user's own is shown at every resolution. Of a file that does not serve the user is told.
CoastData readCoastData(const std::string& programFolder, double resolution, UserPrompt& prompt,
                        DataFilesEnd& end);

} // namespace tovrel
