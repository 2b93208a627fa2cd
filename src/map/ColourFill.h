#pragma once

#include "map/PictureSurface.h"
#include "map/WorldMap.h"

#include <string_view>

namespace tovrel {

/// Fills the connected region of exactly the colour found at a place.
/// @param x, y in pixels at resolution 1, scaled to the surface's and then rounded to whole ones,
/// halves
///        to the even one; off the surface nothing happens
void FillRegion(double x, double y, Colour colour, PictureSurface& surface);

/// Where a seed of the sea is hit.
enum class SeedRule {
    Shifted, ///< up to 3 % nearer to the middle of the map than it lies, as seed files always were
    InPlace  ///< where it lies
};

/// Paints the sea: a fill in the water colour from each seed point.
/// @param seeds lines of "latitude,longitude" in degrees; a line without a comma is passed over,
///        one that the map can't take ends the painting
/// @param last the position that a seed counts for which is not shown; that of the last seed then
void PaintWater(std::string_view seeds, SeedRule rule, const WorldMap& map, Colour water,
                MapPoint& last, PictureSurface& surface);

} // namespace tovrel
