#pragma once

#include "stats/TextPool.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <ranges>
#include <string>
#include <string_view>
#include <vector>

namespace tovrel {

/// A plotted contact as an item of a status list. The coordinates are map units rounded to 4
/// decimals, NaN for a contact too near the antipode to be shown.
struct Station {
    std::string_view call;
    double mapY = 0.0;
    double mapX = 0.0;

    bool shown() const { return mapX == mapX && mapY == mapY; }
};

/// Text of a station's item: the call, 60 blanks, "|", map Y, "|", map X. The blanks keep the
/// numbers out of sight; they are empty for a station that can't be shown.
std::string itemText(const Station& station);
inline std::string itemText(std::string_view call) { return std::string(call); }

/// Whether an item stands before another: by the bytes of the whole item text.
bool itemLess(const Station& a, const Station& b);
inline bool itemLess(std::string_view a, std::string_view b) { return a < b; }

/// A list that shows its items in the order of their text. Items may be added by the million: they
/// are put in order together, when somebody looks.
template <typename Item>
class SortedList {
public:
    /// Makes room for so many items in all.
    void reserve(std::size_t size) { items_.reserve(size); }
    void add(const Item& item) {
        items_.push_back(item);
        ++revision_;
    }
    void clear() {
        items_ = {};
        order_ = {};
        ++revision_;
    }
    std::size_t size() const { return items_.size(); }

    /// All items in order, a range with random access; good until the list changes.
    auto sorted() const {
        sort();
        return std::views::transform(
            order_, [this](std::uint32_t item) -> const Item& { return items_[item]; });
    }

    /// Grows with every change, so that a view can tell whether it shows the latest.
    std::size_t revision() const { return revision_; }

private:
    void sort() const;

    std::vector<Item> items_;                  ///< as they were added
    mutable std::vector<std::uint32_t> order_; ///< numbers of the items that are in order
    std::size_t revision_ = 0;
};

/// The five lists of the statistics window: what the last pass over the log found.
class StatusLists {
public:
    SortedList<Station> lstConfirmed;
    SortedList<Station> lstWorked;
    SortedList<Station> lstHeard;
    SortedList<std::string_view> lstPfxNotPlotted;
    std::vector<std::string> lstStats; ///< in the order of adding

    /// Adds a call to lstPfxNotPlotted, with a copy of its text.
    void addNotPlotted(std::string_view call);

    /// Keeps the texts that the stations of the three status lists point to.
    void holdTexts(std::shared_ptr<const TextPool> texts) { stationTexts_ = std::move(texts); }

    void clear();

private:
    std::shared_ptr<const TextPool> stationTexts_;
    TextPool notPlottedTexts_;
};

} // namespace tovrel
