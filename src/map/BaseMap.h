#pragma once

#include "map/CoastData.h"
#include "map/PictureSurface.h"
#include "map/WorldMap.h"
#include "platform/PassListener.h"
#include "platform/UserPrompt.h"

#include <QImage>
#include <string>

namespace tovrel {

/// Size of Picture1 in twips, on both axes. The fixed pixel positions of the fills rest on it: at
/// resolution 1 667 pixels across, centre at pixel 333, 66 map units a pixel.
inline constexpr float baseMapSize = 10000.0F;

/// What a base map depends on besides its data files.
struct BaseMapStyle {
    const WorldMap* map;            ///< never null
    Colour land;                    ///< fills the map before the coastlines are drawn
    Colour water;                   ///< of the seas round the seed points
    const QImage* relief = nullptr; ///< world picture for the land, see TopoOverlay; null for none
    Colour reliefLand = 0;          ///< the land colour that it covers
};

/// What became of a base map.
struct BaseMapEnd {
    bool reliefRefused = false; ///< the user was asked for the relief and refused it
    DataFilesEnd files;         ///< of coastline, seeds and, for whoever hands it, the relief
};

/// Draws the picture under everything else, land, sea and coastlines, on Picture1, at its
/// resolution, from the coastline database and the sea's seed points in the program's folder. A
/// file that is missing or can't be read costs a message and its part of the map; the rest is
/// drawn.
BaseMapEnd drawBaseMap(PictureSurface& Picture1, const BaseMapStyle& style,
                       const std::string& programFolder, PassListener& listener,
                       UserPrompt& prompt);

} // namespace tovrel
