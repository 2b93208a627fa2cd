#pragma once

#include "map/GreatCircle.h"
#include "map/PictureSurface.h"
#include "platform/PassListener.h"
#include "platform/UserPrompt.h"

#include <QImage>

namespace tovrel {

/// Copies a picture of the world into the land of a base map, after asking the user. A target pixel
/// takes the picture only where it is of the default land colour or white, so that coast, water and
/// land of another colour stay, and the first source pixel that reaches it is the one that it
/// shows.
///
/// Progress is reported, and events run, at every 5000th source pixel; once begun, the pass runs to
/// its end.
/// @param mapPix plate carree, of any size, longitude -180 at the left edge, latitude 90 at the top
/// @param greatCircle projection of the azimuthal map; a source pixel that it cuts off counts for
///        the position projected last
/// @return false when the user refused; nothing is drawn then
bool TopoOverlay(PictureSurface& Picture1, const QImage& mapPix, Projection projection,
                 GreatCircle& greatCircle, PassListener& listener, UserPrompt& prompt);

} // namespace tovrel
