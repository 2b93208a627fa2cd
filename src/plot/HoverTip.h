#pragma once

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
    /// Replaces the index by that of a table: begin(), add() for each row in their order, finish().
    /// In between nothing may be looked for. The time is linear in the number of rows, and one that
    /// is not shown is never found.
    /// @param rows of the table
    void begin(std::size_t rows);
    /// @param mapY, mapX map units; NaN for a row that is not shown
    void add(double mapY, double mapX);
    void finish();

    /// The map shows no plot any more: nothing is found.
    void clear();

    /// Rows near a position, as groups that are none of them empty and each in log order.
    /// @param mapY, mapX map units
    std::vector<std::span<const std::uint32_t>> near(double mapY, double mapX) const;

private:
    // The surface and four steps beyond; what lies farther out only a script can point at.
    static constexpr int reach = 225;
    static constexpr int side = 2 * reach + 1;
    static constexpr std::uint32_t noCell = std::numeric_limits<std::uint32_t>::max();

    std::vector<std::uint32_t> cells_;  ///< of each row, from begin() to finish()
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
    bool latLong = false; ///< degrees of the first station, to 4 decimals
    bool country = false; ///< of the first station
    bool call = false;    ///< of every station; without it the tip ends with the first one
};

/// No limit to a tip's length, which counts in bytes.
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
