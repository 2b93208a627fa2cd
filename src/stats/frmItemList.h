#pragma once

#include <QListView>
#include <functional>

namespace tovrel {

/// A list box over any number of items: one column, no horizontal scrolling, the texts cut off at
/// the edge.
class frmItemList : public QListView {
    Q_OBJECT

public:
    explicit frmItemList(QWidget* parent);

    /// Called when the user picks an item, by mouse, keys or an assistive tool; the item that is
    /// picked already counts again.
    std::function<void(int row)> picked;

protected:
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void pick(const QModelIndex& index) const;
};

} // namespace tovrel
