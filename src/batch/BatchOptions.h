#pragma once

#include "platform/Projection.h"
#include "plot/HoverTip.h"
#include "state/FilterGroup.h"
#include "state/MapOptions.h"

#include <optional>
#include <string>
#include <vector>

namespace tovrel {

/// A position in degrees, north and east positive.
struct Home {
    double latitude = 0.0;
    double longitude = 0.0;
};

/// A position of the map, in map units.
struct TipPlace {
    double mapY = 0.0;
    double mapX = 0.0;
};

enum class Compass { Off, Every15, Every45 };

/// What the command line asks for. An empty text and an optional without a value mean that the
/// option was not given: what the settings say holds then.
struct BatchOptions {
    enum class Command { Help, Version, Plot, Kmz };
    Command command = Command::Help;
    std::string log;      ///< "-" for standard input
    std::string logTitle; ///< the log as the user named it, when that is no path of it
    std::string folder;   ///< empty: the program's own
    std::string report;   ///< empty: none; "-" for standard output
    bool quiet = false;
    bool allowIncomplete = false;    ///< a map without its data, a KMZ file without icons will do
    std::vector<FilterGroup> filter; ///< groups to be replaced; of two equal ones the later counts
    std::optional<MarkerSize> marker;

    // Of plot.
    std::optional<Projection> projection;
    std::optional<Home> home;
    std::optional<Compass> compass;
    std::optional<bool> graticule;
    std::optional<bool> homeMark;
    std::optional<bool> topo;
    int size = 800;      ///< width of the picture, pixels
    std::string image;   ///< empty: none; "-" for standard output, as PNG
    std::string baseMap; ///< likewise
    std::vector<TipPlace> tips;
    std::optional<TipParts> tipParts;

    // Of kmz.
    std::string output; ///< "-" for standard output; empty, until completePlaces(): beside the log
    std::string document; ///< place of the KML document with keepKml, and its name; see there too
    std::optional<std::string> myCall;
    std::optional<bool> callNames;
    bool keepKml = false;
};

/// The options, or one line that says what is wrong with them.
struct ParsedOptions {
    BatchOptions options;
    std::string error; ///< empty when the options are good
};

/// Reads a command line, all of it, before anything is done.
/// @param arguments without the program's name
ParsedOptions parseOptions(const std::vector<std::string>& arguments);

/// Format of a picture by its file's extension, "PNG", "BMP" or "JPG", or of standard output,
/// "PNG"; null for any other.
const char* imageFormat(const std::string& path);

/// What --help prints: as much as a screen of 80 by 45 shows.
std::string usageText();

} // namespace tovrel
