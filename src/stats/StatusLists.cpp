#include "stats/StatusLists.h"

#include "platform/Numbers.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <numeric>
#include <span>
#include <utility>

namespace tovrel {

namespace {

constexpr std::size_t blanksBehindCall = 60;

/// What an item's text holds behind the call and its blanks.
std::string coordinateText(const Station& station) {
    if (!station.shown())
        return "||";
    return "|" + decimalText(station.mapY) + "|" + decimalText(station.mapX);
}

} // namespace

std::string itemText(const Station& station) {
    return std::string(station.call).append(blanksBehindCall, ' ') + coordinateText(station);
}

bool itemLess(const Station& a, const Station& b) {
    const std::size_t common = std::min(a.call.size(), b.call.size());
    const int order = a.call.substr(0, common).compare(b.call.substr(0, common));
    if (order != 0)
        return order < 0;
    if (a.call.size() == b.call.size()) {
        const bool samePlace = a.mapX == b.mapX && a.mapY == b.mapY;
        return !samePlace && coordinateText(a) < coordinateText(b);
    }
    // Behind the shorter call stands a blank.
    const bool aShorter = a.call.size() == common;
    const char next = aShorter ? b.call[common] : a.call[common];
    if (next != ' ')
        return (static_cast<unsigned char>(next) > ' ') == aShorter;
    return itemText(a) < itemText(b);
}

namespace {

/// The first eight bytes of an item's text as a number that sorts as they do: a comparison of two
/// numbers settles nearly every pair of items without a look at their texts.
std::uint64_t textKey(std::string_view text, char behind) {
    constexpr std::size_t length = 8;
    std::uint64_t key = 0;
    for (std::size_t i = 0; i < length; ++i) {
        key = key << 8U | static_cast<unsigned char>(i < text.size() ? text[i] : behind);
    }
    return key;
}

std::uint64_t itemKey(const Station& station) { return textKey(station.call, ' '); }
std::uint64_t itemKey(std::string_view text) { return textKey(text, '\0'); }

/// Whether two items have the same text so far as the call goes.
bool sameCall(const Station& a, const Station& b) { return a.call == b.call; }
bool sameCall(std::string_view a, std::string_view b) { return a == b; }

/// Puts items of one call in order. The texts are made once for each, not for each comparison.
void sortSameCall(std::span<Station> stations) {
    const auto samePlace = [&stations](const Station& other) {
        return other.mapX == stations[0].mapX && other.mapY == stations[0].mapY;
    };
    if (std::all_of(stations.begin(), stations.end(), samePlace)) {
        return;
    }
    std::vector<std::pair<std::string, Station>> texts;
    texts.reserve(stations.size());
    for (const Station& station : stations) {
        texts.emplace_back(coordinateText(station), station);
    }
    std::stable_sort(texts.begin(), texts.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::transform(texts.begin(), texts.end(), stations.begin(),
                   [](const auto& text) { return text.second; });
}
void sortSameCall(std::span<std::string_view> /*equal*/) {}

/// Where an item stood before it was sorted.
struct Place {
    std::uint64_t key;
    std::size_t item;
};

/// Sorts by the key alone and keeps the order of equal ones: byte by byte, the last one first. A
/// million items take a fraction of the time that comparing them does.
void sortByKey(std::vector<Place>& places) {
    constexpr unsigned digitBits = 8;
    constexpr std::size_t digits = std::size_t{1} << digitBits;
    std::vector<Place> sorted(places.size());
    for (unsigned shift = 0; shift < std::numeric_limits<std::uint64_t>::digits;
         shift += digitBits) {
        const auto digit = [shift](const Place& place) {
            return place.key >> shift & (digits - 1);
        };
        std::array<std::size_t, digits + 1> starts{};
        for (const Place& place : places) {
            ++starts[digit(place) + 1];
        }
        if (std::find(starts.begin(), starts.end(), places.size()) != starts.end()) {
            continue; // all have the same digit
        }
        std::partial_sum(starts.begin(), starts.end(), starts.begin());
        for (const Place& place : places) {
            sorted[starts[digit(place)]++] = place;
        }
        places.swap(sorted);
    }
}

/// Puts items whose texts begin alike in order.
template <typename Item>
void sortAlike(std::span<Item> items) {
    std::stable_sort(items.begin(), items.end(), [](const Item& a, const Item& b) {
        return !sameCall(a, b) && itemLess(a, b);
    });
    for (std::size_t first = 0, last = 0; first < items.size(); first = last) {
        do {
            ++last;
        } while (last < items.size() && sameCall(items[first], items[last]));
        if (last - first > 1) {
            sortSameCall(items.subspan(first, last - first));
        }
    }
}

/// Puts items in the order of their texts.
template <typename Item>
void sortItems(std::span<Item> items) {
    std::vector<Place> order(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        order[i] = {itemKey(items[i]), i};
    }
    sortByKey(order);
    std::vector<Item> sorted(items.size());
    std::transform(order.begin(), order.end(), sorted.begin(),
                   [items](const Place& place) { return items[place.item]; });
    for (std::size_t first = 0, last = 0; first < order.size(); first = last) {
        do {
            ++last;
        } while (last < order.size() && order[first].key == order[last].key);
        if (last - first > 1) {
            sortAlike(std::span(sorted).subspan(first, last - first));
        }
    }
    std::copy(sorted.begin(), sorted.end(), items.begin());
}

} // namespace

template <typename Item>
const std::vector<Item>& SortedList<Item>::sorted() const {
    if (inOrder_ < items_.size()) {
        const auto added = items_.begin() + static_cast<std::ptrdiff_t>(inOrder_);
        sortItems(std::span(added, items_.end()));
        std::inplace_merge(items_.begin(), added, items_.end(),
                           [](const Item& a, const Item& b) { return itemLess(a, b); });
        inOrder_ = items_.size();
    }
    return items_;
}

template class SortedList<Station>;
template class SortedList<std::string_view>;

void StatusLists::addNotPlotted(std::string_view call) {
    lstPfxNotPlotted.add(notPlottedTexts_.add(call));
}

void StatusLists::clear() {
    lstConfirmed.clear();
    lstWorked.clear();
    lstHeard.clear();
    lstPfxNotPlotted.clear();
    lstStats.clear();
    stationTexts_.reset();
    notPlottedTexts_ = {};
}

} // namespace tovrel
