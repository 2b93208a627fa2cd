#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace tovrel {

/// A place in degrees, north and east positive.
struct Place {
    double latitude = 0.0;
    double longitude = 0.0;
};

/// Land and sea as they are, from a TopoJSON file of the land polygons, read and rasterised with no
/// code in common with the builder of the map data or with the program.
class TrueWorld {
public:
    /// @param path a TopoJSON file with an object "land"
    /// @return nothing when it can't be read or has no such object
    static std::optional<TrueWorld> read(const QString& path);

    /// A world of other coasts: lines of places, each closed.
    explicit TrueWorld(std::vector<std::vector<Place>> coasts);

    /// Whether a place is on land; any longitude will do.
    bool isLand(Place place) const;

    /// The coasts: lines of places, closed, the last one the first.
    const std::vector<std::vector<Place>>& coasts() const { return coasts_; }

private:
    std::vector<std::vector<Place>> coasts_;
    std::vector<bool> land_; ///< rows from south to north, columns eastward from -180 degrees
};

} // namespace tovrel
