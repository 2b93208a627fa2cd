#include "state/InitSettings.h"

#include "platform/Numbers.h"
#include "state/MapColours.h"

#include <array>

namespace tovrel {

namespace {

/// A key with the value that a new file gets and the one that a file without it gets.
struct Default {
    std::string_view key;
    std::string_view firstRun;
    std::string_view repair; ///< empty: the key may be missing
};

constexpr std::array<Default, 3> globalDefaults = {
    {{"MyCall", "", ""}, {"Latitude", "0", "0"}, {"Longitude", "0", "0"}}};

constexpr std::array<Default, 4> compassDefaults = {{{"ShowComp", "True", "True"},
                                                     {"15Deg", "True", "True"},
                                                     {"45Deg", "False", "False"},
                                                     {"CompassBold", "False", "False"}}};

// In the order in which they stand in a new file. Land and water are written when they are chosen.
constexpr std::array<MapColour, 7> writtenColours = {
    MapColour::Worked,      MapColour::Confirmed, MapColour::Heard, MapColour::Home,
    MapColour::PlotOutline, MapColour::Meridian,  MapColour::Line};

class Initializer {
public:
    Initializer(iniFiles& ini, MapOptionForms& maps, GoogleMapOptions& google, RunState& run)
        : ini_(ini), maps_(maps), google_(google), run_(run) {}

    void writeFirstRun() {
        writeAll(section::globals, globalDefaults);
        for (const Projection map : allProjections)
            ini_.WriteIniValue(section::globals, namesOf(map).sizeKey, sizeText(map));
        ini_.WriteIniValue(section::log, "ADIFile", "");
        ini_.WriteIniValue(section::google, "Map", "1");
        writeGroups(section::google);
        ini_.WriteIniValue(section::google, "Marker", "Large");
        ini_.WriteIniValue(section::google, "Call", "1");
        for (const Projection map : allProjections) {
            const MapNames& names = namesOf(map);
            writeGroups(names.section);
            if (names.compass) {
                writeAll(names.section, compassDefaults);
                // A map without a compass gets its ShowMe at the next start: a file older than the
                // key and a new one then take the same road.
                ini_.WriteIniValue(names.section, "ShowMe", "True");
            }
            ini_.WriteIniValue(names.section, "Marker", "Large");
            for (const MapColour colour : writtenColours)
                writeColour(ini_, map, colour, keyOf(colour).byDefault);
            ini_.WriteIniValue(names.section, "Line", "1");
        }
    }

    void repair() {
        repairAll(section::globals, globalDefaults);
        for (const Projection map : allProjections)
            repairKey(section::globals, namesOf(map).sizeKey, sizeText(map));
        repairGroups(section::google, google_.filter);
        for (const Projection map : allProjections)
            repairGroups(namesOf(map).section, maps_.of(map).filter);
        repairGoogle();

        for (const Projection map : allProjections) {
            if (namesOf(map).compass)
                repairCompass(namesOf(map).section);
        }
        for (const Projection map : allProjections)
            repairMap(map);
    }

private:
    static std::string sizeText(Projection map) { return decimalText(namesOf(map).defaultSize); }

    bool isEmpty(std::string_view section, std::string_view key) const {
        return ini_.ReadIniValue(section, key).empty();
    }

    void repairKey(std::string_view section, std::string_view key, std::string_view value) {
        if (isEmpty(section, key))
            ini_.WriteIniValue(section, key, value);
    }

    void repairCompass(std::string_view section) {
        const bool boldUnknown = isEmpty(section, "CompassBold");
        repairAll(section, compassDefaults);
        if (boldUnknown) {
            run_.marks.mnuLightCompass = true;
            run_.marks.mnuBoldCompass = false;
        }
    }

    void repairMap(Projection map) {
        const std::string_view section = namesOf(map).section;
        repairKey(section, "ShowMe", "True");
        repairKey(section, "Marker", "Large");
        for (const MapColour colour : writtenColours)
            repairKey(section, keyOf(colour).key, std::to_string(keyOf(colour).byDefault));
        repairKey(section, "Line", "1");
    }

    template <std::size_t n>
    void writeAll(std::string_view section, const std::array<Default, n>& defaults) {
        for (const Default& entry : defaults)
            ini_.WriteIniValue(section, entry.key, entry.firstRun);
    }

    template <std::size_t n>
    void repairAll(std::string_view section, const std::array<Default, n>& defaults) {
        for (const Default& entry : defaults) {
            if (!entry.repair.empty())
                repairKey(section, entry.key, entry.repair);
        }
    }

    void writeGroup(std::string_view section, Criterion criterion) {
        const CriterionNames& names = namesOf(criterion);
        for (int member = 0; member <= names.lastMember; ++member) {
            ini_.writeCheck(section, memberKey(names.key, member), member == 0);
        }
    }

    void writeGroups(std::string_view section) {
        for (const Criterion criterion : allCriteria)
            writeGroup(section, criterion);
    }

    void repairGroups(std::string_view section, Filter& filter) {
        for (const Criterion criterion : allCriteria) {
            const CriterionNames& names = namesOf(criterion);
            if (isEmpty(section, memberKey(names.key, 0))) {
                writeGroup(section, criterion);
                continue;
            }
            // OFF follows from the others by the rule of the group.
            for (int member = 1; member <= names.lastMember; ++member) {
                filter.group(criterion).set(member,
                                            ini_.readCheck(section, memberKey(names.key, member)));
            }
        }
    }

    void repairGoogle() {
        repairKey(section::google, "Marker", "Large");
        readMarkerWord(GoogleMapOptions::storedMarker(ini_), google_.marker);
        if (isEmpty(section::google, "Call")) {
            google_.chkCall = true;
            ini_.WriteIniValue(section::google, "Call", "1");
        } else {
            google_.chkCall = ini_.readCheck(section::google, "Call");
        }
        google_.changed();
    }

    iniFiles& ini_;
    MapOptionForms& maps_;
    GoogleMapOptions& google_;
    RunState& run_;
};

} // namespace

bool InitSettings(iniFiles& ini, MapOptionForms& maps, GoogleMapOptions& google, RunState& run) {
    const bool firstRun = ini.state() == PrivateProfile::State::Missing;
    iniFiles::Batch together(ini);
    Initializer initializer(ini, maps, google, run);
    if (firstRun) {
        initializer.writeFirstRun();
    } else {
        initializer.repair();
    }
    return together.finish();
}

} // namespace tovrel
