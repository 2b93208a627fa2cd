#include "map/PictureFile.h"
#include "map/BaseMapCache.h"

#include "platform/TestFolder.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

QImage checkered() {
    QImage image(9, 7, QImage::Format_RGB32);
    for (int i = 0; i < 9 * 7; ++i)
        image.setPixel(i % 9, i / 9, i % 2 ? qRgb(1, 2, 3) : qRgb(250, 100, 40));
    return image;
}

TEST(PictureFile, IsKnownByItsContentAndNotByItsName) {
    const TestFolder folder;
    for (const auto& [format, magic] : {std::pair{"JPG", "\xFF\xD8"}, {"PNG", "\x89PNG"}}) {
        ASSERT_TRUE(SavePicture(checkered(), folder.path("x.bmp"), format));
        EXPECT_TRUE(folder.read("x.bmp").starts_with(magic));
        EXPECT_EQ(LoadPicture(folder.path("x.bmp")).image.size(), QSize(9, 7)) << format;
    }
}

TEST(PictureFile, TellsWhatIsNoPictureFromNone) {
    const TestFolder folder;
    ASSERT_TRUE(SavePicture(checkered(), folder.path("good.bmp")));
    const std::string bitmap = folder.read("good.bmp");
    std::string huge = bitmap; // claims 12,000 pixels square
    huge.replace(18, 8, std::string("\xE0\x2E\0\0\xE0\x2E\0\0", 8));
    std::string endless = bitmap; // claims more than can be counted in 64 bits
    endless.replace(18, 8, "\xFF\xFF\xFF\x7F\xFF\xFF\xFF\x7F");
    endless.replace(28, 2, "\xFF\xFF");
    for (const std::string& bytes : {std::string(), bitmap.substr(0, 30), huge, endless}) {
        const LoadedPicture bad = LoadPicture(folder.write("bad.bmp", bytes));
        EXPECT_EQ(bad.end, ReadEnd::Unreadable) << bytes.size();
        EXPECT_EQ(bad.reason == "The picture takes more than 512 MiB of memory", bytes == huge);
        EXPECT_FALSE(bad.reason.empty());
        EXPECT_EQ(loadBaseMap(folder.path("bad.bmp")).end, ReadEnd::Unreadable);
    }
    EXPECT_EQ(LoadPicture(folder.path("none.bmp")).end, ReadEnd::Missing);
    EXPECT_EQ(LoadPicture(folder.path()).reason, "Is a directory");

    // The missing part of a bitmap is black.
    const std::string partly = folder.write("part.bmp", bitmap.substr(0, bitmap.size() - 1));
    EXPECT_EQ(LoadPicture(partly).image.pixel(8, 0), qRgb(0, 0, 0));
    EXPECT_EQ(loadBaseMap(partly).end, ReadEnd::Unreadable);
    const std::string longer = folder.write("long.bmp", bitmap + "x");
    EXPECT_EQ(loadBaseMap(longer).end, ReadEnd::Unreadable);
}

TEST(BaseMapCache, KeepsHomeAndResolutionWithThePicture) {
    const TestFolder folder;
    const std::string path = folder.path("GCBaseMap.map");
    EXPECT_FALSE(loadBaseMap(path).map.home);
    const std::optional<MapHome> homes[] = {MapHome{-33.87F, 151.2F},
                                            MapHome{-1.1754944e-38F, -1.1754944e-38F},
                                            MapHome{0.0F, 1e-7F}, std::nullopt};
    for (const std::optional<MapHome>& home : homes) {
        ASSERT_TRUE(saveBaseMap({PackedPicture(checkered()), 3, home}, path));
        const KeptBaseMap back = loadBaseMap(path).map;
        EXPECT_EQ(back.home, home);
        EXPECT_EQ(back.resolution, 3);
        EXPECT_EQ(back.picture.image(), checkered());
        EXPECT_EQ(LoadPicture(path).image, checkered()) << "a picture like any other";
        const std::string bytes = folder.read("GCBaseMap.map");
        EXPECT_FALSE(loadBaseMap(folder.write("cut", bytes.substr(0, bytes.size() - 1))));
    }
    ASSERT_TRUE(SavePicture(checkered(), path));
    EXPECT_EQ(loadBaseMap(path).map.picture.image(), checkered()) << "a plain bitmap";
    EXPECT_EQ(loadBaseMap(path).map.resolution, 1);
    QImage many(100, 100, QImage::Format_RGB32); // more colours than a table holds
    for (int i = 0; i < 10000; ++i)
        many.setPixel(i % 100, i / 100, qRgb(i % 251, i / 40, 7));
    ASSERT_TRUE(saveBaseMap({PackedPicture(many), 2, {}}, path));
    EXPECT_EQ(loadBaseMap(path).map.picture.image(), many);
}

} // namespace
} // namespace tovrel
