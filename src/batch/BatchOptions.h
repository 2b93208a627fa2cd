#pragma once

#include "platform/Projection.h"

#include <optional>
#include <string>
#include <vector>

namespace tovrel {

/// A position in degrees, north and east positive.
struct Home {
    double latitude = 0.0;
    double longitude = 0.0;
};

/// What the command line asks for.
struct BatchOptions {
    enum class Command { Help, Version, Plot };
    Command command = Command::Help;
    std::string log;
    std::string folder; ///< empty: the program's own
    std::string image;  ///< empty: none
    std::string report; ///< empty: none; "-" for standard output
    std::optional<Projection> projection;
    std::optional<Home> home;
    bool quiet = false;
};

/// The options, or one line that says what is wrong with them.
struct ParsedOptions {
    BatchOptions options;
    std::string error; ///< empty when the options are good
};

/// Reads a command line, all of it, before anything is done.
/// @param arguments without the program's name
ParsedOptions parseOptions(const std::vector<std::string>& arguments);

/// Format of a picture by its file's extension, "PNG", "BMP" or "JPG"; null for any other.
const char* imageFormat(const std::string& path);

/// What --help prints.
extern const char* const usageText;

} // namespace tovrel
