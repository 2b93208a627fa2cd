#include "plot/HoverTip.h"

#include "platform/Numbers.h"
#include "plot/PlotTables.h"

#include <algorithm>

namespace tovrel {

namespace {

constexpr int window = 4; // steps to each side
constexpr int tipDecimals = 4;

/// Step of the grid on which positions are compared. The rounding to whole map units and the
/// division in single precision are part of the result.
int gridStep(double mapUnits) {
    constexpr float unitsPerStep = 100.0F;
    return roundToInt(static_cast<double>(toSingle(roundHalfEven(mapUnits)) / unitsPerStep));
}

/// The pointer's step: its position is not rounded to whole units.
int pointerStep(double mapUnits) {
    constexpr float unitsPerStep = 100.0F;
    return roundToInt(static_cast<double>(toSingle(mapUnits) / unitsPerStep));
}

/// Order of a heap whose top is the group with the earliest row.
bool later(std::span<const std::uint32_t> a, std::span<const std::uint32_t> b) {
    return a.front() > b.front();
}

} // namespace

void HoverIndex::clear() { *this = {}; }

void HoverIndex::begin(std::size_t rows) {
    clear();
    cells_.reserve(rows);
    starts_.assign(static_cast<std::size_t>(side) * side + 1, 0);
}

void HoverIndex::add(double mapY, double mapX) {
    const auto row = static_cast<std::uint32_t>(cells_.size());
    std::uint32_t& cell = cells_.emplace_back(noCell);
    if (mapY != mapY || mapX != mapX) {
        return;
    }
    const int y = gridStep(mapY);
    const int x = gridStep(mapX);
    // Not by std::abs: a log may hold 1e38 degrees, and the least int has no opposite.
    if (y < -reach || y > reach || x < -reach || x > reach) {
        outside_[{y, x}].push_back(row);
        return;
    }
    cell = static_cast<std::uint32_t>((y + reach) * side + (x + reach));
    ++starts_[cell + 1];
}

void HoverIndex::finish() {
    // A counting sort by cell, which keeps the rows of a cell in their order.
    for (std::size_t cell = 1; cell < starts_.size(); ++cell) {
        starts_[cell] += starts_[cell - 1];
    }
    rows_.resize(starts_.back());
    std::vector<std::uint32_t> next(starts_.begin(), starts_.end() - 1);
    for (std::size_t row = 0; row < cells_.size(); ++row) {
        if (cells_[row] != noCell) {
            rows_[next[cells_[row]]++] = static_cast<std::uint32_t>(row);
        }
    }
    cells_ = {};
}

std::vector<std::span<const std::uint32_t>> HoverIndex::near(double mapY, double mapX) const {
    std::vector<std::span<const std::uint32_t>> groups;
    if (starts_.empty()) {
        return groups;
    }
    const std::int64_t pointerY = pointerStep(mapY);
    const std::int64_t pointerX = pointerStep(mapX);
    const auto within = [](std::int64_t step) {
        return static_cast<int>(std::clamp<std::int64_t>(step, -reach, reach + 1));
    };
    for (int y = within(pointerY - window); y < within(pointerY + window + 1); ++y) {
        for (int x = within(pointerX - window); x < within(pointerX + window + 1); ++x) {
            const auto cell =
                static_cast<std::size_t>(y + reach) * side + static_cast<std::size_t>(x + reach);
            const std::uint32_t begin = starts_[cell];
            const std::uint32_t end = starts_[cell + 1];
            if (begin < end) {
                groups.push_back(std::span(rows_).subspan(begin, end - begin));
            }
        }
    }
    for (std::int64_t y = pointerY - window; y <= pointerY + window; ++y) {
        auto cell = outside_.lower_bound({y, pointerX - window});
        for (; cell != outside_.end() && cell->first <= Step(y, pointerX + window); ++cell) {
            groups.emplace_back(cell->second);
        }
    }
    return groups;
}

HoverHits::HoverHits(const HoverIndex& index, double mapY, double mapX)
    : groups_(index.near(mapY, mapX)) {
    std::make_heap(groups_.begin(), groups_.end(), later);
    for (const auto& group : groups_) {
        left_ += group.size();
    }
}

std::uint32_t HoverHits::take() {
    std::pop_heap(groups_.begin(), groups_.end(), later);
    std::span<const std::uint32_t>& group = groups_.back();
    const std::uint32_t row = group.front();
    group = group.subspan(1);
    if (group.empty()) {
        groups_.pop_back();
    } else {
        std::push_heap(groups_.begin(), groups_.end(), later);
    }
    --left_;
    return row;
}

std::vector<std::string> tipStations(const PlotTables& tables, TipParts parts, double mapY,
                                     double mapX, std::size_t longest) {
    std::vector<std::string> stations;
    std::size_t length = 0;
    HoverHits hits(tables.HoverTable, mapY, mapX);
    while (hits.left() > 0) {
        if (length > longest) {
            stations.push_back("... and " + std::to_string(hits.left()) + " more");
            break;
        }
        const PlotRow& row = tables.plotTable.rows()[hits.take()];
        std::string& station = stations.emplace_back();
        if (stations.size() == 1 && parts.latLong) {
            station += "[" + decimalText(roundHalfEven(row.latitude, tipDecimals)) + ", " +
                       decimalText(roundHalfEven(row.longitude, tipDecimals)) + "] ";
        }
        if (stations.size() == 1 && parts.country) {
            station.append(tables.plotTable.country(row)).append(": ");
        }
        if (!parts.call) {
            break;
        }
        station.append(row.call).append("  ");
        length += station.size();
    }
    return stations;
}

std::string tipText(const PlotTables& tables, TipParts parts, double mapY, double mapX,
                    std::size_t longest) {
    std::string tip;
    for (const std::string& station : tipStations(tables, parts, mapY, mapX, longest)) {
        tip += station;
    }
    return tip;
}

} // namespace tovrel
