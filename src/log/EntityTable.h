#pragma once

#include "log/TagIndex.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tovrel {

/// A position in degrees.
struct Position {
    double latitude = 0.0;  ///< north positive
    double longitude = 0.0; ///< east positive
};

/// A country or territory of the DXCC list.
struct Entity {
    int code = 0;          ///< its number
    std::string_view name; ///< UTF-8
    Position position;     ///< of its capital or where most of its stations are
};

/// The entities of the DXCC list, found by their number or by a call. The table is part of the
/// program and is read when it is first asked.
class EntityTable {
public:
    EntityTable() = default;
    EntityTable(const EntityTable&) = delete;
    EntityTable& operator=(const EntityTable&) = delete;

    /// The entity of a number, also one that was deleted from the list; null for none.
    const Entity* ofCode(int code);

    /// The entity of today that a call belongs to: by the longest of the known prefixes that it
    /// begins with; of a call with strokes by the part that names the place ("DL/W1AW",
    /// "W1AW/KH6", "EA3ABC/8"). A "=" at its end is left out; case does not count.
    /// @return null for none, and for a station at sea or in the air ("/MM", "/AM")
    const Entity* ofCall(std::string_view call);

private:
    /// A prefix of a call's part with the letters that have to stand behind it as another part.
    struct Pair {
        std::string_view prefix;
        std::string_view behind;
        std::size_t entity;
    };

    void load();
    void read(std::string_view csv, bool current);
    void addPrefixes(std::string_view prefixes, std::size_t entity);
    const Entity* ofParts(std::string_view call);
    const Entity* ofPair(std::string_view call) const;
    const Entity* ofPrefix(std::string_view place) const;
    const Entity* ofCallArea(std::string_view place, char digit);

    bool loaded_ = false;
    std::string texts_; ///< what all views below point into
    std::vector<Entity> entities_;
    std::vector<std::uint16_t> numbers_; ///< by code: place in entities_ plus 1, 0 for none
    TagIndex prefixes_;                  ///< the row is the place in entities_ plus 1
    std::size_t longestPrefix_ = 0;
    std::vector<Pair> pairs_;
};

} // namespace tovrel
