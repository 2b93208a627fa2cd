#include "app/MapView.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <utility>

namespace tovrel {

namespace {

/// Takes the tip off the screen. QToolTip::hideText() would leave it there for a third of a second.
void hideTipAtOnce() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->windowType() == Qt::ToolTip) {
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
    // The middle of a pixel lies half a pixel inside its edge.
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
    followsLine_ = line.changed.connect([this] { lneGCPlotLine_->follow(); });
}

void MapView::showMap(QPoint at) {
    at_ = at;
    lneGCPlotLine_->setGeometry({at, Picture2_.Image().size()});
    update();
}

void MapView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect shown = event->rect() & QRect(at_, Picture2_.Image().size());
    painter.drawImage(shown, Picture2_.Image(), shown.translated(-at_));
}

void MapView::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = event->position() - at_;
    const double mapX = Picture2_.mapX(at.x());
    const double mapY = Picture2_.mapY(at.y());
    const QString tip = tipText_(mapY, mapX);
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
