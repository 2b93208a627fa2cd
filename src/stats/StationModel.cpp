#include "stats/StationModel.h"

#include "platform/ByteText.h"

#include <algorithm>
#include <limits>

namespace tovrel {

int StatusListModel::rowCount(const QModelIndex& parent) const {
    constexpr std::size_t most = std::numeric_limits<int>::max();
    return parent.isValid() ? 0 : static_cast<int>(std::min(rows_, most));
}

QVariant StatusListModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !index.isValid())
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    return row < size() ? displayText(text(row)) : QString();
}

void StatusListModel::refresh() {
    if (!seeChange())
        return;
    beginResetModel();
    rows_ = size();
    endResetModel();
}

template <typename Item>
const Item* SortedListModel<Item>::item(int row) const {
    const auto index = static_cast<std::size_t>(row);
    return index < list_.size() ? &list_.sorted()[index] : nullptr;
}

template <typename Item>
bool SortedListModel<Item>::seeChange() {
    if (seenRevision_ == list_.revision())
        return false;
    seenRevision_ = list_.revision();
    return true;
}

template class SortedListModel<Station>;
template class SortedListModel<std::string_view>;

bool LineModel::seeChange() {
    // The lines have no revision, and the next summary has as many as the last.
    if (seenLines_ == lines_)
        return false;
    seenLines_ = lines_;
    return true;
}

} // namespace tovrel
