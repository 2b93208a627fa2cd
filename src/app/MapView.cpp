#include "app/MapView.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>
#include <utility>

namespace tovrel {

namespace {

/// A tip as the tool tip window takes it: a long one has to be rich text, which wraps at the width
/// of the screen, and so has one that could be taken for it.
QString toolTipText(const QString& tip) {
    constexpr qsizetype line = 120;
    if (tip.size() <= line && !Qt::mightBeRichText(tip)) {
        return tip;
    }
    return QStringLiteral("<p style=\"white-space: pre-wrap\">") + tip.toHtmlEscaped() +
           QStringLiteral("</p>");
}

/// Takes the tip off the screen. QToolTip::hideText() would leave it there for a third of a second.
void hideTipAtOnce() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->inherits("QTipLabel")) {
            window->hide();
        }
    }
    QToolTip::hideText();
}

} // namespace

PlotLineView::PlotLineView(const PictureSurface& Picture2, const PlotLine& line, QWidget* parent)
    : QWidget(parent), Picture2_(Picture2), line_(line) {
    setObjectName(QStringLiteral("lneGCPlotLine"));
    setAccessibleName(QStringLiteral("Plot line"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void PlotLineView::follow() {
    setVisible(line_.shape().visible);
    update();
}

void PlotLineView::paintEvent(QPaintEvent* /*event*/) {
    const PlotLine::Shape& shape = line_.shape();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor::fromRgb(imageColour(shape.colour)), shape.width));
    // The middle of a pixel lies half a pixel behind its edge.
    constexpr QPointF middle(0.5, 0.5);
    painter.drawLine(QPointF(Picture2_.pixelX(shape.fromX), Picture2_.pixelY(shape.fromY)) + middle,
                     QPointF(Picture2_.pixelX(shape.toX), Picture2_.pixelY(shape.toY)) + middle);
}

MapView::MapView(const PictureSurface& Picture2, PlotLine& line, TipText tipText, QWidget* parent)
    : QWidget(parent), Picture2_(Picture2), tipText_(std::move(tipText)),
      lneGCPlotLine_(new PlotLineView(Picture2, line, this)) {
    setObjectName(QStringLiteral("Picture2"));
    setAccessibleName(QStringLiteral("Map"));
    setMouseTracking(true);
    line.changed = [this] { lneGCPlotLine_->follow(); };
}

void MapView::showMap() {
    lneGCPlotLine_->resize(Picture2_.Image().size());
    update();
}

void MapView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect picture(QPoint(0, 0), Picture2_.Image().size());
    const QRect shown = event->rect() & picture;
    painter.drawImage(shown, Picture2_.Image(), shown);
}

void MapView::mouseMoveEvent(QMouseEvent* event) {
    const double mapX = Picture2_.mapX(event->position().x());
    const double mapY = Picture2_.mapY(event->position().y());
    const QString tip = toolTipText(tipText_(mapY, mapX));
    if (tip == toolTip()) {
        return;
    }
    setToolTip(tip);
    // A tip on screen does not wait for the next hover: it changes, or goes away, at once.
    if (tip.isEmpty()) {
        hideTipAtOnce();
    } else if (QToolTip::isVisible()) {
        QToolTip::showText(event->globalPosition().toPoint(), tip, this);
    }
}

} // namespace tovrel
