#pragma once

#include "map/PictureSurface.h"
#include "map/WorldMap.h"

#include <QDateTime>
#include <string>

namespace tovrel {

/// The stamped copy of a map that is saved: `Picture2` stretched onto `Picture3` of the same size,
/// with the program's name, its credit line and the date and time in the lower corners.
/// @param map of Picture2: in the corners outside a frame the stamp has two lines, else one
/// @param now printed in the general form of the system's locale
void composeMapImage(const PictureSurface& Picture2, const WorldMap& map, const QDateTime& now,
                     PictureSurface& Picture3);

/// Name of a saved map without its extension, for example "TovrelAP_20110302-070509".
std::string mapImageName(Projection projection, const QDateTime& now);

} // namespace tovrel
