#include "map/Overlays.h"

#include "map/GreatCircle.h"
#include "map/MapPen.h"
#include "map/mRotatedText.h"
#include "platform/Numbers.h"
#include "platform/Twips.h"

#include <cmath>

namespace tovrel {

namespace {

constexpr double labelRadius = 21700.0;
constexpr double labelCircle = 136345.0; // whole map units round a circle of labelRadius

MapPoint onCircle(double degrees, double radius) {
    const double angle = degrees * radiansPerDegree;
    return {toSingle(std::sin(angle) * radius), toSingle(std::cos(angle) * radius)};
}

void DrawCompassTick(PictureSurface& surface, int degrees) {
    const MapPoint inner = onCircle(degrees, MapRadius);
    const MapPoint outer = onCircle(degrees, MapRadius * outerCircleFactor);
    surface.PSet(inner.x, inner.y);
    surface.Line(outer.x, outer.y);
}

void DrawCompassLabel(PictureSurface& surface, int degrees, int weight) {
    const QString text = QStringLiteral("%1").arg(degrees, 3, 10, QLatin1Char('0'));
    // The text begins at its top left corner: its start is turned back along the arc by half its
    // width. A label's pixel is a fifth of 15 twips and that many map units wide at this radius.
    const double width = static_cast<double>(twipsFromPixels(labelWidth(text)));
    const double back = width * twipsPerPixel / 5.0 / (labelCircle / 360.0);
    const MapPoint start = onCircle(roundHalfEven(degrees - back), labelRadius);
    surface.CurrentX = start.x;
    surface.CurrentY = start.y;
    RotatedPrint(text, weight, degrees * -10, surface);
}

} // namespace

void drawMark(PictureSurface& surface, MapPoint at, DotWidths widths, Colour outline,
              Colour inner) {
    surface.DrawWidth = widths.outer;
    surface.PSet(at.x, at.y, outline);
    surface.DrawWidth = widths.inner;
    surface.PSet(at.x, at.y, inner);
    surface.DrawWidth = 1;
}

void DrawCompass(PictureSurface& Picture1, CompassStyle style) {
    constexpr int normalWeight = 400;
    constexpr int boldWeight = 800;
    for (int degrees = 0; degrees < 360; degrees += style.step) {
        DrawCompassTick(Picture1, degrees);
        DrawCompassLabel(Picture1, degrees, style.bold ? boldWeight : normalWeight);
    }
}

void DrawGraticule(PictureSurface& Picture2, const WorldMap& map, Colour colour,
                   PassListener& listener) {
    MapPen pen(Picture2, map, MapLine::Graticule, colour);
    for (int longitude = -160; longitude <= 180; longitude += 20) {
        pen.lift();
        for (int latitude = -85; latitude <= 85; ++latitude) {
            pen.moveTo(latitude, longitude);
        }
        listener.yield();
    }
    for (int latitude = -75; latitude <= 75; latitude += 15) {
        pen.lift();
        for (int longitude = -180; longitude <= 181; ++longitude) {
            pen.moveTo(latitude, longitude);
        }
    }
}

void DrawHomeMarker(PictureSurface& Picture2, HomePosition home, DotWidths widths, Colour outline,
                    Colour inner) {
    drawMark(Picture2, {home.HomeX, home.HomeY}, widths, outline, inner);
}

} // namespace tovrel
