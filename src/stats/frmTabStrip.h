#pragma once

#include <QStringList>
#include <QWidget>
#include <vector>

class QAbstractButton;

namespace tovrel {

/// A tab strip with its tabs in two rows, so that all of them show in a narrow window. It has a
/// place below the tabs for the pages, which are its owner's.
///
/// Tabs are chosen by mouse, wheel, arrow keys, Home and End; assistive tools find a list of page
/// tabs, named as any after the tab that is chosen, and press one.
class frmTabStrip : public QWidget {
    Q_OBJECT

public:
    /// @param captions of the tabs, an even number of them; the first half stands in the upper row
    frmTabStrip(const QStringList& captions, QWidget* parent);

    /// Number of the tab in front, from 0.
    int current() const { return current_; }

    /// @param tab 0 to the number of captions less 1
    const QString& caption(int tab) const { return captions_[tab]; }

    /// Brings a tab to the front. Tabs out of range are ignored.
    void choose(int tab);

    /// Where the tabs are, and where a page goes, relative to the strip.
    QRect tabsRect() const;
    QRect clientRect() const;

signals:
    /// Another tab has come to the front, brought by the user or by choose().
    /// @param tab its number, from 0
    void chosen(int tab);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    int perRow() const { return static_cast<int>(tabs_.size()) / 2; }
    void layOutRow(int first);
    void tellAssistiveTools(int before) const;

    QStringList captions_;
    std::vector<QAbstractButton*> tabs_;
    int current_ = 0;
    int wheelDelta_ = 0;
};

} // namespace tovrel
