#include "batch/BatchOptions.h"

#include "platform/ByteText.h"
#include "platform/Numbers.h"
#include "state/StationInfo.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <utility>

namespace tovrel {

namespace {

using Value = const std::string&;

/// A plain decimal number that takes up the whole of a text.
std::optional<double> plainDecimal(std::string_view text) {
    const bool plain = !text.empty() && coordinateFault(text) == CoordinateFault::None;
    return plain ? leadingNumber(text) : std::nullopt;
}

/// Two numbers with a comma between them.
std::optional<std::pair<double, double>> numberPair(std::string_view text) {
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos) {
        return std::nullopt;
    }
    const std::optional<double> first = plainDecimal(text.substr(0, comma));
    const std::optional<double> second = plainDecimal(text.substr(comma + 1));
    return first && second ? std::optional(std::pair(*first, *second)) : std::nullopt;
}

/// The parts of a list with commas, without the blanks round them; one empty part when the text is
/// empty.
std::vector<std::string_view> commaList(std::string_view text) {
    std::vector<std::string_view> parts;
    for (std::size_t comma = text.find(','); comma != std::string_view::npos;
         comma = text.find(',')) {
        parts.push_back(trimBlanks(text.substr(0, comma)));
        text.remove_prefix(comma + 1);
    }
    parts.push_back(trimBlanks(text));
    return parts;
}

// Each takes the value of an option and says whether it is good.

template <std::string BatchOptions::*member>
bool takeText(BatchOptions& options, Value value) {
    options.*member = value;
    return !value.empty();
}

template <std::string BatchOptions::*member>
bool takePicture(BatchOptions& options, Value value) {
    options.*member = value;
    return imageFormat(value) != nullptr;
}

template <std::optional<bool> BatchOptions::*member>
bool takeOnOff(BatchOptions& options, Value value) {
    options.*member = value == "on";
    return value == "on" || value == "off";
}

template <Criterion criterion>
bool takeGroup(BatchOptions& options, Value value) {
    FilterGroup group(criterion);
    const CriterionNames& names = namesOf(criterion);
    const std::vector<std::string_view> wanted = commaList(value);
    for (const std::string_view name : wanted) {
        int member = 0;
        while (member <= names.lastMember &&
               !equalIgnoringCase(names.captions[static_cast<std::size_t>(member)], name)) {
            ++member;
        }
        if (member > names.lastMember || (member == 0 && wanted.size() > 1)) {
            return false;
        }
        group.set(member, true);
    }
    options.filter.push_back(group);
    return true;
}

bool takeMarker(BatchOptions& options, Value value) {
    for (const MarkerSize size : {MarkerSize::Small, MarkerSize::Medium, MarkerSize::Large}) {
        if (equalIgnoringCase(value, wordOf(size))) {
            options.marker = size;
            return true;
        }
    }
    return false;
}

bool takeProjection(BatchOptions& options, Value value) {
    for (const Projection projection : allProjections) {
        if (value == namesOf(projection).word) {
            options.projection = projection;
            return true;
        }
    }
    return false;
}

bool takeHome(BatchOptions& options, Value value) {
    const auto position = numberPair(value);
    if (!position) {
        return false;
    }
    const auto [latitude, longitude] = *position;
    options.home = {latitude, longitude};
    return latitude >= -90.0 && latitude <= 90.0 && longitude >= -180.0 && longitude <= 360.0;
}

bool takeCompass(BatchOptions& options, Value value) {
    options.compass = value == "15"   ? Compass::Every15
                      : value == "45" ? Compass::Every45
                                      : Compass::Off;
    return value == "15" || value == "45" || value == "off";
}

bool takeSize(BatchOptions& options, Value value) {
    constexpr double least = 200.0;
    constexpr double most = 8000.0;
    const std::optional<double> width = plainDecimal(value);
    if (!width || *width < least || *width > most || *width != roundHalfEven(*width)) {
        return false;
    }
    options.size = roundToInt(*width);
    return true;
}

bool takeTip(BatchOptions& options, Value value) {
    const auto position = numberPair(value);
    if (position) {
        options.tips.push_back({position->first, position->second});
    }
    return position.has_value();
}

bool takeTipParts(BatchOptions& options, Value value) {
    TipParts parts;
    const std::vector<std::string_view> wanted =
        value.empty() ? std::vector<std::string_view>() : commaList(value);
    for (const std::string_view part : wanted) {
        if (part == "call") {
            parts.call = true;
        } else if (part == "latlong") {
            parts.latLong = true;
        } else if (part == "country") {
            parts.country = true;
        } else {
            return false;
        }
    }
    options.tipParts = parts;
    return true;
}

bool takeMyCall(BatchOptions& options, Value value) {
    options.myCall = value;
    return std::none_of(value.begin(), value.end(),
                        [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

struct Rule {
    std::string_view name;
    bool plot; ///< whether the command has it
    bool kmz;
    const char* wanted; ///< what a good value is; null for an option without a value
    bool (*take)(BatchOptions& options, Value value);
};

constexpr Rule rules[] = {
    {"--folder", true, true, "the name of a folder", takeText<&BatchOptions::folder>},
    {"--report", true, true, "the name of a file, or -", takeText<&BatchOptions::report>},
    {"--quiet", true, true, nullptr,
     [](BatchOptions& options, Value /*value*/) { return options.quiet = true; }},
    {"--allow-incomplete", true, true, nullptr,
     [](BatchOptions& options, Value /*value*/) { return options.allowIncomplete = true; }},
    {"--bands", true, true, "off, or some of 2M,6M,10M,12M,15M,17M,20M,30M,40M,60M,80M,160M",
     takeGroup<Criterion::Band>},
    {"--modes", true, true, "off, or some of Phone,CW,Digital", takeGroup<Criterion::Mode>},
    {"--iota", true, true, "off, or some of AF,AN,AS,EU,NA,OC,SA", takeGroup<Criterion::Iota>},
    {"--marker", true, true, "small, medium or large", takeMarker},
    {"--projection", true, false, "azimuthal or miller", takeProjection},
    {"--home", true, false, "LAT,LON in degrees, for example 41.7,-72.7", takeHome},
    {"--compass", true, false, "off, 15 or 45", takeCompass},
    {"--graticule", true, false, "on or off", takeOnOff<&BatchOptions::graticule>},
    {"--home-mark", true, false, "on or off", takeOnOff<&BatchOptions::homeMark>},
    {"--topo", true, false, "on or off", takeOnOff<&BatchOptions::topo>},
    {"--size", true, false, "a width of 200 to 8000 pixels", takeSize},
    {"--image", true, false, "- or a name that ends in .png, .bmp or .jpg",
     takePicture<&BatchOptions::image>},
    {"--base-map", true, false, "- or a name that ends in .png, .bmp or .jpg",
     takePicture<&BatchOptions::baseMap>},
    {"--tip", true, false, "Y,X in map units, for example -1200,3500.5", takeTip},
    {"--tip-parts", true, false, "some of call,latlong,country, or nothing", takeTipParts},
    {"--output", false, true, "the name of a file, or -", takeText<&BatchOptions::output>},
    {"--my-call", false, true, "a call", takeMyCall},
    {"--call-names", false, true, "on or off", takeOnOff<&BatchOptions::callNames>},
    {"--keep-kml", false, true, nullptr,
     [](BatchOptions& options, Value /*value*/) { return options.keepKml = true; }},
};

/// The arguments behind the command.
class CommandLine {
public:
    explicit CommandLine(const std::vector<std::string>& arguments) : arguments_(arguments) {
        parsed_.options.command =
            arguments[0] == "plot" ? BatchOptions::Command::Plot : BatchOptions::Command::Kmz;
    }

    ParsedOptions read() {
        bool optionsEnded = false;
        while (next_ < arguments_.size() && parsed_.error.empty()) {
            const std::string& argument = arguments_[next_++];
            if (argument == "--" && !optionsEnded) {
                optionsEnded = true;
            } else if (!optionsEnded && argument.starts_with('-') && argument != "-") {
                takeOption(argument);
            } else if (parsed_.options.log.empty()) {
                parsed_.options.log = argument;
            } else {
                parsed_.error = "more than one log: " + argument;
            }
        }
        if (parsed_.error.empty()) {
            parsed_.error = whatIsMissing();
        }
        return parsed_;
    }

private:
    std::string whatIsMissing() const {
        const BatchOptions& options = parsed_.options;
        if (options.log.empty()) {
            return arguments_[0] + " needs the name of a log, or - for standard input";
        }
        if (options.command == BatchOptions::Command::Plot && options.image.empty() &&
            options.baseMap.empty() && options.report.empty() && options.tips.empty()) {
            return "plot makes nothing without --image, --base-map, --report or --tip";
        }
        return options.output == "-" && options.keepKml
                   ? "--keep-kml needs a file as --output, to lie beside it"
                   : std::string();
    }

    void takeOption(const std::string& argument) {
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const Rule* const rule = std::find_if(std::begin(rules), std::end(rules),
                                              [&name](const Rule& r) { return r.name == name; });
        if (rule == std::end(rules)) {
            parsed_.error = "unknown option " + name;
            return;
        }
        const bool plot = parsed_.options.command == BatchOptions::Command::Plot;
        if (!(plot ? rule->plot : rule->kmz)) {
            parsed_.error = name + " is no option of " + arguments_[0];
            return;
        }
        const bool attached = equals != std::string::npos;
        if (rule->wanted == nullptr) {
            if (attached) {
                parsed_.error = name + " takes no value";
            }
            rule->take(parsed_.options, {});
            return;
        }
        if (!attached && next_ == arguments_.size()) {
            parsed_.error = name + " needs a value: " + rule->wanted;
            return;
        }
        const std::string value = attached ? argument.substr(equals + 1) : arguments_[next_++];
        if (!rule->take(parsed_.options, value)) {
            parsed_.error = name + ": " + rule->wanted + ", not \"" + value + "\"";
        }
    }

    const std::vector<std::string>& arguments_;
    std::size_t next_ = 1;
    ParsedOptions parsed_;
};

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
    if (path == "-") {
        return "PNG";
    }
    const bool jpeg = equalIgnoringCase(extension, ".jpg") || equalIgnoringCase(extension, ".jpeg");
    return jpeg ? "JPG" : nullptr;
}

ParsedOptions parseOptions(const std::vector<std::string>& arguments) {
    ParsedOptions parsed;
    for (const std::string& argument : arguments) {
        // Names of files are handled as Unicode; another file's name would come of these bytes.
        if (!isUtf8(argument)) {
            parsed.error = "not UTF-8, and so not usable: " + byteText(displayText(argument));
            return parsed;
        }
    }
    for (const std::string& argument : arguments) {
        if (argument == "--help" || argument == "--version") {
            parsed.options.command =
                argument == "--help" ? BatchOptions::Command::Help : BatchOptions::Command::Version;
            return parsed;
        }
    }
    if (arguments.empty() || (arguments[0] != "plot" && arguments[0] != "kmz")) {
        parsed.error = arguments.empty() ? "no command; try --help"
                                         : "unknown command " + arguments[0] + "; try --help";
        return parsed;
    }
    return CommandLine(arguments).read();
}

} // namespace tovrel
