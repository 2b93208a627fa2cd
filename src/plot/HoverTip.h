#pragma once

#include "plot/PlotRow.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace tovrel {

/// Finds the rows of a plot near a position without looking at all of them.
///
/// Positions count on a grid of 100 map units, and a row is near when it lies fewer than 5 steps
/// away on both axes. So the rows of 9 by 9 cells are all the hits there are.
class HoverIndex {
public:
    /// Replaces the index by that of a table's rows, in time linear in their number. Those that are
    /// not shown are never found.
    void build(const std::vector<PlotRow>& table);

    /// The map shows no plot any more: nothing is found.
    void clear();

    /// Rows near a position, as groups that are none of them empty and each in log order.
    /// @param mapY, mapX map units
    std::vector<std::span<const std::uint32_t>> near(double mapY, double mapX) const;

private:
    // The surface and four steps beyond; what lies farther out only a script can point at.
    static constexpr int reach = 225;
    static constexpr int side = 2 * reach + 1;

    std::vector<std::uint32_t> starts_; ///< of each cell's rows in rows_, and their end
    std::vector<std::uint32_t> rows_;

    using Step = std::pair<std::int64_t, std::int64_t>;  ///< Y, X
    std::map<Step, std::vector<std::uint32_t>> outside_; ///< rows beyond the cells
};

/// The rows near a position in log order, merged from the index's groups as far as they are taken.
class HoverHits {
public:
    /// @param index has to outlive the hits unchanged
    /// @param mapY, mapX map units
    HoverHits(const HoverIndex& index, double mapY, double mapX);

    /// Number of rows not yet taken.
    std::size_t left() const { return left_; }

    /// The next row; there must be one.
    std::uint32_t take();

private:
    std::vector<std::span<const std::uint32_t>> groups_; ///< a heap, the earliest row on top
    std::size_t left_ = 0;
};

struct PlotTables;

/// Which parts a tool tip has.
struct TipParts {
    bool latLong = false;
    bool country = false;
    bool call = false;
};

inline constexpr std::size_t wholeTip = std::numeric_limits<std::size_t>::max();

/// The tool tip at a position of the map, a text for each station: coordinates and country of the
/// first QSO near it and the calls of all, in log order; bytes as the log has them, the blanks
/// between them included. Empty when none is near.
/// @param mapY, mapX map units
/// @param longest a tip that would pass this length ends with the number of further stations
std::vector<std::string> tipStations(const PlotTables& tables, TipParts parts, double mapY,
                                     double mapX, std::size_t longest = wholeTip);

/// The same as one text.
std::string tipText(const PlotTables& tables, TipParts parts, double mapY, double mapX,
                    std::size_t longest = wholeTip);

} // namespace tovrel
