#include "stats/frmColourButton.h"

#include <QPainter>

namespace tovrel {

void frmColourButton::setColour(Colour colour) {
    colour_ = QColor::fromRgb(imageColour(colour));
    setAccessibleDescription(colour_.name());
    update();
}

void frmColourButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), colour_);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (hasFocus() || isDown()) {
        constexpr int middleLightness = 128;
        painter.setPen(QPen(colour_.lightness() < middleLightness ? Qt::white : Qt::black, 1,
                            isDown() ? Qt::SolidLine : Qt::DotLine));
        painter.drawRect(rect().adjusted(2, 2, -3, -3));
    }
}

} // namespace tovrel
