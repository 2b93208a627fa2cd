#include "stats/Legend.h"

namespace tovrel {

const LegendNames& namesOf(MapColour entry) {
    static constexpr std::array<LegendNames, 7> names = {{
        {"cmdConfirmed", "lblConfirmed", "Confirmed"},
        {"cmdWorked", "lblWorked", "Worked"},
        {"cmdHeard", "lblHeard", "Heard"},
        {"cmdHome", "lblHome", "Home QTH"},
        {"cmdPlotOutline", "lblPlotOutline", "Plot Outline"},
        {"cmdLine", "lblPlotLine", "Plot Line"},
        {"cmdMeridian", "lblMeridian", "Meridian Line"},
    }};
    return names[static_cast<std::size_t>(entry)];
}

void Legend::set(MapColour entry, Colour colour) {
    colours_[index(entry)] = colour;
    changed();
}

void Legend::load(const iniFiles& ini, Projection projection) {
    for (const MapColour entry : legendColours)
        load(ini, projection, entry);
}

void Legend::load(const iniFiles& ini, Projection projection, MapColour entry) {
    set(entry, readColour(ini, projection, entry, colour(entry)));
}

void Legend::save(iniFiles& ini, Projection projection, MapColour entry) const {
    writeColour(ini, projection, entry, colour(entry));
}

void Legend::resetToDesign() {
    colours_ = design();
    changed();
}

} // namespace tovrel
