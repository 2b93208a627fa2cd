#include "map/PictureFile.h"
#include "map/BaseMapCache.h"

#include "platform/TestFolder.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

QImage checkered() {
    QImage image(9, 7, QImage::Format_RGB32);
    for (int y = 0; y < 7; ++y) {
        for (int x = 0; x < 9; ++x)
            image.setPixel(x, y, (x + y) % 2 ? qRgb(1, 2, 3) : qRgb(250, 100, 40));
    }
    return image;
}

TEST(PictureFile, KeepsEveryPixelInABitmapOfAnyName) {
    const TestFolder folder;
    for (const char* name : {"GCBaseMap.map", "x.bmp"}) {
        ASSERT_TRUE(SavePicture(checkered(), folder.path(name)));
        EXPECT_EQ(folder.read(name).substr(0, 2), "BM");
        const LoadedPicture back = LoadPicture(folder.path(name));
        ASSERT_TRUE(back) << back.reason;
        EXPECT_EQ(back.image.format(), QImage::Format_RGB32);
        EXPECT_EQ(back.image, checkered());
        EXPECT_TRUE(loadBaseMap(folder.path(name)).picture);
    }
    ASSERT_TRUE(SavePicture(checkered(), folder.path("x.png"), "PNG"));
    EXPECT_EQ(LoadPicture(folder.path("x.png")).image, checkered());
    ASSERT_TRUE(SavePicture(checkered(), folder.path("x.jpg"), "JPG"));
    EXPECT_EQ(LoadPicture(folder.path("x.jpg")).image.size(), QSize(9, 7));
}

TEST(PictureFile, TellsWhatIsNoPictureFromNone) {
    const TestFolder folder;
    ASSERT_TRUE(SavePicture(checkered(), folder.path("good.bmp")));
    const std::string bitmap = folder.read("good.bmp");
    std::string huge = bitmap; // claims 12,000 pixels square
    huge.replace(18, 8, std::string("\xE0\x2E\0\0\xE0\x2E\0\0", 8));
    const std::string cases[] = {
        "", "BM", "no picture at all", bitmap.substr(0, 30), huge, std::string(5000, '\xFF')};
    for (const std::string& bytes : cases) {
        const LoadedPicture bad = LoadPicture(folder.write("bad.bmp", bytes));
        EXPECT_EQ(bad.end, ReadEnd::Unreadable) << bytes.substr(0, 20);
        EXPECT_FALSE(bad.reason.empty());
    }
    EXPECT_EQ(LoadPicture(folder.write("bad.bmp", huge)).reason,
              "The picture takes more than 512 MiB of memory");
    EXPECT_EQ(LoadPicture(folder.path("none.bmp")).end, ReadEnd::Missing);
    EXPECT_EQ(LoadPicture("").end, ReadEnd::Missing);
    EXPECT_EQ(LoadPicture(folder.path()).reason, "Is a directory");

    // The missing part of a bitmap is black.
    const std::string partly = folder.write("part.bmp", bitmap.substr(0, bitmap.size() - 1));
    EXPECT_EQ(LoadPicture(partly).image.pixel(8, 0), qRgb(0, 0, 0));
    EXPECT_EQ(loadBaseMap(partly).picture.end, ReadEnd::Unreadable);
    const std::string longer = folder.write("long.bmp", bitmap + "x");
    EXPECT_EQ(loadBaseMap(longer).picture.end, ReadEnd::Unreadable);
}

TEST(BaseMapCache, KeepsTheHomeAfterThePicture) {
    const TestFolder folder;
    const std::string path = folder.path("GCBaseMap.map");
    EXPECT_FALSE(loadBaseMap(path).home);
    for (const MapHome& home : {MapHome{-33.87F, 151.2F}, MapHome{0.0F, 0.0F},
                                MapHome{1e-7F, -0.1F}, MapHome{-1.1754944e-38F, -1.1754944e-38F}}) {
        ASSERT_TRUE(saveBaseMap(checkered(), home, path));
        const CachedBaseMap back = loadBaseMap(path);
        EXPECT_EQ(back.home, home);
        EXPECT_EQ(back.picture.image, checkered());
        EXPECT_EQ(LoadPicture(path).image, checkered()) << "a bitmap like any other";
        const std::string bytes = folder.read("GCBaseMap.map");
        EXPECT_FALSE(loadBaseMap(folder.write("cut", bytes.substr(0, bytes.size() - 1))).picture);
    }
    ASSERT_TRUE(saveBaseMap(checkered(), std::nullopt, path));
    EXPECT_FALSE(loadBaseMap(path).home);
}

} // namespace
} // namespace tovrel
