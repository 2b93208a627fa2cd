#include "batch/BatchSettings.h"

#include "platform/Numbers.h"
#include "run/OtherPlaces.h"
#include "state/InitSettings.h"
#include "state/StationInfo.h"

namespace tovrel {

namespace {

void writeFilter(iniFiles& ini, std::string_view section, const BatchOptions& options) {
    for (const FilterGroup& group : options.filter) {
        for (int member = 0; member <= group.lastMember(); ++member) {
            ini.writeCheck(section, memberKey(namesOf(group.criterion()).key, member),
                           group.selected(member));
        }
    }
}

void writeBoolean(iniFiles& ini, std::string_view section, std::string_view key,
                  std::optional<bool> value) {
    if (value) {
        ini.writeBoolean(section, key, *value);
    }
}

void writeMapOptions(iniFiles& ini, std::string_view section, const BatchOptions& options) {
    writeFilter(ini, section, options);
    if (options.marker) {
        ini.WriteIniValue(section, "Marker", wordOf(*options.marker));
    }
    writeBoolean(ini, section, "Meridian", options.graticule);
    writeBoolean(ini, section, "ShowMe", options.homeMark);
    writeBoolean(ini, section, "Topo", options.topo);
    if (options.compass) {
        ini.writeBoolean(section, "ShowComp", *options.compass != Compass::Off);
        ini.writeBoolean(section, "15Deg", *options.compass == Compass::Every15);
        ini.writeBoolean(section, "45Deg", *options.compass == Compass::Every45);
    }
    if (options.tipParts) {
        ini.writeCheck(section, "Call", options.tipParts->call);
        ini.writeCheck(section, "LatLong", options.tipParts->latLong);
        ini.writeCheck(section, "Country", options.tipParts->country);
    }
}

/// Without settings a map has its middle where hardly anybody lives, and a document no owner.
void hintAtDefaults(const BatchOptions& options, BatchConsole& console) {
    const bool plot = options.command == BatchOptions::Command::Plot;
    if (plot && !options.home) {
        console.hint("no settings tell the home position, 0,0 is taken; --home LAT,LON sets it");
    } else if (!plot && !options.myCall) {
        console.hint("no settings tell the call of the station; --my-call CALL sets it");
    }
}

void applyCall(RunData& data, const BatchOptions& options) {
    if (options.myCall) {
        StationInfo station = readStationInfo(data.ini);
        station.MyCall = *options.myCall;
        writeStationInfo(data.ini, station);
    }
}

void applyPlotOptions(RunData& data, const BatchOptions& options) {
    if (options.home) {
        StationInfo station = readStationInfo(data.ini);
        station.Latitude = decimalText(options.home->latitude);
        station.Longitude = decimalText(options.home->longitude);
        writeStationInfo(data.ini, station);
    }
    const Projection projection = options.projection.value_or(
        projectionShown(data.ini.ReadIniValue(section::globals, "Display")));
    data.run.marks.projection = projection;
    writeMapOptions(data.ini, namesOf(projection).section, options);
    data.maps.load(projection);
    MapOptions& map = data.maps.inForce();
    if (!options.tipParts && !map.chkCall && !map.chkLatLong && !map.chkCountry) {
        // Whoever asks for tips wants to read something in them.
        map.chkCall = map.chkLatLong = map.chkCountry = true;
    }
    data.stats.load();
    data.run.FormReady = true;
}

void applyKmzOptions(RunData& data, const BatchOptions& options) {
    writeFilter(data.ini, section::google, options);
    for (const FilterGroup& group : options.filter) {
        MapOptionForms::loadGroup(data.ini, section::google,
                                  data.google.filter.group(group.criterion()));
    }
    if (options.marker) {
        data.google.pickMarker(data.ini, *options.marker);
    }
    data.google.chkCall = options.callNames.value_or(data.google.chkCall);
}

} // namespace

bool applyOptions(RunData& data, const BatchOptions& options, BatchConsole& console) {
    if (data.ini.isOutOfReach()) {
        console.tellFailure(data.ini.unreadable());
        console.showFailure();
        return false;
    }
    if (data.ini.state() == PrivateProfile::State::Missing) {
        hintAtDefaults(options, console);
    }
    InitSettings(data.ini, data.maps, data.google, data.run);
    data.run.reading = readLogReading(data.ini);
    data.run.reading.format = options.logFormat.value_or(data.run.reading.format);
    data.run.reading.placeByCountry =
        options.placeByCountry.value_or(data.run.reading.placeByCountry);
    applyCall(data, options);
    if (options.command == BatchOptions::Command::Plot) {
        applyPlotOptions(data, options);
    } else {
        applyKmzOptions(data, options);
    }
    data.run.LogFileName = options.log;
    data.run.LogTitle = options.logTitle;
    return true;
}

void hintAtOtherPlaces(RunData& data, BatchConsole& console) {
    if (const std::int64_t places = countOtherPlaces(data, console); places > 0) {
        console.print("contacts with a place by other fields or by the country of the call: " +
                      std::to_string(places) + "; --log-format adif finds them");
    }
}

} // namespace tovrel
