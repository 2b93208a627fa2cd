#pragma once

#include "log/PositionCounts.h"
#include "platform/ByteText.h"
#include "plot/HoverTip.h"
#include "plot/PlotRow.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tovrel {

/// The QSOs to be drawn, in the order of the log, with the texts that they share.
class PlotTable {
public:
    /// A table without rows, with texts of its own.
    PlotTable();

    /// Adds a row that has no place on the map yet; call and country are copied.
    void add(const ContactPlace& place, QsoStatus status, std::string_view call,
             std::string_view country);

    /// Makes room for so many rows, up to a million.
    void reserve(std::size_t rows);

    /// Drops all rows. Their texts stay for those who hold texts(), and go else.
    void clear();

    /// The rows in log order; a reference to one is good until the next add() or clear().
    const std::vector<PlotRow>& rows() const { return rows_; }
    std::vector<PlotRow>& rows() { return rows_; }

    /// Number of QSOs, placed on the map or not.
    std::size_t size() const { return rows_.size(); }

    /// The row's country as the log has it, empty where it tells none; a view into texts().
    std::string_view country(const PlotRow& row) const { return countries_[row.country]; }

    /// The texts of all rows, to be held by whoever keeps a view of one.
    std::shared_ptr<const Texts> texts() const { return texts_; }

private:
    std::uint32_t countryNumber(std::string_view country);

    std::vector<PlotRow> rows_;
    std::shared_ptr<Texts> texts_;
    std::vector<std::string_view> countries_;
    std::unordered_map<std::string_view, std::uint32_t> countryNumbers_;
};

/// Counters of a pass over the log.
struct PassCounters {
    std::int32_t QsosRead = 0;       ///< records of the log, whatever became of them
    std::int32_t QsosPlotted = 0;    ///< rows of PlotTable
    std::int32_t QsosConfirmed = 0;  ///< rows drawn with each status
    std::int32_t QsosWorked = 0;     ///< likewise
    std::int32_t QsosHeard = 0;      ///< likewise
    std::int32_t QsosNotPlotted = 0; ///< passed the filter but lack a usable coordinate
};

/// What the last plot pass found, until the next one.
struct PlotTables {
    PlotTable plotTable;   ///< QSOs that passed the filter and have coordinates
    HoverIndex HoverTable; ///< finds the rows that are drawn on the map; empty before and after
    PassCounters counters; ///< all 0 before the first pass; an export sets QsosPlotted to 0
    std::optional<PositionCounts> PositionsFrom; ///< of the plotted, in a log of any logger only
    bool LogHasCoordinates = false; ///< some record has a usable longitude, filter or no filter
    bool FilterPassedAny = false;   ///< some record passed the filter

    /// Back to the state before the first pass.
    void clear();
};

} // namespace tovrel
