#pragma once

#include "plot/MapLayers.h"
#include "run/RunData.h"

#include <QDateTime>
#include <QFont>
#include <QString>
#include <QTextLayout>
#include <deque>
#include <vector>

class QPainter;

namespace tovrel {

/// What is told below a map: whose it is and what it shows.
struct MapCaption {
    /// A class of contacts, with a dot as the map has them.
    struct Class {
        Colour outline = 0;
        Colour inner = 0;
        QString text; ///< "Confirmed 1,234"
    };

    QString station;            ///< call and position of the home
    std::vector<Class> classes; ///< none where nothing is plotted
    QString log;                ///< name of its file; empty where nothing is plotted
    QString filter;             ///< what of it is shown, likewise
    QString date;               ///< and the maker of the map
};

/// The caption of a map.
/// @param layers what lies over its base map
/// @param now local time, or UTC
MapCaption captionOf(const RunData& data, const std::vector<MapLayer>& layers,
                     const QDateTime& now);

/// A caption laid out in lines, all of it: what is too long for a line goes on in the next.
class CaptionLayout {
public:
    /// @param width of the lines, in units of the painter that it will be drawn with
    /// @param textHeight of the letters, in the same units
    CaptionLayout(const MapCaption& caption, double width, double textHeight);

    /// In the same units.
    double height() const { return bottom_; }

    /// @param topLeft of the first line
    void draw(QPainter& painter, QPointF topLeft) const;

private:
    struct Dot {
        QPointF middle;
        Colour outline;
        Colour inner;
    };
    void newLine();
    void addText(const QString& text, const QFont& font);
    void addClass(const MapCaption::Class& entry);
    QTextLayout& layOut(const QString& text, const QFont& font, double width);

    double width_;
    double textHeight_;
    QFont font_;
    std::deque<QTextLayout> texts_; ///< each at its place
    std::vector<Dot> dots_;
    double right_ = 0.0;  ///< of what stands in the last line
    double top_ = 0.0;    ///< of the last line
    double bottom_ = 0.0; ///< likewise
};

} // namespace tovrel
