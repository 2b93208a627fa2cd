#pragma once

#include "map/MapUnits.h"
#include "run/MapCaption.h"
#include "state/PictureOptions.h"

#include <QDateTime>
#include <QImage>
#include <QSizeF>
#include <optional>
#include <string>

class QIODevice;

namespace tovrel {

/// What a map is put on: a picture of its own size, or a page of paper.
struct SheetKind {
    PictureFormat format = PictureFormat::Png;
    Paper paper = Paper::A4; ///< with Pdf
};

/// Dots per inch that picture files tell, for programs that print them in their size.
inline constexpr int pictureDpi = 300;

/// A page: which way the paper lies, and what of it is for the map and its caption.
struct PageArea {
    bool landscape = false; ///< for a map that is wider than high
    QSizeF inner;           ///< within the margins, millimetres
    QSizeF map;             ///< the largest of the map's shape in there, millimetres
};
PageArea pageArea(Paper paper, MapShape shape);

/// Pixels across of the map on a page: 300 dots per inch or more, and as many as a base map has, so
/// that it need not be stretched.
int mapPixelsOn(Paper paper, MapShape shape);

/// What size and resolution a sheet will have, for the user: "A4 portrait, ...".
/// @param pixels across, of a picture
std::string sheetSizeText(SheetKind kind, int pixels, MapShape shape);

/// Encodes a map as a file.
/// @param caption to be told below it; nothing for a bare map
/// @param made time that a page tells as that of its making; nothing for now
/// @param file open for writing; a failure of it ends the encoding
/// @return whether all was encoded
bool encodeSheet(SheetKind kind, const QImage& map, const std::optional<MapCaption>& caption,
                 const std::optional<QDateTime>& made, QIODevice& file);

} // namespace tovrel
