#pragma once

#include "platform/ByteText.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tovrel {

/// A plotted contact as an item of a status list. The coordinates are map units rounded to 4
/// decimals, NaN for a contact too near the antipode to be shown.
struct Station {
    std::string_view call; ///< view into the texts that its list holds
    double mapY = 0.0;     ///< upward
    double mapX = 0.0;     ///< to the right

    /// Whether it has a place, to which a line can be drawn.
    bool shown() const { return mapX == mapX && mapY == mapY; }
};

/// Text of a station's item: the call, 60 blanks, "|", map Y, "|", map X. The blanks keep the
/// numbers out of sight; they are empty for a station that can't be shown.
std::string itemText(const Station& station);

/// Text of the item of a call alone: the call.
inline std::string itemText(std::string_view call) { return std::string(call); }

/// Whether an item stands before another: by the bytes of the whole item text.
bool itemLess(const Station& a, const Station& b);
inline bool itemLess(std::string_view a, std::string_view b) { return a < b; }

/// Items seen in an order that lies beside them.
template <typename Item>
class SortedItems {
public:
    /// @param items, order have to outlive this object unchanged
    /// @param order numbers of items
    SortedItems(const std::vector<Item>& items, const std::vector<std::uint32_t>& order)
        : items_(items), order_(order) {}

    std::size_t size() const { return order_.size(); }

    /// @param place below size()
    const Item& operator[](std::size_t place) const { return items_[order_[place]]; }

    /// Walks the items in their order; good until the list changes.
    struct Iterator {
        using iterator_category = std::forward_iterator_tag;
        using value_type = Item;
        using difference_type = std::ptrdiff_t;
        using pointer = const Item*;
        using reference = const Item&;

        reference operator*() const { return items[*place]; }
        Iterator& operator++() { return ++place, *this; }
        Iterator operator++(int) { return {items, place++}; }
        bool operator==(const Iterator&) const = default;

        const Item* items = nullptr;
        const std::uint32_t* place = nullptr;
    };
    Iterator begin() const { return {items_.data(), order_.data()}; }
    Iterator end() const { return {items_.data(), order_.data() + order_.size()}; }

private:
    const std::vector<Item>& items_;
    const std::vector<std::uint32_t>& order_;
};

/// A list that shows its items in the order of their text, and holds the texts that they point to.
/// Items may be added by the million: they are put in order together, when somebody looks.
template <typename Item>
class SortedList {
public:
    /// Drops the items and lets their texts go; views of them may end here.
    void clear() {
        items_ = {};
        order_ = {};
        texts_ = {};
        ++revision_;
    }

    /// Number of items, in order or not yet.
    std::size_t size() const { return items_.size(); }

    /// All items in order; good until the list changes.
    SortedItems<Item> sorted() const {
        sort();
        return {items_, order_};
    }

    /// Grows with every change, so that a view can tell whether it shows the latest.
    std::size_t revision() const { return revision_; }

protected:
    std::vector<Item> items_;                         ///< as they were added
    std::vector<std::shared_ptr<const Texts>> texts_; ///< of all items
    std::size_t revision_ = 0;

private:
    void sort() const;

    mutable std::vector<std::uint32_t> order_; ///< numbers of the items that are in order
};

/// The stations of a class.
class StationList : public SortedList<Station> {
public:
    /// @param texts what the stations point to; null for texts that nothing outlives
    void add(std::vector<Station> stations, std::shared_ptr<const Texts> texts);
};

/// Calls alone.
class CallList : public SortedList<std::string_view> {
public:
    /// Adds a copy of a call.
    void add(std::string_view call);

private:
    std::shared_ptr<Texts> own_;
};

/// The five lists of the statistics window: what the last pass over the log found.
struct StatusLists {
    StationList lstConfirmed;          ///< rows of the plot with each status
    StationList lstWorked;             ///< likewise
    StationList lstHeard;              ///< likewise
    CallList lstPfxNotPlotted;         ///< calls of the QSOs that could not be plotted
    std::vector<std::string> lstStats; ///< lines of the summary, in the order of adding

    /// Empties all five.
    void clear();
};

} // namespace tovrel
