#pragma once

#include "log/ContactPlace.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tovrel {

/// Of how many contacts of a log of any logger which kind of field told the place.
struct PositionCounts {
    std::int32_t coordinates = 0;
    std::int32_t locator = 0;
    std::int32_t country = 0;

    /// Counts a contact.
    void add(PlaceSource from);

    /// Appends the counts to a summary, a line each.
    void addLines(std::vector<std::string>& summary) const;
};

/// Word for the kind of field: "coordinates", "locator" or "country".
std::string_view wordOf(PlaceSource from);

} // namespace tovrel
