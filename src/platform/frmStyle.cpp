#include "platform/frmStyle.h"

#include <QPainter>
#include <QStyleOption>

namespace tovrel {

namespace {

constexpr int indicatorSize = 12;
constexpr int labelGap = 4;
constexpr QSize menuBarItemPadding(10, 5);

void drawFrame(const QStyleOptionGroupBox& option, QPainter& painter) {
    constexpr int titleLeft = 8;
    constexpr int titleMargin = 3;
    constexpr float frameStrength = 0.35F;
    const int textWidth = option.fontMetrics.horizontalAdvance(option.text);
    const QRect title(option.rect.left() + titleLeft, option.rect.top(),
                      textWidth + 2 * titleMargin, option.fontMetrics.height());
    QColor line = option.palette.color(QPalette::WindowText);
    painter.save();
    painter.setClipRegion(QRegion(option.rect) - QRegion(title));
    line.setAlphaF(frameStrength);
    painter.setPen(line);
    painter.drawRect(option.rect.adjusted(0, title.height() / 2, -1, -1));
    painter.restore();
    painter.save();
    painter.setPen(option.palette.color(QPalette::WindowText));
    painter.drawText(title, Qt::AlignCenter | Qt::TextSingleLine, option.text);
    painter.restore();
}

} // namespace

frmStyle::frmStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

int frmStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                          const QWidget* widget) const {
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return indicatorSize;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
        return labelGap;
    case PM_MenuBarItemSpacing:
    case PM_MenuBarHMargin:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

void frmStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                           const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (item && item->menuItemType == QStyleOptionMenuItem::Separator) {
        QStyleOptionMenuItem line(*item);
        line.text.clear();
        QProxyStyle::drawControl(element, &line, painter, widget);
    } else {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

QSize frmStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                 const QSize& contentsSize, const QWidget* widget) const {
    if (type == CT_MenuBarItem)
        return contentsSize + menuBarItemPadding;
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (item && item->menuItemType == QStyleOptionMenuItem::Separator) {
        QStyleOptionMenuItem line(*item);
        line.text.clear();
        return QProxyStyle::sizeFromContents(type, &line, contentsSize, widget);
    }
    return QProxyStyle::sizeFromContents(type, option, contentsSize, widget);
}

void frmStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                  QPainter* painter, const QWidget* widget) const {
    if (const auto* frame = qstyleoption_cast<const QStyleOptionGroupBox*>(option)) {
        drawFrame(*frame, *painter);
    } else {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

} // namespace tovrel
