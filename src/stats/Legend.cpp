#include "stats/Legend.h"

#include "state/MapOptions.h"

namespace tovrel {

const LegendNames& namesOf(LegendEntry entry) {
    static constexpr std::array<LegendNames, 7> names = {{
        {"cmdConfirmed", "lblConfirmed", "Confirmed", "ConfirmedColor"},
        {"cmdWorked", "lblWorked", "Worked", "WorkedColor"},
        {"cmdHeard", "lblHeard", "Heard", "HeardColor"},
        {"cmdHome", "lblHome", "Home QTH", "QTHColor"},
        {"cmdPlotOutline", "lblPlotOutline", "Plot Outline", "OutlineColor"},
        {"cmdLine", "lblPlotLine", "Plot Line", "LineColor"},
        {"cmdMeridian", "lblMeridian", "Meridian Line", "MeridianColor"},
    }};
    return names[static_cast<std::size_t>(entry)];
}

void Legend::set(LegendEntry entry, Colour colour) {
    colours_[index(entry)] = colour;
    if (changed)
        changed();
}

void Legend::load(const iniFiles& ini, Projection projection) {
    for (const LegendEntry entry : allLegendEntries)
        load(ini, projection, entry);
}

void Legend::load(const iniFiles& ini, Projection projection, LegendEntry entry) {
    set(entry, readColour(ini, sectionOf(projection), namesOf(entry).key, colour(entry)));
}

void Legend::save(iniFiles& ini, Projection projection, LegendEntry entry) const {
    ini.WriteIniValue(sectionOf(projection), namesOf(entry).key, std::to_string(colour(entry)));
}

void Legend::resetToDesign() {
    colours_ = design;
    if (changed)
        changed();
}

} // namespace tovrel
