#include "state/InitSettings.h"

#include <array>

namespace tovrel {

namespace {

/// A key with the value that a new file gets and the one that a file without it gets.
struct Default {
    std::string_view key;
    std::string_view firstRun;
    std::string_view repair; ///< empty: the key may be missing
};

constexpr std::array<Default, 5> globalDefaults = {{{"MyCall", "", ""},
                                                    {"Latitude", "0", "0"},
                                                    {"Longitude", "0", "0"},
                                                    {"GCHeight", "8000", "8000"},
                                                    {"MlWidth", "7000", "7000"}}};

// The compass belongs to the azimuthal map alone.
constexpr std::array<Default, 4> compassDefaults = {{{"ShowComp", "True", "True"},
                                                     {"15Deg", "True", "True"},
                                                     {"45Deg", "False", "False"},
                                                     {"CompassBold", "False", "False"}}};

constexpr std::array<Default, 9> mapDefaults = {{{"Marker", "Large", "Large"},
                                                 {"WorkedColor", "255", "255"},
                                                 {"ConfirmedColor", "4259584", "4259584"},
                                                 {"HeardColor", "16711680", "16711680"},
                                                 {"QTHColor", "65535", "65535"},
                                                 {"OutlineColor", "0", "0"},
                                                 {"MeridianColor", "8421504", "8421504"},
                                                 {"LineColor", "255", "255"},
                                                 {"Line", "1", "1"}}};

class Initializer {
public:
    Initializer(iniFiles& ini, MapOptionForms& maps, GoogleMapOptions& google, RunState& run)
        : ini_(ini), maps_(maps), google_(google), run_(run) {}

    void writeFirstRun() {
        writeAll(section::globals, globalDefaults);
        ini_.WriteIniValue(section::log, "ADIFile", "");
        ini_.WriteIniValue(section::google, "Map", "1");
        writeGroups(section::google);
        ini_.WriteIniValue(section::google, "Marker", "Large");
        ini_.WriteIniValue(section::google, "Call", "1");
        writeGroups(section::azimuthal);
        writeAll(section::azimuthal, compassDefaults);
        // The Miller section gets its ShowMe at the next start: a file older than the key and a new
        // one then take the same road.
        ini_.WriteIniValue(section::azimuthal, "ShowMe", "True");
        writeAll(section::azimuthal, mapDefaults);
        writeGroups(section::miller);
        writeAll(section::miller, mapDefaults);
    }

    void repair() {
        repairAll(section::globals, globalDefaults);
        repairGroups(section::google, google_.filter);
        repairGroups(section::azimuthal, maps_.of(Projection::Azimuthal).filter);
        repairGroups(section::miller, maps_.of(Projection::Miller).filter);
        repairGoogle();

        const bool boldUnknown = isEmpty(section::azimuthal, "CompassBold");
        repairAll(section::azimuthal, compassDefaults);
        if (boldUnknown) {
            run_.marks.mnuLightCompass = true;
            run_.marks.mnuBoldCompass = false;
        }
        for (const std::string_view section : {section::azimuthal, section::miller}) {
            repairKey(section, "ShowMe", "True");
            repairAll(section, mapDefaults);
        }
    }

private:
    bool isEmpty(std::string_view section, std::string_view key) const {
        return ini_.ReadIniValue(section, key).empty();
    }

    void repairKey(std::string_view section, std::string_view key, std::string_view value) {
        if (isEmpty(section, key))
            ini_.WriteIniValue(section, key, value);
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
        const std::string marker = ini_.ReadIniValue(section::google, "Marker");
        if (marker.empty()) {
            ini_.WriteIniValue(section::google, "Marker", "Large");
        } else {
            readMarkerWord(marker, google_.marker);
        }
        if (isEmpty(section::google, "Call")) {
            google_.chkCall = true;
            ini_.WriteIniValue(section::google, "Call", "1");
        } else {
            google_.chkCall = ini_.readCheck(section::google, "Call");
        }
        if (google_.changed)
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
