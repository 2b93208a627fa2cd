#include "batch/OptionTable.h"

#include "platform/ByteText.h"
#include "platform/Numbers.h"
#include "state/StationInfo.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace tovrel {

namespace {

using Value = const std::string&;

/// A plain decimal number that takes up the whole of a text.
std::optional<double> plainDecimal(std::string_view text) {
    return isPlainDecimal(text) ? leadingNumber(text) : std::nullopt;
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
    return pictureFormat(value).value_or(PictureFormat::Pdf) != PictureFormat::Pdf;
}

bool takeImage(BatchOptions& options, Value value) {
    options.image = value;
    return pictureFormat(value).has_value();
}

bool takePaper(BatchOptions& options, Value value) {
    for (const Paper paper : allPapers) {
        if (equalIgnoringCase(value, nameOf(paper))) {
            options.paper = paper;
            return true;
        }
    }
    return false;
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

bool takeLogFormat(BatchOptions& options, Value value) {
    options.logFormat = value == "adif" ? LogFormat::Adif : LogFormat::Logger32;
    return value == "adif" || value == "logger32";
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

constexpr const char* pictureName = "- or a name that ends in .png, .bmp or .jpg";
constexpr const char* imageName = "- or a name that ends in .png, .bmp, .jpg or .pdf";

constexpr OptionRule rules[] = {
    {OptionRule::Of::Both, "--folder", "DIR", "the name of a folder",
     takeText<&BatchOptions::folder>,
     "folder of settings, tag list and data files, none of which\n"
     "is written (default: the program's own)"},
    {OptionRule::Of::Both, "--log-format", "NAME", "logger32 or adif", takeLogFormat,
     "logger32, or adif for a log of any logger"},
    {OptionRule::Of::Both, "--place-by-country", "on|off", "on or off",
     takeOnOff<&BatchOptions::placeByCountry>,
     "with adif: place by country where nothing else\ntells one"},
    {OptionRule::Of::Both, "--bands", "20M,40M",
     "off, or some of 2M,6M,10M,12M,15M,17M,20M,30M,40M,60M,80M,160M", takeGroup<Criterion::Band>,
     "filter: contacts on these bands; off lets all through"},
    {OptionRule::Of::Both, "--modes", "CW,Digital", "off, or some of Phone,CW,Digital",
     takeGroup<Criterion::Mode>, "filter: contacts in these modes, Phone among them"},
    {OptionRule::Of::Both, "--iota", "EU,NA", "off, or some of AF,AN,AS,EU,NA,OC,SA",
     takeGroup<Criterion::Iota>, "filter: contacts with islands of these continents"},
    {OptionRule::Of::Both, "--marker", "SIZE", "small, medium or large", takeMarker,
     "small, medium or large"},
    {OptionRule::Of::Both, "--my-call", "CALL", "a call", takeMyCall, "call of the station"},
    {OptionRule::Of::Both, "--report", "FILE", "the name of a file, or -",
     takeText<&BatchOptions::report>, "write a JSON report, - for standard output"},
    {OptionRule::Of::Both, "--allow-incomplete", "", nullptr,
     [](BatchOptions& options, Value /*value*/) { return options.allowIncomplete = true; },
     "go on where coastline, seeds, fonts or icons are missing"},
    {OptionRule::Of::Both, "--quiet", "", nullptr,
     [](BatchOptions& options, Value /*value*/) { return options.quiet = true; },
     "say nothing but why it failed"},
    {OptionRule::Of::Plot, "--projection", "NAME", "azimuthal or miller", takeProjection,
     "azimuthal or miller"},
    {OptionRule::Of::Plot, "--home", "LAT,LON", "LAT,LON in degrees, for example 41.7,-72.7",
     takeHome, "home position in degrees, north and east positive"},
    {OptionRule::Of::Plot, "--compass", "STEP", "off, 15 or 45", takeCompass, "off, 15 or 45"},
    {OptionRule::Of::Plot, "--graticule", "on|off", "on or off",
     takeOnOff<&BatchOptions::graticule>, "meridians and parallels"},
    {OptionRule::Of::Plot, "--home-mark", "on|off", "on or off", takeOnOff<&BatchOptions::homeMark>,
     "mark of the home position"},
    {OptionRule::Of::Plot, "--topo", "on|off", "on or off", takeOnOff<&BatchOptions::topo>,
     "relief of the land"},
    {OptionRule::Of::Plot, "--size", "WIDTH", "a width of 200 to 8000 pixels", takeSize,
     "of the picture in pixels, 200 to 8000 (default 800)"},
    {OptionRule::Of::Plot, "--image", "FILE", imageName, takeImage,
     "write the map as .png, .bmp, .jpg or, for a page, .pdf;\n- for standard output"},
    {OptionRule::Of::Plot, "--paper", "NAME", "a4, a3 or letter", takePaper,
     "of a page: a4 (default), a3 or letter"},
    {OptionRule::Of::Plot, "--caption", "on|off", "on or off", takeOnOff<&BatchOptions::caption>,
     "station, log, counts, filter and date below the map\n(default: on for a page)"},
    {OptionRule::Of::Plot, "--base-map", "FILE", pictureName, takePicture<&BatchOptions::baseMap>,
     "write the map without compass and contacts (as drawn)"},
    {OptionRule::Of::Plot, "--tip", "Y,X", "Y,X in map units, for example -1200,3500.5", takeTip,
     "print the tool tip at a position in map units (repeatable)"},
    {OptionRule::Of::Plot, "--tip-parts", "LIST", "some of call,latlong,country, or nothing",
     takeTipParts, "of the tool tip: any of call, latlong and country"},
    {OptionRule::Of::Kmz, "--output", "FILE", "the name of a file, or -",
     takeText<&BatchOptions::output>, "the KMZ file, - for standard output (default: beside LOG)"},
    {OptionRule::Of::Kmz, "--call-names", "on|off", "on or off",
     takeOnOff<&BatchOptions::callNames>, "calls as names of the placemarks"},
    {OptionRule::Of::Kmz, "--keep-kml", "", nullptr,
     [](BatchOptions& options, Value /*value*/) { return options.keepKml = true; },
     "keep the KML document beside the KMZ file"},
};

} // namespace

std::span<const OptionRule> optionRules() { return rules; }

} // namespace tovrel
