#pragma once

#include "map/MapUnits.h"
#include "map/PackedPicture.h"
#include "platform/Colour.h"
#include "platform/Numbers.h"
#include "platform/Twips.h"

#include <QFont>
#include <QImage>
#include <QString>

namespace tovrel {

/// A picture that keeps what is drawn on it, with two ways to reach its pixels: map units (-22000
/// to 22000 on both axes, X to the right, Y upward) and whole pixels ((0, 0) at the top left).
///
/// How many pixels its twips are is the surface's resolution: pixels to 15 twips, a whole number
/// for a base map, the pixel ratio of a screen for what is shown on it. Dots, lines and letters
/// keep their size in twips: what is some pixels wide at resolution 1 is three times as many at 3.
///
/// Coordinates may be anything, infinities and NaN included: what lies off the surface shows
/// nothing, and a bad coordinate costs its own drawing operation alone.
class PictureSurface {
public:
    /// A white surface, its size in twips.
    PictureSurface(float width, float height, double resolution = 1.0);

    /// The size in twips, as it was given.
    float Width() const { return width_; }
    float Height() const { return height_; }

    /// Pixels to 15 twips, more than 0.
    double resolution() const { return resolution_; }
    double TwipsPerPixel() const { return twipsPerPixel / resolution_; }

    /// The size in whole pixels, at least 1 by 1.
    int pixelWidth() const { return image_.width(); }
    int pixelHeight() const { return image_.height(); }

    /// Changes the size, in twips, and the resolution; what was drawn is gone.
    void setSize(float width, float height, double resolution);
    /// The same at the resolution that it has.
    void setSize(float width, float height) { setSize(width, height, resolution_); }

    /// All that was drawn, as a 32-bit image without alpha.
    const QImage& Image() const { return image_; }

    /// Covers the surface with BackColor.
    void Cls();

    /// Covers the surface with BackColor and shows a picture at its top left.
    void setPicture(const PackedPicture& picture) { setPicture(picture, resolution_); }
    /// The same at another resolution.
    void setPicture(const PackedPicture& picture, double resolution);

    Colour BackColor = 0xFFFFFF; ///< of what is cleared, or comes with a new size
    Colour ForeColor = 0x000000; ///< of what is drawn without a colour of its own
    int DrawWidth = 1;           ///< pixels at resolution 1 across a dot of PSet, odd
    double LineWidth = 1.0; ///< pixels across lines and circles, likewise; at least one is drawn

    double CurrentX = 0.0; ///< the current point, map units
    double CurrentY = 0.0; ///< likewise

    /// A round dot DrawWidth pixels wide; the current point moves there.
    void PSet(double x, double y, Colour colour);
    void PSet(double x, double y) { PSet(x, y, ForeColor); }

    /// A line from the current point, which moves to its end. It is clipped, not walked, where it
    /// leaves the surface.
    void Line(double x, double y, Colour colour);
    void Line(double x, double y) { Line(x, y, ForeColor); }

    /// The outline of a circle in ForeColor, without a gap; all in map units.
    void Circle(double x, double y, double radius);

    /// Text in ForeColor, in a font of resolution 1, whose top left corner is the current point,
    /// turned about it.
    /// @param escapement tenths of a degree, counterclockwise
    void Print(const QString& text, const QFont& font, int escapement = 0);

    /// Colour of a pixel; nothing is drawn and 0xFFFFFFFF given for one off the surface.
    Colour GetPixel(int x, int y) const;
    void SetPixel(int x, int y, Colour colour);

    /// Fills the region of 4-connected pixels of exactly the seed's colour round (x, y).
    void ExtFloodFill(int x, int y, Colour colour);

    /// Stretches all of `source` over all of this surface, smoothly.
    void StretchBlt(const PictureSurface& source);

    /// Pixel nearest to a position in map units, not limited to the surface; NaN stays one.
    double pixelX(double x) const { return roundHalfEven(across(x)); }
    double pixelY(double y) const { return roundHalfEven(down(y)); }

    /// The same without the rounding: the middle of a pixel is a whole number.
    double across(double x) const { return (x + mapEdge) / mapWidth * pixelsAcross_; }
    double down(double y) const { return (mapEdge - y) / mapWidth * pixelsDown_; }

    /// Map units of a position in pixels.
    double mapX(double x) const;
    double mapY(double y) const;

private:
    struct Pixel {
        int x;
        int y;
    };
    QSize measure(float width, float height, double resolution);
    bool contains(int x, int y) const;
    void drawDot(double x, double y, int width, std::uint32_t pixel);
    void drawLine(double x0, double y0, double x1, double y1, Colour colour);
    void walkLine(Pixel from, Pixel to, std::uint32_t pixel);
    void drawBand(double x0, double y0, double x1, double y1, double width, std::uint32_t pixel);
    void drawRing(double x, double y, double radius);
    void fillSpan(int y, int first, int last, std::uint32_t pixel);
    std::uint32_t* row(int y);
    const std::uint32_t* row(int y) const;

    float width_; ///< twips
    float height_;
    double resolution_;
    float pixelsAcross_; ///< not rounded
    float pixelsDown_;
    QImage image_;
};

} // namespace tovrel
