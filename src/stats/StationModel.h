#pragma once

#include "stats/StatusLists.h"

#include <QAbstractListModel>
#include <string>
#include <vector>

namespace tovrel {

/// A status list as the rows of a view. The texts are made when a row is shown, and the list is put
/// in order when the first one is, so that a list nobody looks at costs nothing.
///
/// The rows are those of the last refresh(); whatever becomes of the list in between, a row beyond
/// it is an empty text.
class StatusListModel : public QAbstractListModel {
public:
    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// Takes over what has changed in the list; cheap when nothing has.
    void refresh();

protected:
    /// Whether the list differs from what was last seen; sees it.
    virtual bool seeChange() = 0;
    virtual std::size_t size() const = 0;
    /// @param row below size()
    virtual std::string text(std::size_t row) const = 0;

private:
    std::size_t rows_ = 0;
};

/// Rows of a list that keeps itself in order.
template <typename Item>
class SortedListModel : public StatusListModel {
public:
    /// @param list has to outlive the model
    explicit SortedListModel(const SortedList<Item>& list) : list_(list) {}

    /// Item of a row; nothing for a row beyond the list.
    const Item* item(int row) const;

protected:
    bool seeChange() override;
    std::size_t size() const override { return list_.size(); }
    std::string text(std::size_t row) const override { return itemText(list_.sorted()[row]); }

private:
    const SortedList<Item>& list_;
    std::size_t seenRevision_ = 0;
};

/// Models of the lists of plotted stations, and of that of the calls that can't be plotted.
using StationModel = SortedListModel<Station>;
using CallModel = SortedListModel<std::string_view>;

/// Rows of the few lines of lstStats, in the order of adding.
class LineModel : public StatusListModel {
public:
    /// @param lines has to outlive the model
    explicit LineModel(const std::vector<std::string>& lines) : lines_(lines) {}

protected:
    bool seeChange() override;
    std::size_t size() const override { return seenLines_.size(); }
    std::string text(std::size_t row) const override { return seenLines_[row]; }

private:
    const std::vector<std::string>& lines_;
    std::vector<std::string> seenLines_;
};

} // namespace tovrel
