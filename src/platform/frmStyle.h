#pragma once

#include <QProxyStyle>

namespace tovrel {

/// The look of the program: the same style on every desktop, with indicators, gaps and margins so
/// narrow that each caption fits the place that its window gives it.
class frmStyle : public QProxyStyle {
    Q_OBJECT

public:
    frmStyle();

    int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                    const QWidget* widget = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contentsSize,
                           const QWidget* widget) const override;

    /// Separators of menus are lines, whatever their caption.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;

    /// Draws the title of a frame into its upper line: the option buttons begin right below.
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
};

} // namespace tovrel
