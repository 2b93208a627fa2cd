#pragma once

#include "map/PictureSurface.h"
#include "map/WorldMap.h"
#include "platform/PassListener.h"
#include "platform/UserPrompt.h"

#include <QImage>

namespace tovrel {

/// Copies a picture of the world into the land of a base map, after asking the user. A target pixel
/// takes the picture only where it is of the land colour or white, so that coast, water and
/// land of another colour stay, and the first source pixel that reaches it is the one that it
/// shows. What none reaches, as at many pixels, takes the colour of the place that it shows.
///
/// Progress is reported, and events run, at every 5000th source pixel, and events at each row of
/// what none reaches; once begun, the pass runs to its end.
/// @param mapPix plate carree, of any size, longitude -180 at the left edge, latitude 90 at the top
/// @param land the land colour that the picture covers
/// @param last the position that a source pixel counts for which is not shown, until one is
/// @return false when the user refused; nothing is drawn then
bool TopoOverlay(PictureSurface& Picture1, const QImage& mapPix, const WorldMap& map, Colour land,
                 MapPoint last, PassListener& listener, UserPrompt& prompt);

} // namespace tovrel
