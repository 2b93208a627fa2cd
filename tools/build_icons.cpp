// Draws the pictures of the program: the three placemark icons of the export and the program's own
// icon in its sizes.
//
//     build_icons DATA_FOLDER
//
// Ends with 1 if a picture could not be written.

#include <QDir>
#include <QImage>
#include <QList>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace {

constexpr int placemarkSize = 32;

// A palette in which those who can't tell red from green still see three colours; the hues are
// those of the plot.
const QColor confirmedColour(0x00, 0x9E, 0x73);
const QColor workedColour(0xD5, 0x5E, 0x00);
const QColor heardColour(0x1F, 0x6F, 0xC8);

QImage emptyPicture(int size) {
    QImage picture(size, size, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    return picture;
}

/// A shape with a white rim and a dark line round that, so that it stands out from land, sea, cloud
/// and night alike.
void drawBadge(QPainter& painter, const QPainterPath& shape, const QColor& colour) {
    const auto rim = [&](const QColor& rimColour, double width) {
        painter.strokePath(shape,
                           QPen(rimColour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    };
    rim(QColor(0, 0, 0, 150), 5.5);
    rim(Qt::white, 3.5);
    painter.fillPath(shape, colour);
}

QImage confirmedIcon() {
    QImage picture = emptyPicture(placemarkSize);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath disc;
    disc.addEllipse(QPointF(16, 16), 12, 12);
    drawBadge(painter, disc, confirmedColour);
    QPainterPath tick(QPointF(10.2, 16.6));
    tick.lineTo(14.4, 20.6);
    tick.lineTo(22, 11.8);
    painter.strokePath(tick, QPen(Qt::white, 3.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    return picture;
}

QImage workedIcon() {
    QImage picture = emptyPicture(placemarkSize);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath diamond(QPointF(16, 3.6));
    diamond.lineTo(28.4, 16);
    diamond.lineTo(16, 28.4);
    diamond.lineTo(3.6, 16);
    diamond.closeSubpath();
    drawBadge(painter, diamond, workedColour);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(16, 16), 3.2, 3.2);
    return picture;
}

QImage heardIcon() {
    QImage picture = emptyPicture(placemarkSize);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath triangle(QPointF(16, 4.5));
    triangle.lineTo(28.2, 26.5);
    triangle.lineTo(3.8, 26.5);
    triangle.closeSubpath();
    drawBadge(painter, triangle, heardColour);
    painter.setPen(QPen(Qt::white, 2.6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(11.2, 22.6), QPointF(20.8, 22.6));
    painter.drawLine(QPointF(13.6, 17.8), QPointF(18.4, 17.8));
    return picture;
}

/// A point of the disc by its bearing in degrees and its distance, 1 at the rim.
QPointF onDisc(double bearing, double distance, double radius) {
    const double angle = bearing * std::numbers::pi / 180.0;
    return {radius * distance * std::sin(angle), -radius * distance * std::cos(angle)};
}

/// The program's icon: a map round home with contacts on it. Small sizes have fewer lines, and none
/// thinner than about a pixel.
QImage programIcon(int size) {
    QImage picture = emptyPicture(size);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(size / 2.0, size / 2.0);
    const bool small = size < 32;
    const double rim = std::max(1.2, size / 22.0);
    const double radius = size / 2.0 - rim / 2.0 - (small ? 0.0 : size / 64.0);

    QRadialGradient sea(QPointF(-radius / 3, -radius / 3), radius * 1.5);
    sea.setColorAt(0.0, QColor(0x5A, 0xB4, 0xE8));
    sea.setColorAt(1.0, QColor(0x14, 0x57, 0x9B));
    painter.setPen(QPen(QColor(0x0E, 0x2A, 0x47), rim));
    painter.setBrush(sea);
    painter.drawEllipse(QPointF(), radius, radius);

    const double inner = radius - rim / 2.0;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, small ? 110 : 130), std::max(0.9, size / 90.0),
                        Qt::SolidLine, Qt::FlatCap));
    for (const double ring : small ? QList<double>{0.56} : QList<double>{0.34, 0.67}) {
        painter.drawEllipse(QPointF(), inner * ring, inner * ring);
    }
    if (!small) {
        for (int bearing = 0; bearing < 360; bearing += size < 64 ? 90 : 45) {
            painter.drawLine(QPointF(), onDisc(bearing, 1.0, inner));
        }
    }

    struct Contact {
        double bearing;
        double distance;
        QColor colour;
    };
    const QColor green(0x35, 0xE0, 0x6B);
    const QColor red(0xFF, 0x5A, 0x3C);
    QList<Contact> contacts = {{48, 0.66, green}, {158, 0.62, red}, {278, 0.66, QColor(Qt::white)}};
    if (size >= 48) {
        contacts += {{98, 0.82, red}, {214, 0.84, green}, {332, 0.78, green}};
    }
    const double dot = std::max(1.7, size / (size < 48 ? 11.0 : 15.0));
    painter.setPen(QPen(QColor(0xFF, 0xE0, 0x66), std::max(1.0, size / 44.0)));
    for (const Contact& contact : contacts) {
        painter.drawLine(QPointF(), onDisc(contact.bearing, contact.distance, inner));
    }
    const auto drawDot = [&](const QPointF& place, double dotRadius, const QColor& colour) {
        painter.setPen(small ? QPen(Qt::NoPen)
                             : QPen(QColor(0x0E, 0x2A, 0x47), std::max(0.8, size / 64.0)));
        painter.setBrush(colour);
        painter.drawEllipse(place, dotRadius, dotRadius);
    };
    for (const Contact& contact : contacts) {
        drawDot(onDisc(contact.bearing, contact.distance, inner), dot, contact.colour);
    }
    drawDot({}, dot * 1.15, QColor(0xFF, 0xD4, 0x1F));
    return picture;
}

bool save(const QImage& picture, const QDir& folder, const QString& name) {
    const QString path = folder.filePath(name);
    if (picture.save(path, "PNG")) {
        return true;
    }
    std::fprintf(stderr, "build_icons: %s can't be written\n", qPrintable(path));
    return false;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: build_icons DATA_FOLDER\n");
        return 2;
    }
    const QDir data(QString::fromLocal8Bit(argv[1]));
    if (!data.mkpath(QStringLiteral("icons"))) {
        std::fprintf(stderr, "build_icons: %s can't be written\n", argv[1]);
        return 1;
    }
    bool saved = save(confirmedIcon(), data, QStringLiteral("Google_Confirmed.png"));
    saved = save(workedIcon(), data, QStringLiteral("Google_Worked.png")) && saved;
    saved = save(heardIcon(), data, QStringLiteral("Google_Heard.png")) && saved;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        saved =
            save(programIcon(size), data, QStringLiteral("icons/tovrel-%1.png").arg(size)) && saved;
    }
    return saved ? 0 : 1;
}
