#include "map/MapImage.h"

#include "map/MapColours.h"
#include "map/Pixels.h"

namespace tovrel {
namespace {

/// Ink of the stamp in a part of the picture, in map units.
int inkIn(const PictureSurface& picture, double left, double top, double right, double bottom) {
    return inkWhere(picture,
                    [&](int x, int y, Colour found) {
                        return found != water && x >= picture.pixelX(left) &&
                               x <= picture.pixelX(right) && y >= picture.pixelY(top) &&
                               y <= picture.pixelY(bottom);
                    })
        .count;
}

TEST(MapImage, StampsTheLowerCornersOfACopy) {
    for (const Projection projection : allProjections) {
        const bool azimuthal = projection == Projection::Azimuthal;
        PictureSurface Picture2 = whiteSurface(800, azimuthal ? 800 : 400);
        Picture2.BackColor = water;
        Picture2.Cls();
        PictureSurface Picture3 = whiteSurface(10, 10);
        composeMapImage(Picture2, *worldMap(projection, 0.0F, 0.0F),
                        QDateTime(QDate(2011, 3, 2), QTime(7, 5, 9)), Picture3);

        EXPECT_EQ(inkOver(Picture2, water).count, 0) << "the map on screen stays";
        EXPECT_EQ(Picture3.Image().size(), Picture2.Image().size());
        const double line = azimuthal ? 700 : 1400; // height of a line in map units
        const double clock = azimuthal ? -20500 : -19600;
        EXPECT_GT(inkIn(Picture3, -21500, -19600, -17000, -19600 - line), 50);
        EXPECT_GT(inkIn(Picture3, 13000, clock, 18000, -22000), 50);
        EXPECT_EQ(inkIn(Picture3, 13000, -19500, 22000, -20400) == 0, azimuthal);
        EXPECT_EQ(inkIn(Picture3, -5000, -19500, 12900, -22000), 0);
        EXPECT_GT(inkIn(Picture3, -21500, clock, -15000, clock - line), 50);
        EXPECT_EQ(inkIn(Picture3, -22000, 22000, 22000, -19500), 0) << "nothing above";
        EXPECT_EQ(inkIn(Picture3, -22000, 22000, -21550, -22000), 0) << "nothing left of it";
    }
}

} // namespace
} // namespace tovrel
