#pragma once

#include "platform/Colour.h"
#include "platform/Projection.h"
#include "state/iniFiles.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace tovrel {

/// The colours of a map. Each map has its own, in its section of the settings.
enum class MapColour { Confirmed, Worked, Heard, Home, PlotOutline, Line, Meridian, Land, Water };

/// Key of a colour in the settings, and the colour that it is when nobody has chosen another.
struct MapColourKey {
    std::string_view key; ///< the same in the section of each map
    Colour byDefault;     ///< the same for both maps
};

/// One for each colour, in the order of MapColour.
inline constexpr std::array<MapColourKey, 9> mapColourKeys = {{{"ConfirmedColor", 0x40FF00},
                                                               {"WorkedColor", 0x0000FF},
                                                               {"HeardColor", 0xFF0000},
                                                               {"QTHColor", 0x00FFFF},
                                                               {"OutlineColor", 0x000000},
                                                               {"LineColor", 0x0000FF},
                                                               {"MeridianColor", 0x808080},
                                                               {"LandColor", 0xC0FFC0},
                                                               {"WaterColor", 0xFECDA5}}};

/// @return a key that lives as long as the program
constexpr const MapColourKey& keyOf(MapColour colour) {
    return mapColourKeys[static_cast<std::size_t>(colour)];
}

/// A map's colour as the settings hold it; `otherwise` when they hold none.
inline Colour readColour(const iniFiles& ini, Projection map, MapColour colour, Colour otherwise) {
    constexpr double noColour = -1.0;
    const double number = ini.readNumber(namesOf(map).section, keyOf(colour).key, noColour);
    return number >= 0.0 && number <= 0xFFFFFF ? static_cast<Colour>(number) : otherwise;
}

/// Stores a map's colour, as decimal text.
/// @return false when it could not be stored
inline bool writeColour(iniFiles& ini, Projection map, MapColour colour, Colour value) {
    return ini.WriteIniValue(namesOf(map).section, keyOf(colour).key, std::to_string(value));
}

} // namespace tovrel
