#include "state/MapOptions.h"

#include <array>

namespace tovrel {

namespace {

constexpr std::array<std::string_view, 3> markerWords = {"Small", "Medium", "Large"};

} // namespace

std::string_view wordOf(MarkerSize size) { return markerWords[static_cast<std::size_t>(size)]; }

void readMarkerWord(std::string_view word, MarkerSize& size) {
    for (const MarkerSize candidate : {MarkerSize::Small, MarkerSize::Medium, MarkerSize::Large}) {
        if (word == wordOf(candidate))
            size = candidate;
    }
}

std::string filterText(const iniFiles& ini, std::string_view section, Criterion criterion) {
    const CriterionNames& names = namesOf(criterion);
    std::string text = std::string(names.heading).append("\r\n--------\r\n");
    for (int member = 0; member <= names.lastMember; ++member) {
        if (!ini.readCheck(section, memberKey(names.key, member)))
            continue;
        text.append(names.captions[static_cast<std::size_t>(member)]).append("\r\n");
    }
    return text;
}

void MapOptions::resetToDesign() {
    filter.reset();
    marker = MarkerSize::Small;
    line = 1;
    chkCall = chkLatLong = chkCountry = false;
}

MapOptionForms::MapOptionForms(iniFiles& ini, RunState& run) : ini_(ini), run_(run) {}

void MapOptionForms::load(Projection projection) {
    const iniFiles::Batch together(ini_);
    loadMarks(projection);
    readBoxes(projection);
    run_.marksChanged();
}

void MapOptionForms::loadBoxes(Projection projection) {
    const iniFiles::Batch together(ini_);
    of(projection).resetToDesign();
    readBoxes(projection);
}

void MapOptionForms::loadMarks(Projection projection) {
    const std::string_view section = namesOf(projection).section;
    MenuMarks& marks = run_.marks;
    marks.mnuTopo = ini_.readBoolean(section, "Topo");
    marks.mnuShowMe = ini_.readBoolean(section, "ShowMe", true);
    marks.mnuMeridian = ini_.readBoolean(section, "Meridian");
    if (namesOf(projection).compass) {
        marks.mnuShowCompass = ini_.readBoolean(section, "ShowComp");
        marks.mnuBoldCompass = ini_.readBoolean(section, "CompBold");
        marks.mnuLightCompass = !marks.mnuBoldCompass;
        marks.mnu15Degrees = ini_.readBoolean(section, "15Deg");
        marks.mnu45Degrees = !marks.mnu15Degrees;
    }
}

void MapOptionForms::readBoxes(Projection projection) {
    const std::string_view section = namesOf(projection).section;
    MapOptions& options = of(projection);
    for (const Criterion criterion : allCriteria) {
        loadGroup(ini_, section, options.filter.group(criterion));
    }
    readMarkerWord(ini_.ReadIniValue(section, "Marker"), options.marker);
    const std::string line = ini_.ReadIniValue(section, "Line");
    if (line == "1" || line == "2" || line == "3")
        options.line = line[0] - '0';
    options.chkCall = ini_.readCheck(section, "Call");
    options.chkLatLong = ini_.readCheck(section, "LatLong");
    options.chkCountry = ini_.readCheck(section, "Country");
    options.changed();
}

void MapOptionForms::loadGroup(const iniFiles& ini, std::string_view section, FilterGroup& group) {
    const std::string_view key = namesOf(group.criterion()).key;
    if (ini.ReadIniValue(section, memberKey(key, 0)).empty()) {
        group.set(0, true);
        return;
    }
    for (int member = 0; member <= group.lastMember(); ++member) {
        group.set(member, ini.readCheck(section, memberKey(key, member)));
    }
}

void MapOptionForms::saveFilter(iniFiles& ini, std::string_view section, const Filter& filter) {
    for (const Criterion criterion : allCriteria) {
        const FilterGroup& group = filter.group(criterion);
        for (int member = 0; member <= group.lastMember(); ++member) {
            ini.writeCheck(section, memberKey(namesOf(criterion).key, member),
                           group.selected(member));
        }
    }
}

void MapOptionForms::save(Projection projection) {
    const iniFiles::Batch together(ini_);
    const std::string_view section = namesOf(projection).section;
    const MenuMarks& marks = run_.marks;
    ini_.writeBoolean(section, "Topo", marks.mnuTopo);
    ini_.writeBoolean(section, "ShowMe", marks.mnuShowMe);
    ini_.writeBoolean(section, "Meridian", marks.mnuMeridian);
    if (namesOf(projection).compass) {
        ini_.writeBoolean(section, "ShowComp", marks.mnuShowCompass);
        ini_.writeBoolean(section, "CompBold", marks.mnuBoldCompass);
        ini_.writeBoolean(section, "CompNorm", marks.mnuLightCompass);
        ini_.writeBoolean(section, "15Deg", marks.mnu15Degrees);
        ini_.writeBoolean(section, "45Deg", marks.mnu45Degrees);
    }
    const MapOptions& options = of(projection);
    saveFilter(ini_, section, options.filter);
    ini_.writeCheck(section, "Call", options.chkCall);
    ini_.writeCheck(section, "LatLong", options.chkLatLong);
    ini_.writeCheck(section, "Country", options.chkCountry);
    ini_.WriteIniValue(section, "Marker", wordOf(options.marker));
    ini_.WriteIniValue(section, "Line", std::to_string(options.line));
    PlotLineWidth_ = options.line;
}

} // namespace tovrel
