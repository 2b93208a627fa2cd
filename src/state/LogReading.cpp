#include "state/LogReading.h"

#include "platform/ByteText.h"

namespace tovrel {

namespace {

constexpr std::string_view formatKey = "LogFormat";
constexpr std::string_view countryKey = "PlaceByCountry";

constexpr std::string_view adifWord = "ADIF";

} // namespace

LogReading readLogReading(const iniFiles& ini) {
    const bool adif = equalIgnoringCase(ini.ReadIniValue(section::log, formatKey), adifWord);
    // Any text but "False" is the default.
    const bool notWanted = equalIgnoringCase(ini.ReadIniValue(section::log, countryKey), "False");
    return {.format = adif ? LogFormat::Adif : LogFormat::Logger32, .placeByCountry = !notWanted};
}

void writeLogFormat(iniFiles& ini, LogFormat format) {
    ini.WriteIniValue(section::log, formatKey,
                      format == LogFormat::Adif ? adifWord : std::string_view("Logger32"));
}

void writePlaceByCountry(iniFiles& ini, bool wanted) {
    ini.writeBoolean(section::log, countryKey, wanted);
}

} // namespace tovrel
