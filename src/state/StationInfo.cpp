#include "state/StationInfo.h"

#include "platform/Numbers.h"

namespace tovrel {

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
