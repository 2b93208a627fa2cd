#include "batch/BatchOptions.h"

#include "platform/ByteText.h"
#include "platform/Numbers.h"

#include <string_view>

namespace tovrel {

const char* const usageText =
    "Usage: tovrel-batch plot LOG [options]   draws the map of a log\n"
    "       tovrel-batch --help | --version\n"
    "\n"
    "Options:\n"
    "  --folder DIR        program folder whose settings, tag list and data files serve;\n"
    "                      nothing in it is written (default: the program's own)\n"
    "  --projection NAME   azimuthal or miller (default: as the settings say)\n"
    "  --home LAT,LON      home position in degrees, north and east positive\n"
    "  --image FILE        write the map as .png, .bmp or .jpg, 800 pixels wide\n"
    "  --report FILE       write a JSON report, - for standard output\n"
    "  --quiet             say nothing but errors\n"
    "\n"
    "Exit status: 0 done, 1 nothing plotted, 2 wrong use, 3 a file can't be read or written\n";

namespace {

/// A number that takes up the whole of a text.
std::optional<double> wholeNumber(std::string_view text) {
    const bool numeric = !text.empty() && text.find_first_not_of("+-.0123456789") == text.npos;
    return numeric ? leadingNumber(text) : std::nullopt;
}

std::optional<Home> parseHome(std::string_view text) {
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos) {
        return std::nullopt;
    }
    const std::optional<double> latitude = wholeNumber(text.substr(0, comma));
    const std::optional<double> longitude = wholeNumber(text.substr(comma + 1));
    const bool onEarth = latitude && longitude && *latitude >= -90.0 && *latitude <= 90.0 &&
                         *longitude >= -180.0 && *longitude <= 360.0;
    return onEarth ? std::optional<Home>({*latitude, *longitude}) : std::nullopt;
}

/// Takes the value of an option.
/// @return what is wrong with it, empty when it is good
std::string setOption(BatchOptions& options, const std::string& name, const std::string& value) {
    if (name == "--folder") {
        options.folder = value;
    } else if (name == "--report") {
        options.report = value;
    } else if (name == "--image") {
        options.image = value;
        if (imageFormat(value) == nullptr) {
            return "--image: the name must end in .png, .bmp or .jpg";
        }
    } else if (name == "--projection") {
        if (value != "azimuthal" && value != "miller") {
            return "--projection: azimuthal or miller, not \"" + value + "\"";
        }
        options.projection = value == "miller" ? Projection::Miller : Projection::Azimuthal;
    } else if (name == "--home") {
        options.home = parseHome(value);
        if (!options.home) {
            return "--home: LAT,LON in degrees, for example 41.7,-72.7, not \"" + value + "\"";
        }
    } else {
        return "unknown option " + name;
    }
    return {};
}

} // namespace

const char* imageFormat(const std::string& path) {
    const std::size_t dot = path.rfind('.');
    const std::string_view extension =
        dot == std::string::npos ? std::string_view() : std::string_view(path).substr(dot);
    if (equalIgnoringCase(extension, ".png")) {
        return "PNG";
    }
    if (equalIgnoringCase(extension, ".bmp")) {
        return "BMP";
    }
    const bool jpeg = equalIgnoringCase(extension, ".jpg") || equalIgnoringCase(extension, ".jpeg");
    return jpeg ? "JPG" : nullptr;
}

ParsedOptions parseOptions(const std::vector<std::string>& arguments) {
    ParsedOptions parsed;
    BatchOptions& options = parsed.options;
    for (const std::string& argument : arguments) {
        if (argument == "--help" || argument == "--version") {
            options.command =
                argument == "--help" ? BatchOptions::Command::Help : BatchOptions::Command::Version;
            return parsed;
        }
    }
    if (arguments.empty() || arguments[0] != "plot") {
        parsed.error = arguments.empty() ? "no command; try --help"
                                         : "unknown command " + arguments[0] + "; try --help";
        return parsed;
    }
    options.command = BatchOptions::Command::Plot;
    for (std::size_t i = 1; i < arguments.size() && parsed.error.empty(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--quiet") {
            options.quiet = true;
        } else if (argument.starts_with("--")) {
            parsed.error = i + 1 < arguments.size() ? setOption(options, argument, arguments[i + 1])
                                                    : argument + " needs a value";
            ++i;
        } else if (options.log.empty()) {
            options.log = argument;
        } else {
            parsed.error = "more than one log: " + argument;
        }
    }
    if (parsed.error.empty() && options.log.empty()) {
        parsed.error = "plot needs the name of a log";
    }
    return parsed;
}

} // namespace tovrel
