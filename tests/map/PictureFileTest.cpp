#include "map/PictureFile.h"

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
        const std::optional<QImage> back = LoadPicture(folder.path(name));
        ASSERT_TRUE(back);
        EXPECT_EQ(back->format(), QImage::Format_RGB32);
        EXPECT_EQ(*back, checkered());
    }
    ASSERT_TRUE(SavePicture(checkered(), folder.path("x.png"), "PNG"));
    EXPECT_EQ(LoadPicture(folder.path("x.png")), checkered());
    ASSERT_TRUE(SavePicture(checkered(), folder.path("x.jpg"), "JPG"));
    EXPECT_EQ(LoadPicture(folder.path("x.jpg"))->size(), QSize(9, 7));
}

TEST(PictureFile, GivesNothingForWhatIsNoPicture) {
    const TestFolder folder;
    ASSERT_TRUE(SavePicture(checkered(), folder.path("good.bmp")));
    const std::string bitmap = folder.read("good.bmp");
    std::string huge = bitmap; // claims a million pixels square
    huge.replace(18, 8, std::string("\x40\x42\x0F\0\x40\x42\x0F\0", 8));
    const std::string cases[] = {
        "", "BM", "no picture at all", bitmap.substr(0, 30), huge, std::string(5000, '\xFF')};
    for (const std::string& bytes : cases)
        EXPECT_FALSE(LoadPicture(folder.write("bad.bmp", bytes))) << bytes.substr(0, 20);
    EXPECT_FALSE(LoadPicture(folder.path("none.bmp")));
    EXPECT_FALSE(LoadPicture(folder.path()));
    EXPECT_FALSE(LoadPicture(""));
}

TEST(PictureFile, AFailedSaveLeavesTheOldFileAlone) {
    const TestFolder folder;
    folder.write("map.bmp", "old");
    EXPECT_FALSE(SavePicture(checkered(), folder.path("map.bmp"), "NONE"));
    EXPECT_FALSE(SavePicture(QImage(), folder.path("map.bmp")));
    EXPECT_FALSE(SavePicture(checkered(), folder.path("missing/map.bmp")));
    {
        const ReadOnlyFolder locked(folder);
        EXPECT_FALSE(SavePicture(checkered(), folder.path("map.bmp")));
    }
    EXPECT_EQ(folder.read("map.bmp"), "old");
    EXPECT_EQ(folder.names(), "map.bmp ");
}

} // namespace
} // namespace tovrel
