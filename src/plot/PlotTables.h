#pragma once

#include "log/QsoStatus.h"
#include "plot/HoverTip.h"
#include "stats/TextPool.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tovrel {

/// A QSO to be drawn.
struct PlotRow {
    float latitude = 0.0F;  ///< degrees, north positive, as the log has it, no range tested
    float longitude = 0.0F; ///< degrees, east positive: the log's value with its sign turned
    QsoStatus status = QsoStatus::Worked;
    std::uint32_t country = 0; ///< number of the country's name in the table
    std::string_view call;
};

/// The QSOs to be drawn, in the order of the log, with the texts that they share.
class PlotTable {
public:
    PlotTable();

    void add(float latitude, float longitude, QsoStatus status, std::string_view call,
             std::string_view country);
    void clear();

    const std::vector<PlotRow>& rows() const { return rows_; }
    std::size_t size() const { return rows_.size(); }
    std::string_view country(const PlotRow& row) const { return countries_[row.country]; }

    /// The texts of all rows, to be held by whoever keeps a view of one.
    const std::shared_ptr<TextPool>& texts() const { return texts_; }

private:
    std::uint32_t countryNumber(std::string_view country);

    std::vector<PlotRow> rows_;
    std::shared_ptr<TextPool> texts_;
    std::vector<std::string_view> countries_;
    std::unordered_map<std::string_view, std::uint32_t> countryNumbers_;
};

/// Counters of a pass over the log.
struct PassCounters {
    std::int32_t QsosRead = 0;      ///< records of the log, whatever became of them
    std::int32_t QsosPlotted = 0;   ///< rows of PlotTable
    std::int32_t QsosConfirmed = 0; ///< rows drawn with each status
    std::int32_t QsosWorked = 0;
    std::int32_t QsosHeard = 0;
    std::int32_t QsosNotPlotted = 0; ///< passed the filter but lack a usable coordinate
};

/// What the last plot pass found, until the next one.
struct PlotTables {
    PlotTable plotTable;
    std::vector<HoverRow> HoverTable; ///< a row for each of the plot table once drawn, else empty
    HoverIndex hoverIndex;            ///< of HoverTable
    PassCounters counters;
    bool LogHasCoordinates = false; ///< some record has a usable longitude, filter or no filter
    bool FilterPassedAny = false;   ///< some record passed the filter

    void clear();

    /// The map shows no plot any more: nothing is found under the pointer.
    void clearHover();
};

} // namespace tovrel
