#include "stats/frmItemList.h"

#include <QKeyEvent>
#include <QStyledItemDelegate>

namespace tovrel {

namespace {

/// Makes all items as high as a line and no wider than the list: asking each text for its size
/// would take long, and the blanks after a call would make the list scroll sideways.
class LineDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        return {1, option.fontMetrics.height() + 2};
    }
};

} // namespace

frmItemList::frmItemList(QWidget* parent) : QListView(parent) {
    setItemDelegate(new LineDelegate(this));
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideNone);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    connect(this, &QListView::clicked, this, &frmItemList::pick);
}

void frmItemList::selectionChanged(const QItemSelection& selected,
                                   const QItemSelection& deselected) {
    QListView::selectionChanged(selected, deselected);
    if (!selected.isEmpty())
        pick(selected.first().topLeft());
}

void frmItemList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        pick(currentIndex());
        return;
    }
    QListView::keyPressEvent(event);
}

void frmItemList::pick(const QModelIndex& index) {
    if (index.isValid())
        emit picked(index.row());
}

} // namespace tovrel
