#include "app/MapView.h"

#include "platform/Twips.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <QtMath>
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
    const auto point = [this, middle](double x, double y) {
        return (QPointF(Picture2_.pixelX(x), Picture2_.pixelY(y)) + middle) /
               Picture2_.resolution();
    };
    painter.drawLine(point(shape.fromX, shape.fromY), point(shape.toX, shape.toY));
}

MapView::MapView(const PictureSurface& Picture2, PlotLine& line, TipText tipText, QWidget* parent)
    : QWidget(parent), Picture2_(Picture2), tipText_(std::move(tipText)),
      lneGCPlotLine_(new PlotLineView(Picture2, line, this)) {
    setObjectName(QStringLiteral("Picture2"));
    setAccessibleName(QStringLiteral("Map"));
    setMouseTracking(true);
    followsLine_ = line.changed.connect([this] { lneGCPlotLine_->follow(); });
}

void MapView::showMap(const MapPlace& place) {
    const double ratio = Picture2_.resolution();
    at_ = {pixelsFromTwips(place.left * ratio), pixelsFromTwips(place.top * ratio)};
    const QSizeF size = QSizeF(Picture2_.Image().size()) / ratio;
    lneGCPlotLine_->setGeometry(
        QRect((QPointF(at_) / ratio).toPoint(), QSize(qCeil(size.width()), qCeil(size.height()))));
    update();
}

void MapView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const double ratio = Picture2_.resolution();
    if (ratio != 1.0) {
        // A pixel of the picture is one of the screen: nothing may be stretched on the way.
        painter.scale(1.0 / ratio, 1.0 / ratio);
        painter.drawImage(at_, Picture2_.Image());
        return;
    }
    const QRect shown = event->rect() & QRect(at_, Picture2_.Image().size());
    painter.drawImage(shown, Picture2_.Image(), shown.translated(-at_));
}

void MapView::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = event->position() * Picture2_.resolution() - at_;
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
