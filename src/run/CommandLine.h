#pragma once

#include <string>
#include <string_view>

namespace tovrel {

/// What the command line of the window program asks for.
struct CommandLine {
    std::string IniFileName = "Tovrel.ini"; ///< name of the settings file
    std::string LogFileName;                ///< log to plot at the start, as given; empty for none
};

/// The whole line is the name of the settings file, if it is not empty. One that begins with
/// "--log " names a log instead, and "--log" alone nothing.
/// @param line the arguments joined with blanks, bytes
CommandLine readCommandLine(std::string_view line);

} // namespace tovrel
