#include "fuzz/Fuzz.h"
#include "map/BaseMapCache.h"
#include "map/MapColours.h"
#include "map/PictureFile.h"
#include "map/TopoOverlay.h"
#include "platform/TestDoubles.h"
#include "platform/TestFolder.h"

namespace tovrel {

/// A file that is taken for a base map from the cache and for the relief's picture of the world.
void tryInput(Input input) {
    static const TestFolder folder;
    const std::string path = folder.write("picture", input.rest());
    const CachedBaseMap cached = loadBaseMap(path);
    const QImage image = LoadPicture(path).image;
    require(!cached || cached.map.picture.image() == image, "a cached map is a picture");
    if (image.isNull())
        return;
    require(image.sizeInBytes() <= 512 << 20 && image.format() == QImage::Format_RGB32, "it fits");
    PictureSurface Picture1(600.0F, 600.0F);
    PictureSurface Picture2(450.0F, 300.0F);
    Picture1.setPicture(PackedPicture(image));
    Picture2.StretchBlt(Picture1);

    if (image.width() * image.height() > 10000)
        return; // each pixel takes its time
    SilentListener listener;
    ScriptedPrompt prompt;
    for (const Projection projection : allProjections) {
        TopoOverlay(Picture2, image, *worldMap(projection, 50.0F, 10.0F), land, {}, listener,
                    prompt);
    }
    const MapHome home = cached.map.home.value_or(MapHome{50.0F, 10.0F});
    require(bool(saveBaseMap({PackedPicture(image), 1, home}, folder.path("cache"))),
            "it can be saved");
    const KeptBaseMap again = loadBaseMap(folder.path("cache")).map;
    require(again.picture.image() == image && again.home == home, "it comes back from the cache");
}

} // namespace tovrel
