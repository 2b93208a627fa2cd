#include "run/MapSheet.h"

#include "map/PictureFile.h"
#include "platform/Numbers.h"
#include "run/MapFit.h"

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <utility>

namespace tovrel {

namespace {

constexpr double millimetresToAnInch = 25.4;
constexpr double margin = 15.0; // millimetres, on each side; few printers need as much
constexpr int leastDpi = 300;
constexpr int pageUnits = 1200; // to an inch

// The letters of a caption: on paper shares of its shorter side, 10 points on A4, below a picture
// of that of the picture.
constexpr double letterShare = 1.0 / 60.0;
constexpr int leastLetters = 11;    // pixels
constexpr double captionGap = 1.0;  // between map and caption, in heights of the letters
constexpr double pictureEdge = 0.8; // round the caption of a picture, likewise

QPageSize pageSize(Paper paper) {
    switch (paper) {
    case Paper::A3:
        return QPageSize(QPageSize::A3);
    case Paper::Letter:
        return QPageSize(QPageSize::Letter);
    case Paper::A4:
        break;
    }
    return QPageSize(QPageSize::A4);
}

/// The largest rectangle of a shape within another.
QSizeF largestOf(MapShape shape, QSizeF room) {
    const double width = std::min(room.width(), room.height() * shape.widthPerHeight);
    return {width, width / shape.widthPerHeight};
}

/// The map with its caption below, on white.
QImage captioned(const QImage& map, const MapCaption& caption) {
    const int letters =
        std::max(leastLetters, roundToInt(std::min(map.width(), map.height()) * letterShare));
    const double edge = pictureEdge * letters;
    const CaptionLayout layout(caption, map.width() - 2.0 * edge, letters);
    QImage picture(map.width(), map.height() + roundToInt(layout.height() + 2.0 * edge),
                   QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.drawImage(0, 0, map);
    layout.draw(painter, {edge, map.height() + edge});
    return picture;
}

/// Replaces the time of making in a PDF, which Qt takes from the clock and tells in as many letters
/// as the computer's zone takes. What lies behind it moves with its end, and so do the places that
/// the table at the end of the file tells.
void setCreationDate(QByteArray& pdf, const QDateTime& made) {
    const QByteArray key = "/CreationDate (D:";
    const qsizetype told = pdf.indexOf(key);
    const qsizetype end = pdf.indexOf(')', told);
    const qsizetype table = pdf.lastIndexOf("\nxref\n");
    if (told < 0 || end < 0 || table < end) {
        return;
    }
    const qsizetype start = told + key.size();
    const QByteArray time = made.toUTC().toString(QStringLiteral("yyyyMMddHHmmss'Z'")).toLatin1();
    const auto moved = [start, growth = time.size() - (end - start)](const QByteArray& place) {
        const qsizetype was = place.toLongLong();
        return QByteArray::number(was > start ? was + growth : was);
    };
    constexpr qsizetype digits = 10; // of a place in the table
    QList<QByteArray> lines = pdf.mid(table).split('\n');
    for (qsizetype i = 1; i < lines.size(); ++i) {
        if (lines[i].endsWith(" 00000 n ")) {
            lines[i] =
                moved(lines[i].first(digits)).rightJustified(digits, '0') + lines[i].mid(digits);
        } else if (lines[i - 1] == "startxref") {
            lines[i] = moved(lines[i].trimmed());
        }
    }
    pdf.replace(table, pdf.size() - table, lines.join('\n'));
    pdf.replace(start, end - start, time);
}

bool encodePage(Paper paper, const QImage& map, const std::optional<MapCaption>& caption,
                const std::optional<QDateTime>& made, QIODevice& file) {
    const bool landscape = map.width() > map.height();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter page(&buffer);
    page.setCreator(QStringLiteral("Tovrel"));
    page.setTitle(caption ? caption->station : QStringLiteral("Tovrel"));
    page.setResolution(pageUnits);
    page.setPageLayout(
        QPageLayout(pageSize(paper), landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                    QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter));
    const double width = page.width();
    const double height = page.height();
    const double letters = std::min(width, height) * letterShare;
    std::optional<CaptionLayout> layout;
    double below = 0.0; // the map
    if (caption) {
        layout.emplace(*caption, width, letters);
        below = captionGap * letters + layout->height();
    }
    const double room = std::max(1.0, height - below);
    const QSizeF size = QSizeF(map.size()) * std::min(width / map.width(), room / map.height());
    const double top = (room - size.height()) / 2.0;
    QPainter painter;
    if (!painter.begin(&page)) {
        return false;
    }
    // Lossy coding puts specks round letters and coasts, and saves little.
    painter.setRenderHint(QPainter::LosslessImageRendering);
    painter.drawImage(QRectF({(width - size.width()) / 2.0, top}, size), map);
    if (layout) {
        layout->draw(painter, {0.0, top + size.height() + captionGap * letters});
    }
    if (!painter.end()) {
        return false;
    }
    if (made) {
        setCreationDate(bytes, *made);
    }
    return file.write(bytes) == bytes.size();
}

const char* qtFormat(PictureFormat format) {
    constexpr const char* names[] = {"PNG", "JPG", "BMP"};
    return names[static_cast<std::size_t>(format)];
}

} // namespace

PageArea pageArea(Paper paper, MapShape shape) {
    const bool landscape = shape.widthPerHeight > 1;
    QSizeF size = pageSize(paper).size(QPageSize::Millimeter);
    if (landscape) {
        size.transpose();
    }
    const QSizeF inner = size - QSizeF(2.0 * margin, 2.0 * margin);
    return {landscape, inner, largestOf(shape, inner)};
}

int mapPixelsOn(Paper paper, MapShape shape) {
    const double wanted = pageArea(paper, shape).map.width() / millimetresToAnInch * leastDpi;
    return baseMapPixels(resolutionFor(roundToInt(wanted)));
}

std::string sheetSizeText(SheetKind kind, int pixels, MapShape shape) {
    constexpr double millimetresToACentimetre = 10.0;
    const auto extent = [shape](double width) {
        const auto centimetres = [](double millimetres) {
            return decimalText(roundHalfEven(millimetres / millimetresToACentimetre, 1));
        };
        return centimetres(width) + " x " + centimetres(width / shape.widthPerHeight) + " cm";
    };
    if (kind.format != PictureFormat::Pdf) {
        return "Map " + std::to_string(pixels) + " x " +
               std::to_string(pixels / shape.widthPerHeight) + " pixels, " +
               extent(pixels * millimetresToAnInch / pictureDpi) + " at " +
               std::to_string(pictureDpi) + " dots per inch";
    }
    const PageArea area = pageArea(kind.paper, shape);
    const double dpi = mapPixelsOn(kind.paper, shape) / area.map.width() * millimetresToAnInch;
    return std::string(nameOf(kind.paper)) + (area.landscape ? " landscape" : " portrait") +
           ", map " + extent(area.map.width()) + " at " + std::to_string(roundToInt(dpi)) +
           " dots per inch";
}

bool encodeSheet(SheetKind kind, const QImage& map, const std::optional<MapCaption>& caption,
                 const std::optional<QDateTime>& made, QIODevice& file) {
    if (kind.format == PictureFormat::Pdf) {
        return encodePage(kind.paper, map, caption, made, file);
    }
    QImage picture = caption ? captioned(map, *caption) : map;
    constexpr double inchesToAMetre = 1000.0 / millimetresToAnInch;
    picture.setDotsPerMeterX(roundToInt(pictureDpi * inchesToAMetre));
    picture.setDotsPerMeterY(roundToInt(pictureDpi * inchesToAMetre));
    return encodePicture(picture, qtFormat(kind.format), file);
}

} // namespace tovrel
