#pragma once

#include "map/PictureFile.h"

#include <optional>
#include <string>

namespace tovrel {

/// A home position as a base map was drawn for it, in degrees.
struct MapHome {
    float latitude = 0.0F;  ///< north positive
    float longitude = 0.0F; ///< east positive

    bool operator==(const MapHome&) const = default;
};

/// A base map in its file: a compressed picture that names its resolution, and its home if it has
/// one. A plain bitmap is read as well.
struct CachedBaseMap {
    LoadedPicture picture; ///< as it is stored, of any size; it need not be that of a base map
    int resolution = 1;    ///< that of a plain bitmap
    std::optional<MapHome> home; ///< of a plain bitmap it is not known
};

/// The base map of a file; Unreadable also when a bitmap is shorter or longer than its pixels.
CachedBaseMap loadBaseMap(const std::string& path);

/// Replaces a file by a base map.
WriteEnd saveBaseMap(const QImage& image, int resolution, const std::optional<MapHome>& home,
                     const std::string& path);

} // namespace tovrel
