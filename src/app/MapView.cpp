#include "app/MapView.h"

#include <QPaintEvent>
#include <QPainter>

namespace tovrel {

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

MapView::MapView(const PictureSurface& Picture2, PlotLine& line, QWidget* parent)
    : QWidget(parent), Picture2_(Picture2), lneGCPlotLine_(new PlotLineView(Picture2, line, this)) {
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

} // namespace tovrel
