#pragma once

#include "map/PictureSurface.h"
#include "run/MapFit.h"
#include "state/PlotLine.h"

#include <QString>
#include <QWidget>
#include <functional>

namespace tovrel {

/// lneGCPlotLine on screen: a line over the map that lets the mouse through.
class PlotLineView : public QWidget {
    Q_OBJECT

public:
    PlotLineView(const PictureSurface& Picture2, const PlotLine& line, QWidget* parent);

    /// Shows or hides the line as its state says.
    void follow();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const PictureSurface& Picture2_;
    const PlotLine& line_;
};

/// Picture2 on screen, a pixel of it a pixel of the screen, on the window's background.
class MapView : public QWidget {
    Q_OBJECT

public:
    /// Tool tip at a position in map units, Y and X; empty for none.
    using TipText = std::function<QString(double mapY, double mapX)>;

    /// @param Picture2, line have to outlive the widget
    MapView(const PictureSurface& Picture2, PlotLine& line, TipText tipText,
            QWidget* parent = nullptr);

    /// Takes over the size of the picture and repaints it.
    /// @param place of the picture in the widget
    void showMap(const MapPlace& place);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    const PictureSurface& Picture2_;
    QPoint at_; ///< of the picture's upper left corner, in its pixels
    TipText tipText_;
    PlotLineView* lneGCPlotLine_;
    Connection followsLine_;
};

} // namespace tovrel
