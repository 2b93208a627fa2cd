#pragma once

#include "map/GreatCircle.h"
#include "map/PictureSurface.h"

#include <string_view>

namespace tovrel {

/// Fills the connected region of exactly the colour found at a pixel; x and y are rounded to whole
/// pixels, halves to the even one. Off the surface nothing happens.
void FillRegion(double x, double y, Colour colour, PictureSurface& surface);

/// Paints the sea: a fill in the water colour from each seed point.
/// @param seeds lines of "latitude,longitude" in degrees; a line without a comma is passed over. On
///        the azimuthal map a line whose two texts are no numbers ends the painting, on the Miller
///        map such a text counts as 0.
void PaintWater(std::string_view seeds, Projection projection, Colour water,
                GreatCircle& greatCircle, PictureSurface& surface);

} // namespace tovrel
