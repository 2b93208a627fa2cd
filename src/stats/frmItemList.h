#pragma once

#include <QListView>

namespace tovrel {

/// A list box over any number of items: one column, no horizontal scrolling, the texts cut off at
/// the edge.
class frmItemList : public QListView {
    Q_OBJECT

public:
    explicit frmItemList(QWidget* parent);

signals:
    /// The user has picked an item, by mouse, keys or an assistive tool; the one that is picked
    /// already counts again.
    void picked(int row);

protected:
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void pick(const QModelIndex& index);
};

} // namespace tovrel
