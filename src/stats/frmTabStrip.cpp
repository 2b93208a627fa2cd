#include "stats/frmTabStrip.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QWheelEvent>
#include <numeric>
#include <utility>

namespace tovrel {

namespace {

constexpr int rowHeight = 20;
constexpr int textMargin = 2;
constexpr int markHeight = 2;
constexpr int paneBorder = 1;

class TabButton : public QAbstractButton {
public:
    TabButton(const QString& caption, int number, frmTabStrip* strip)
        : QAbstractButton(strip), caption_(caption), number_(number) {
        setText(caption);
        setCheckable(true);
    }

    const QString& caption() const { return caption_; }
    int number() const { return number_; }
    frmTabStrip* strip() const { return static_cast<frmTabStrip*>(parentWidget()); }

protected:
    // Which tab is down is the strip's affair: a click on the chosen one must not let it up.
    void nextCheckState() override {}

    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
            event->ignore(); // for the strip
            break;
        default:
            QAbstractButton::keyPressEvent(event);
        }
    }

    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(isChecked() ? QPalette::Base : QPalette::Button));
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        if (isChecked()) {
            painter.fillRect(1, 1, width() - 2, markHeight, palette().color(QPalette::Highlight));
        }
        painter.setPen(palette().color(isChecked() ? QPalette::Text : QPalette::ButtonText));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, caption_);
        if (hasFocus()) {
            QStyleOptionFocusRect focus;
            focus.initFrom(this);
            focus.rect = rect().adjusted(2, markHeight + 1, -2, -2);
            style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
        }
    }

private:
    QString caption_;
    int number_;
};

class TabInterface : public QAccessibleWidget {
public:
    explicit TabInterface(TabButton* tab)
        : QAccessibleWidget(tab, QAccessible::PageTab, tab->caption()), tab_(tab) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = true;
        state.selected = tab_->isChecked();
        state.checkable = true;
        state.checked = tab_->isChecked();
        return state;
    }

    QStringList actionNames() const override {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& action) override {
        if (action == pressAction()) {
            tab_->strip()->choose(tab_->number());
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

private:
    TabButton* tab_;
};

class StripInterface : public QAccessibleWidget {
public:
    explicit StripInterface(frmTabStrip* strip)
        : QAccessibleWidget(strip, QAccessible::PageTabList), strip_(strip) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? strip_->caption(strip_->current())
                                         : QAccessibleWidget::text(kind);
    }

    QRect rect() const override {
        const QRect tabs = strip_->tabsRect();
        return {strip_->mapToGlobal(tabs.topLeft()), tabs.size()};
    }

private:
    frmTabStrip* strip_;
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    if (auto* tab = dynamic_cast<TabButton*>(object))
        return new TabInterface(tab);
    if (auto* strip = qobject_cast<frmTabStrip*>(object))
        return new StripInterface(strip);
    return nullptr;
}

} // namespace

frmTabStrip::frmTabStrip(const QStringList& captions, QWidget* parent)
    : QWidget(parent), captions_(captions) {
    static const bool factoryInstalled = (QAccessible::installFactory(makeInterface), true);
    Q_UNUSED(factoryInstalled)
    for (const QString& caption : captions) {
        const int number = static_cast<int>(tabs_.size());
        auto* tab = new TabButton(caption, number, this);
        tab->setChecked(number == current_);
        tab->setFocusPolicy(number == current_ ? Qt::StrongFocus : Qt::ClickFocus);
        connect(tab, &QAbstractButton::clicked, this, [this, number] { choose(number); });
        tabs_.push_back(tab);
    }
}

void frmTabStrip::choose(int tab) {
    if (tab < 0 || tab >= captions_.size() || tab == current_)
        return;
    const int before = std::exchange(current_, tab);
    const auto show = [this](int number, bool on) {
        QAbstractButton* button = tabs_[static_cast<std::size_t>(number)];
        button->setChecked(on);
        button->setFocusPolicy(on ? Qt::StrongFocus : Qt::ClickFocus);
        if (on && isAncestorOf(QWidget::window()->focusWidget()))
            button->setFocus();
    };
    show(before, false);
    show(tab, true);
    emit chosen(tab);
    tellAssistiveTools(before);
}

void frmTabStrip::tellAssistiveTools(int before) const {
    QAccessible::State selected;
    selected.selected = true;
    for (const int tab : {before, current_}) {
        QAccessibleStateChangeEvent change(tabs_[static_cast<std::size_t>(tab)], selected);
        QAccessible::updateAccessibility(&change);
    }
    QAccessibleEvent selection(tabs_[static_cast<std::size_t>(current_)], QAccessible::Selection);
    QAccessible::updateAccessibility(&selection);
    QAccessibleEvent name(const_cast<frmTabStrip*>(this), QAccessible::NameChanged);
    QAccessible::updateAccessibility(&name);
}

QRect frmTabStrip::tabsRect() const { return {0, 0, width(), 2 * rowHeight}; }

QRect frmTabStrip::clientRect() const {
    return rect().adjusted(paneBorder, 2 * rowHeight, -paneBorder, -paneBorder);
}

void frmTabStrip::resizeEvent(QResizeEvent* /*event*/) {
    layOutRow(0);
    layOutRow(perRow());
}

void frmTabStrip::layOutRow(int first) {
    std::vector<double> widths;
    for (int i = 0; i < perRow(); ++i) {
        const QString& text = captions_[first + i];
        widths.push_back(fontMetrics().horizontalAdvance(text) + 2 * textMargin);
    }
    const double needed = std::accumulate(widths.begin(), widths.end(), 0.0);
    const double spare = (width() - needed) / perRow();
    double right = 0.0;
    int left = 0;
    for (int i = 0; i < perRow(); ++i) {
        const double own = widths[static_cast<std::size_t>(i)];
        right += spare >= 0.0 ? own + spare : own * width() / needed;
        const int edge = qRound(right);
        tabs_[static_cast<std::size_t>(first) + static_cast<std::size_t>(i)]->setGeometry(
            left, first == 0 ? 0 : rowHeight, edge - left, rowHeight);
        left = edge;
    }
}

void frmTabStrip::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 2 * rowHeight - 1, -1, -1));
}

void frmTabStrip::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
        return choose(current_ - 1);
    case Qt::Key_Right:
        return choose(current_ + 1);
    case Qt::Key_Up:
        return choose(current_ - perRow());
    case Qt::Key_Down:
        return choose(current_ + perRow());
    case Qt::Key_Home:
        return choose(0);
    case Qt::Key_End:
        return choose(static_cast<int>(tabs_.size()) - 1);
    default:
        QWidget::keyPressEvent(event);
    }
}

void frmTabStrip::wheelEvent(QWheelEvent* event) {
    constexpr int notch = QWheelEvent::DefaultDeltasPerStep;
    wheelDelta_ += event->angleDelta().y();
    for (; wheelDelta_ >= notch; wheelDelta_ -= notch)
        choose(current_ - 1);
    for (; wheelDelta_ <= -notch; wheelDelta_ += notch)
        choose(current_ + 1);
}

} // namespace tovrel
