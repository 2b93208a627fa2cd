#pragma once

#include "map/PackedPicture.h"
#include "platform/Files.h"

#include <optional>
#include <string>

namespace tovrel {

/// A home position as a base map was drawn for it, in degrees.
struct MapHome {
    float latitude = 0.0F;  ///< north positive
    float longitude = 0.0F; ///< east positive

    bool operator==(const MapHome&) const = default;
};

/// A base map as it is kept in memory and in its cache file.
struct KeptBaseMap {
    PackedPicture picture;
    int resolution = 1;          ///< that of a plain bitmap, too
    std::optional<MapHome> home; ///< of a plain bitmap, or a map without a home, it is not known
};

/// The file of a base map that was read.
struct CachedBaseMap {
    ReadEnd end = ReadEnd::Missing; ///< Unreadable also of what is no whole picture
    KeptBaseMap map; ///< with Content; its picture may be of any size and need not be a base map

    /// Whether there is a map.
    explicit operator bool() const { return end == ReadEnd::Content; }
};

/// The base map of a file: of one that saveBaseMap() wrote, or of a plain bitmap.
CachedBaseMap loadBaseMap(const std::string& path);

/// Replaces a file by a base map: a compressed picture with a note of resolution and home. It is a
/// bitmap of runs or, of more colours than such a one can have, a PNG.
WriteEnd saveBaseMap(const KeptBaseMap& map, const std::string& path);

} // namespace tovrel
