#include "map/TopoOverlay.h"

#include "map/MapColours.h"
#include "map/Pixels.h"
#include "map/WorldImage.h"
#include "platform/Numbers.h"
#include "platform/TestDoubles.h"

#include <QColor>
#include <cmath>

namespace tovrel {
namespace {

constexpr Colour relief = 0x123456; // red 0x56: swapped channels would show

/// A surface of one colour and an overlay on it.
struct Overlay {
    Overlay(int pixels, Colour colour) : surface(whiteSurface(pixels, pixels)) {
        surface.BackColor = colour;
        surface.Cls();
    }
    bool with(const QImage& mapPix, Projection projection = Projection::Miller) {
        return TopoOverlay(surface, mapPix, *worldMap(projection, 0.0F, 0.0F), land, {}, listener,
                           prompt);
    }

    PictureSurface surface;
    ScriptedListener listener;
    ScriptedPrompt prompt;
};

TEST(TopoOverlay, TellsItsCostAndDrawsNothingWhenItIsRefused) {
    Overlay refused(10, land);
    refused.prompt.answer = false;
    for (const auto& [width, total] : {std::pair{333, " 999 "}, {1620'000, " 4,860,000 "}}) {
        EXPECT_FALSE(refused.with(plainImage(width, 1, relief)));
        EXPECT_NE(refused.prompt.asked.back().text.find(total), std::string::npos) << total;
    }
    EXPECT_EQ(refused.prompt.asked.front().buttons, Question::Buttons::OkCancel);
    EXPECT_EQ(refused.listener.begun, 0) << "no progress window for what is not done";
    EXPECT_EQ(inkOver(refused.surface, land).count, 0);
}

TEST(TopoOverlay, TakesThePictureOnDefaultLandAndWhiteOnly) {
    for (const Projection projection : allProjections) {
        Overlay overlay(5, land);
        const Colour colours[] = {land, white, water, black, 0x80C0FF};
        for (int i = 0; i < 25; ++i)
            overlay.surface.SetPixel(i % 5, i / 5, colours[i % 5]);
        EXPECT_TRUE(overlay.with(plainImage(360, 180, relief), projection));
        for (int x = 0; x < 5; ++x)
            EXPECT_EQ(overlay.surface.GetPixel(x, 2), x < 2 ? relief : colours[x]);
    }
}

TEST(TopoOverlay, StretchesThePictureOverTheMillerMapAndTheFirstHitWins) {
    // Source columns 0 to 5 lie at 0, 0.5, 1, 1.5, 2 and 2.5: halves go to the even pixel.
    QImage mapPix = plainImage(6, 1, relief);
    for (int x = 0; x < 6; ++x)
        mapPix.setPixel(x, 0, imageColour(static_cast<Colour>(x + 1)));
    Overlay overlay(3, land);
    EXPECT_TRUE(overlay.with(mapPix));
    EXPECT_EQ(overlay.surface.GetPixel(0, 0), 1U);
    EXPECT_EQ(overlay.surface.GetPixel(1, 0), 3U) << "0.5 goes to pixel 0, which has its picture";
    EXPECT_EQ(overlay.surface.GetPixel(2, 0), 4U) << "1.5 comes before 2";
    EXPECT_EQ(overlay.surface.GetPixel(0, 1), 1U) << "no source pixel comes here: its own place";

    // All four corners of a picture go to one pixel; columns are walked outside.
    QImage corners = plainImage(2, 2, relief);
    corners.setPixel(0, 0, imageColour(white)); // still a matching colour: the next one counts
    corners.setPixel(0, 1, imageColour(0x0000AA));
    Overlay one(1, land);
    EXPECT_TRUE(one.with(corners));
    EXPECT_EQ(one.surface.GetPixel(0, 0), 0x0000AAU);
}

TEST(TopoOverlay, PutsPlacesWhereTheAzimuthalMapHasThem) {
    // Home at 0, 0; 500 units of the map a pixel. The picture has a pixel for each degree, and its
    // white leaves a place open to the next one. Round the antipode, from latitude 2 down, what is
    // cut off counts for the position projected last: that of latitude 3, in row 42.
    const struct {
        int longitude, latitude, x, y;
    } places[] = {{0, 45, 44, 34}, {90, 0, 64, 44}, {-90, 0, 24, 44}, {-180, 0, 44, 5}};
    for (const auto& place : places) {
        QImage mapPix = plainImage(360, 180, white);
        mapPix.setPixel(place.longitude + 180, 90 - place.latitude, imageColour(relief));
        Overlay overlay(88, land);
        EXPECT_TRUE(overlay.with(mapPix, Projection::Azimuthal));
        EXPECT_EQ(overlay.surface.GetPixel(place.x, place.y), relief) << place.longitude;
        // The rim shows nothing but the antipode, and what the rows leave open there is filled.
        EXPECT_EQ(inkOf(overlay.surface, relief).count > 1, place.longitude == -180);
    }
}

TEST(TopoOverlay, LeavesNoHoleWithinTheMap) {
    // Four pixels of the map for one of the picture, which has a colour of its own in each 10
    // degrees.
    QImage mapPix(360, 180, QImage::Format_RGB32);
    for (int y = 0; y < 180; ++y) {
        for (int x = 0; x < 360; ++x)
            mapPix.setPixel(x, y, qRgb(x / 10 * 5 + 10, y / 10 * 10 + 10, 0));
    }
    for (const Projection projection : {Projection::Azimuthal, Projection::Miller}) {
        Overlay overlay(720, land);
        EXPECT_TRUE(overlay.with(mapPix, projection));
        const bool round = projection == Projection::Azimuthal;
        const Ink holes = inkWhere(overlay.surface, [&](int x, int y, Colour found) {
            const double radius = std::hypot(overlay.surface.mapX(x), overlay.surface.mapY(y));
            return found == land && (!round || radius < MapRadius);
        });
        EXPECT_EQ(holes.count, 0);
        EXPECT_EQ(inkOf(overlay.surface, land).count > 0, round) << "outside the map";
        if (!round)
            continue; // stretched over the whole surface
        const auto map = worldMap(projection, 0.0F, 0.0F);
        for (const auto& [latitude, longitude] : {std::pair{44.0F, 63.0F}, {-75, -33}, {5, 125}}) {
            const auto at = std::get<MapPoint>(map->position(latitude, longitude));
            EXPECT_EQ(
                imageColour(colourAt(overlay.surface, at.x, at.y)),
                mapPix.pixel(static_cast<int>(longitude) + 180, 90 - static_cast<int>(latitude)));
        }
    }
}

TEST(TopoOverlay, ReportsAtEvery5000thSourcePixel) {
    Overlay overlay(3, water);
    std::vector<std::string> seen;
    overlay.listener.onYield = [&](int) { seen.push_back(overlay.listener.status); };
    EXPECT_TRUE(overlay.with(plainImage(101, 100, relief)));
    EXPECT_EQ(overlay.listener.maximum, 30300.0F);
    EXPECT_FALSE(overlay.listener.open);
    // The counter goes up by 3 and is shown at the multiples of 5000 that it meets.
    ASSERT_EQ(seen.size(), 2U + 3U) << "and at each row of what no source pixel falls on";
    EXPECT_EQ(seen[0], "15,000 of 30,300 complete.");
    EXPECT_EQ(seen[1], "30,000 of 30,300 complete.");
    EXPECT_EQ(overlay.listener.progress, (std::vector<float>{0, 15000, 30000}));
}

TEST(WorldImage, ShowsTheWorldTheRightWayUp) {
    const QImage world = builtInWorld();
    ASSERT_EQ(world.size(), QSize(1800, 900));
    const auto at = [&world](int longitude, int latitude) {
        return QColor(world.pixel((longitude + 180) * 5, (90 - latitude) * 5));
    };
    EXPECT_GT(at(-30, 0).blue(), at(-30, 0).red() + 50) << "the Atlantic";
    EXPECT_GT(at(15, 25).red(), at(15, 25).blue() + 30) << "the Sahara";
    EXPECT_GT(at(60, -85).red(), 150) << "Antarctica";
}

} // namespace
} // namespace tovrel
