#include "state/StationInfo.h"

#include "platform/Numbers.h"

#include <algorithm>

namespace tovrel {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isPlainDecimal(std::string_view text) {
    if (text.front() == '-' || text.front() == '+')
        text.remove_prefix(1);
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::string_view whole = text.substr(0, point);
    const std::string_view fraction = text.substr(std::min(point + 1, text.size()));
    return !(whole.empty() && fraction.empty()) &&
           std::all_of(whole.begin(), whole.end(), isDigit) &&
           std::all_of(fraction.begin(), fraction.end(), isDigit);
}

} // namespace

StationInfo readStationInfo(const iniFiles& ini) {
    return {ini.ReadIniValue(section::globals, "MyCall"),
            ini.ReadIniValue(section::globals, "Latitude"),
            ini.ReadIniValue(section::globals, "Longitude")};
}

void readHome(const iniFiles& ini, RunState& run) {
    run.HomeLatitude = toSingle(ini.readNumber(section::globals, "Latitude"));
    run.HomeLongitude = toSingle(ini.readNumber(section::globals, "Longitude"));
}

void writeStationInfo(iniFiles& ini, const StationInfo& info) {
    const iniFiles::Batch together(ini);
    ini.WriteIniValue(section::globals, "MyCall", info.MyCall);
    ini.WriteIniValue(section::globals, "Latitude", info.Latitude);
    ini.WriteIniValue(section::globals, "Longitude", info.Longitude);
}

CoordinateFault coordinateFault(std::string_view text) {
    if (text.find(' ') != std::string_view::npos)
        return CoordinateFault::Blank;
    if (!text.empty() && !isPlainDecimal(text))
        return CoordinateFault::NoNumber;
    return CoordinateFault::None;
}

std::string coordinateMessage(std::string_view coordinate, CoordinateFault fault) {
    const std::string_view reason =
        fault == CoordinateFault::Blank
            ? "Please do not use a space as a delimiter."
            : "Please enter a decimal number such as 41.5, with a point as decimal mark.";
    return std::string(coordinate).append(" Data Error\r\n").append(reason);
}

} // namespace tovrel
