#include "map/TopoOverlay.h"

#include "map/WorldImage.h"
#include "platform/Numbers.h"
#include "platform/Twips.h"

#include <QColor>
#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tovrel {
namespace {

constexpr Colour land = 0xC0FFC0;
constexpr Colour white = 0xFFFFFF;
constexpr Colour water = 0xFECDA5;
constexpr Colour black = 0x000000;
constexpr Colour otherLand = 0x80C0FF;

class ScriptedPrompt : public UserPrompt {
public:
    explicit ScriptedPrompt(bool answer) : answer_(answer) {}
    void tell(const std::string& /*text*/, MessageIcon /*icon*/) override {}
    bool ask(const Question& question) override {
        asked.push_back(question);
        return answer_;
    }
    std::vector<Question> asked;

private:
    bool answer_;
};

class ScriptedListener : public PassListener {
public:
    void beginPass(std::string_view caption, std::string_view /*status*/, float maximum) override {
        calls.push_back(std::string(caption) + " to " + wholeText(maximum));
    }
    void showStatus(std::string_view status) override { calls.emplace_back(status); }
    void showProgress(float value) override { calls.push_back(wholeText(value)); }
    void endPass() override { calls.emplace_back("end"); }
    void yield() override { calls.emplace_back("yield"); }
    std::vector<std::string> calls;

private:
    static std::string wholeText(float value) { return std::to_string(roundToInt(value)); }
};

QImage plainImage(int width, int height, Colour colour) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(imageColour(colour));
    return image;
}

PictureSurface surfaceOf(int pixels, Colour colour) {
    PictureSurface surface(twipsFromPixels(pixels), twipsFromPixels(pixels));
    surface.BackColor = colour;
    surface.Cls();
    return surface;
}

bool overlay(PictureSurface& surface, const QImage& mapPix, Projection projection,
             HomePosition home = {}) {
    GreatCircle greatCircle(home);
    ScriptedListener listener;
    ScriptedPrompt prompt(true);
    return TopoOverlay(surface, mapPix, projection, greatCircle, listener, prompt);
}

TEST(TopoOverlay, AsksInItsOwnWords) {
    PictureSurface surface = surfaceOf(10, land);
    GreatCircle greatCircle({});
    ScriptedListener listener;
    ScriptedPrompt prompt(false);
    EXPECT_FALSE(TopoOverlay(surface, plainImage(1800, 900, black), Projection::Miller, greatCircle,
                             listener, prompt));

    ASSERT_EQ(prompt.asked.size(), 1U);
    const Question& question = prompt.asked.front();
    EXPECT_EQ(question.title, "QRX ...");
    EXPECT_EQ(question.buttons, Question::Buttons::OkCancel);
    EXPECT_EQ(question.icon, MessageIcon::Exclamation);
    EXPECT_EQ(
        question.text,
        "This is very complicated.  You have requested a colored topographical map overlay.  "
        "To do this, I have to calculate 4,860,000 spatial trigonometric calculations.  It'll "
        "take a couple of minutes...\r\n\r\nIf you want to wait that long, click on OK, "
        "otherwise click CANCEL, and I wont do the calculations.");
    EXPECT_TRUE(listener.calls.empty()) << "no progress window for what is not done";
    EXPECT_EQ(surface.Image(), surfaceOf(10, land).Image());
}

TEST(TopoOverlay, GroupsTheTotalByThousands) {
    const struct {
        int width;
        int height;
        const char* total;
    } cases[] = {{1, 1, " 3 "}, {111, 3, " 999 "}, {334, 1, " 1,002 "}, {400, 1000, " 1,200,000 "}};
    for (const auto& c : cases) {
        PictureSurface surface = surfaceOf(2, water);
        GreatCircle greatCircle({});
        ScriptedListener listener;
        ScriptedPrompt prompt(false);
        TopoOverlay(surface, plainImage(c.width, c.height, black), Projection::Miller, greatCircle,
                    listener, prompt);
        EXPECT_NE(prompt.asked.at(0).text.find(c.total), std::string::npos) << c.total;
    }
}

TEST(TopoOverlay, TakesThePictureOnDefaultLandAndWhiteOnly) {
    constexpr Colour relief = 0x123456; // red 0x56: swapped channels would show
    for (const Projection projection : {Projection::Azimuthal, Projection::Miller}) {
        PictureSurface surface = surfaceOf(5, land);
        for (int y = 0; y < 5; ++y) {
            surface.SetPixel(1, y, white);
            surface.SetPixel(2, y, water);
            surface.SetPixel(3, y, black);
            surface.SetPixel(4, y, otherLand);
        }
        EXPECT_TRUE(overlay(surface, plainImage(360, 180, relief), projection));
        EXPECT_EQ(surface.GetPixel(0, 2), relief);
        EXPECT_EQ(surface.GetPixel(1, 2), relief);
        EXPECT_EQ(surface.GetPixel(2, 2), water);
        EXPECT_EQ(surface.GetPixel(3, 2), black);
        EXPECT_EQ(surface.GetPixel(4, 2), otherLand);
    }
}

TEST(TopoOverlay, StretchesThePictureOverTheMillerMapHalvesGoingToTheEvenPixel) {
    // Source columns 0 to 5 lie at 0, 0.5, 1, 1.5, 2 and 2.5.
    QImage mapPix = plainImage(6, 1, black);
    for (int x = 0; x < 6; ++x) {
        mapPix.setPixel(x, 0, imageColour(static_cast<Colour>(x + 1)));
    }
    PictureSurface surface = surfaceOf(3, land);
    EXPECT_TRUE(overlay(surface, mapPix, Projection::Miller));
    EXPECT_EQ(surface.GetPixel(0, 0), 1U);
    EXPECT_EQ(surface.GetPixel(1, 0), 3U) << "0.5 goes to pixel 0, which has its picture";
    EXPECT_EQ(surface.GetPixel(2, 0), 4U) << "1.5 comes before 2";
    EXPECT_EQ(surface.GetPixel(0, 1), land) << "no source pixel comes here";
}

TEST(TopoOverlay, WalksColumnsOutsideSoThatTheFirstHitWins) {
    // All four corners of the picture go to the one pixel of the surface.
    QImage mapPix = plainImage(2, 2, black);
    mapPix.setPixel(0, 0, imageColour(white)); // still a matching colour: the next one counts
    mapPix.setPixel(0, 1, imageColour(0x0000AA));
    mapPix.setPixel(1, 0, imageColour(0x00BB00));
    PictureSurface surface = surfaceOf(1, land);
    EXPECT_TRUE(overlay(surface, mapPix, Projection::Miller));
    EXPECT_EQ(surface.GetPixel(0, 0), 0x0000AAU);
}

TEST(TopoOverlay, PutsPlacesWhereTheAzimuthalMapHasThem) {
    // Home at 0, 0; 500 units of the map a pixel. The picture has a pixel for each degree.
    const struct {
        int longitude;
        int latitude;
        int x;
        int y;
    } places[] = {
        {0, 0, 44, 44}, {0, 45, 44, 34}, {0, -45, 44, 54}, {90, 0, 64, 44}, {-90, 0, 24, 44}};
    for (const auto& place : places) {
        QImage mapPix = plainImage(360, 180, white);
        mapPix.setPixel(place.longitude + 180, 90 - place.latitude, imageColour(0x0000FF));
        PictureSurface surface = surfaceOf(88, water);
        surface.SetPixel(place.x, place.y, land);
        EXPECT_TRUE(overlay(surface, mapPix, Projection::Azimuthal));
        EXPECT_EQ(surface.GetPixel(place.x, place.y), 0x0000FFU)
            << place.longitude << ", " << place.latitude;
    }
}

TEST(TopoOverlay, CutOffPixelsCountForThePositionProjectedLast) {
    // Seen from 0, 0 the first column runs through the antipode: latitude 3 is the last that is
    // shown, latitudes 2 to -2 are cut off. White rows leave the target open to the next one.
    const HomePosition home = homePosition(Projection::Azimuthal, 0.0F, 0.0F);
    QImage mapPix = plainImage(360, 180, white);
    mapPix.setPixel(0, 90, imageColour(0x0000FF));
    GreatCircle lastShown(home);
    int mode = 0;
    lastShown.ProjectAzimuthal(3.0F, -180.0F, mode);
    ASSERT_EQ(mode, 0);
    PictureSurface surface = surfaceOf(88, water);
    const int x = roundToInt(surface.pixelX(lastShown.ProjX));
    const int y = roundToInt(surface.pixelY(lastShown.ProjY));
    surface.SetPixel(x, y, land);
    EXPECT_TRUE(overlay(surface, mapPix, Projection::Azimuthal, home));
    EXPECT_EQ(surface.GetPixel(x, y), 0x0000FFU);
}

TEST(TopoOverlay, ReportsAtEvery5000thSourcePixel) {
    PictureSurface surface = surfaceOf(3, water);
    GreatCircle greatCircle({});
    ScriptedListener listener;
    ScriptedPrompt prompt(true);
    EXPECT_TRUE(TopoOverlay(surface, plainImage(101, 100, black), Projection::Miller, greatCircle,
                            listener, prompt));
    // The counter goes up by 3 and is shown at the multiples of 5000 that it meets.
    const std::vector<std::string> expected{"Colored Topographical Calculations to 30300",
                                            "15,000 of 30,300 complete.",
                                            "15000",
                                            "yield",
                                            "30,000 of 30,300 complete.",
                                            "30000",
                                            "yield",
                                            "end"};
    EXPECT_EQ(listener.calls, expected);
}

TEST(TopoOverlay, PicturesOfOddSizeDoNoHarm) {
    const QSize sizes[] = {{1, 1}, {3, 2}, {1, 500}, {500, 1}, {0, 0}};
    for (const QSize& size : sizes) {
        for (const Projection projection : {Projection::Azimuthal, Projection::Miller}) {
            PictureSurface surface = surfaceOf(7, water);
            EXPECT_TRUE(overlay(surface, plainImage(size.width(), size.height(), black), projection,
                                homePosition(Projection::Azimuthal, 90.0F, 180.0F)));
            EXPECT_EQ(surface.Image(), surfaceOf(7, water).Image());
        }
    }
}

TEST(WorldImage, ShowsTheWorldTheRightWayUp) {
    const QImage world = builtInWorld();
    ASSERT_EQ(world.size(), QSize(1800, 900));
    EXPECT_EQ(world.format(), QImage::Format_RGB32);
    const auto at = [&world](int longitude, int latitude) {
        return QColor(world.pixel((longitude + 180) * 5, (90 - latitude) * 5));
    };
    EXPECT_GT(at(-30, 0).blue(), at(-30, 0).red() + 50) << "the Atlantic";
    EXPECT_GT(at(15, 25).red(), at(15, 25).blue() + 30) << "the Sahara";
    EXPECT_GT(at(-60, -5).green(), at(-60, -5).blue() + 30) << "the Amazon";
    EXPECT_GT(std::min({at(60, -85).red(), at(60, -85).green(), at(60, -85).blue()}), 150)
        << "Antarctica";
}

} // namespace
} // namespace tovrel
