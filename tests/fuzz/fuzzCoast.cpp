#include "fuzz/Fuzz.h"
#include "map/BaseMap.h"
#include "map/MapColours.h"
#include "platform/TestDoubles.h"
#include "platform/TestFolder.h"

namespace tovrel {

/// Lines of the sea's seed points up to an empty one, then the coastline.
void tryInput(Input input) {
    static const TestFolder folder;
    // A small map is drawn many times as fast, but the place where the land is filled lies off it.
    const int pixels = input.choice(64) == 1 ? 340 : 60;
    QImage world(36, 18, QImage::Format_RGB32);
    world.fill(Qt::red);
    const Projection projection = input.choice(2) == 0 ? Projection::Azimuthal : Projection::Miller;
    const QImage* const relief = input.choice(2) == 0 ? &world : nullptr;
    const auto latitude = static_cast<float>(input.choice(181) - 90);
    const std::string_view all = input.rest();
    while (!input.line().empty()) {
    }
    folder.write("paintma.txt", all.substr(0, all.size() - input.rest().size()));
    folder.write("mapper.pnt", input.rest());

    PictureSurface Picture1(twipsFromPixels(pixels), twipsFromPixels(pixels));
    SilentListener listener;
    ScriptedPrompt prompt;
    const std::unique_ptr<const WorldMap> map = worldMap(projection, latitude, 0.0F);
    const BaseMapStyle style{
        .map = map.get(), .land = land, .water = water, .relief = relief, .reliefLand = land};
    const BaseMapEnd end = drawBaseMap(Picture1, style, folder.path(), listener, prompt);
    require(!end.files.missing && !end.reliefRefused, "both files are there");
    require(end.files.unreadable != prompt.told.empty(), "a damaged coast is told");
}

} // namespace tovrel
