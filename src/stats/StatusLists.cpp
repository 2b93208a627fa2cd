#include "stats/StatusLists.h"

#include "platform/Numbers.h"

#include <algorithm>

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

template <typename Item>
const std::vector<Item>& SortedList<Item>::sorted() const {
    if (inOrder_ < items_.size()) {
        const auto less = [](const Item& a, const Item& b) { return itemLess(a, b); };
        const auto added = items_.begin() + static_cast<std::ptrdiff_t>(inOrder_);
        std::sort(added, items_.end(), less);
        std::inplace_merge(items_.begin(), added, items_.end(), less);
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
