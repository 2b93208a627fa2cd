#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace tovrel {

/// The two maps of the program; exactly one is in force.
enum class Projection { Azimuthal, Miller };

/// Each map once, in the order of the enumeration.
inline constexpr std::array<Projection, 2> allProjections = {Projection::Azimuthal,
                                                             Projection::Miller};

/// What a map is called, and what is its own, wherever maps are told apart by their names.
struct MapNames {
    std::string_view word;         ///< of the command line
    std::string_view display;      ///< value of `Display` in the settings
    std::string_view section;      ///< of the settings, with the options of the map
    std::string_view sizeKey;      ///< of the settings: the side of the window that gives its size
    float defaultSize;             ///< of that side, twips
    std::string_view cacheFile;    ///< file of its base map
    std::string_view savedPrefix;  ///< what names of saved maps begin with
    std::string_view caption;      ///< its full name, in captions
    std::string_view shortCaption; ///< in the title of the dialog for its custom picture
    std::string_view dialog;       ///< object name of its option window
    bool compass;                  ///< whether it has a compass, with options of its own
};

/// One for each map, in the order of the enumeration.
inline constexpr std::array<MapNames, allProjections.size()> mapNames = {
    {{.word = "azimuthal",
      .display = "Azimuthal",
      .section = "GCMapOptions",
      .sizeKey = "GCHeight",
      .defaultSize = 8000.0F,
      .cacheFile = "GCBaseMap.map",
      .savedPrefix = "TovrelAP_",
      .caption = "Azimuthal Equidistant Projection",
      .shortCaption = "Azimuthal Equidistant Projection",
      .dialog = "frmGCMapOptions",
      .compass = true},
     {.word = "miller",
      .display = "Miller",
      .section = "MCMapOptions",
      .sizeKey = "MlWidth",
      .defaultSize = 7000.0F,
      .cacheFile = "MillerBaseMap.map",
      .savedPrefix = "TovrelMP_",
      .caption = "Miller Cylindrical Projection",
      .shortCaption = "Miller Projection",
      .dialog = "frmMCMapOptions",
      .compass = false}}};

/// @return names that live as long as the program
constexpr const MapNames& namesOf(Projection projection) {
    return mapNames[static_cast<std::size_t>(projection)];
}

/// The map that a value of `Display` names: the azimuthal one when it is empty, the Miller map when
/// no map has that name.
constexpr Projection projectionShown(std::string_view display) {
    if (display.empty())
        return Projection::Azimuthal;
    for (const Projection projection : allProjections) {
        if (namesOf(projection).display == display)
            return projection;
    }
    return Projection::Miller;
}

} // namespace tovrel
