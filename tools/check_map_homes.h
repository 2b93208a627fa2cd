#pragma once

#include "check_map_world.h"

#include <QString>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tovrel {

/// A home station whose map is looked at.
struct Home {
    std::string name;
    Place place;
};

/// Homes of a table of time zones: a line each, a code, a position as +DDMM+DDDMM or
/// +DDMMSS+DDDMMSS and a name, parted by tabs; lines that begin with # are passed over.
/// @return nothing when the file can't be read or holds no home
std::optional<std::vector<Home>> readZoneTable(const QString& path);

/// Homes spread at random over the globe, or over its land alone. Those within 3 degrees of the
/// antipode of the seed that whitens the south polar land are left out: there it has no map.
std::vector<Home> randomHomes(int count, bool onLand, std::uint32_t seed, const TrueWorld& world);

} // namespace tovrel
