#include "state/GoogleMapOptions.h"

namespace tovrel {

void GoogleMapOptions::pickMarker(iniFiles& ini, MarkerSize size) {
    marker = size;
    ini.WriteIniValue(section::google, "Marker", wordOf(size));
}

std::string GoogleMapOptions::storedMarker(const iniFiles& ini) {
    return ini.ReadIniValue(section::google, "Marker");
}

void GoogleMapOptions::apply(iniFiles& ini) const {
    const iniFiles::Batch together(ini);
    MapOptionForms::saveFilter(ini, section::google, filter);
    ini.writeCheck(section::google, "Call", chkCall);
}

void GoogleMapOptions::resetToDesign() {
    filter.reset();
    marker = MarkerSize::Large;
    chkCall = true;
    changed();
}

} // namespace tovrel
