#pragma once

#include "platform/Projection.h"
#include "plot/HoverTip.h"
#include "state/FilterGroup.h"
#include "state/LogReading.h"
#include "state/MapOptions.h"
#include "state/PictureOptions.h"

#include <optional>
#include <string>
#include <vector>

namespace tovrel {

/// A position in degrees, north and east positive.
struct Home {
    double latitude = 0.0;  ///< -90 to 90
    double longitude = 0.0; ///< -180 to 360
};

/// A position of the map, in map units, on the surface or off it.
struct TipPlace {
    double mapY = 0.0; ///< upward
    double mapX = 0.0; ///< to the right
};

/// The compass of the azimuthal map: none, or one with so many degrees between two ticks.
enum class Compass { Off, Every15, Every45 };

/// What the command line asks for. An empty text and an optional without a value mean that the
/// option was not given: what the settings say holds then.
struct BatchOptions {
    /// What the run makes. Help and Version are found before any option is read.
    enum class Command { Help, Version, Plot, Kmz };
    Command command = Command::Help; ///< with Help and Version nothing else is set
    std::string log;                 ///< "-" for standard input
    std::string logTitle;            ///< the log as the user named it, when that is no path of it
    std::string folder;              ///< empty: the program's own
    std::string report;              ///< empty: none; "-" for standard output
    bool quiet = false;              ///< nothing on standard error but why the run failed
    std::optional<LogFormat> logFormat; ///< how the log is read
    std::optional<bool> placeByCountry; ///< of a log of any logger
    bool allowIncomplete = false;     ///< a map without its data, a KMZ file without icons will do
    std::vector<FilterGroup> filter;  ///< groups to be replaced; of two equal ones the later counts
    std::optional<MarkerSize> marker; ///< of the marks on the map, or of the icons
    std::optional<std::string> myCall; ///< of the station; no control character in it

    // Of plot.
    std::optional<Projection> projection; ///< the map that is drawn, which all of these are for
    std::optional<Home> home;             ///< of the station
    std::optional<Compass> compass;       ///< without a meaning for the Miller map
    std::optional<bool> graticule;        ///< meridians and parallels
    std::optional<bool> homeMark;         ///< mark of the home station
    std::optional<bool> topo;             ///< relief on the land
    std::optional<int> size;              ///< width of the picture, pixels
    std::string image;                    ///< empty: none; "-" for standard output, as PNG
    std::string baseMap;                  ///< likewise
    std::optional<Paper> paper;           ///< of an image that is a page
    std::optional<bool> caption;          ///< below the image; by itself a page has it
    std::vector<TipPlace> tips;       ///< where to tell the tool tip, a line each, in this order
    std::optional<TipParts> tipParts; ///< all of them where the settings have none, either

    // Of kmz.
    std::string output; ///< "-" for standard output; empty, until completePlaces(): beside the log
    std::string document; ///< place of the KML document with keepKml, and its name; see there too
    std::optional<bool> callNames; ///< whether placemarks have the calls as their names
    bool keepKml = false;          ///< the document stays, beside the archive
};

/// The options, or one line that says what is wrong with them.
struct ParsedOptions {
    BatchOptions options; ///< with an error, as far as they were read
    std::string error;    ///< empty when the options are good
};

/// Reads a command line, all of it, before anything is done.
/// @param arguments without the program's name
ParsedOptions parseOptions(const std::vector<std::string>& arguments);

/// Format of a picture by its file's extension; PNG of standard output, nothing of any other.
std::optional<PictureFormat> pictureFormat(const std::string& path);

/// What --help prints: as much as a screen of 80 by 45 shows.
std::string usageText();

} // namespace tovrel
