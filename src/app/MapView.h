#pragma once

#include "map/PictureSurface.h"
#include "state/PlotLine.h"

#include <QWidget>

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

/// Picture2 on screen, a pixel of it a pixel of the widget, at the top left.
class MapView : public QWidget {
    Q_OBJECT

public:
    MapView(const PictureSurface& Picture2, PlotLine& line, QWidget* parent = nullptr);

    /// Takes over the size of the picture and repaints it.
    void showMap();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const PictureSurface& Picture2_;
    PlotLineView* lneGCPlotLine_;
};

} // namespace tovrel
