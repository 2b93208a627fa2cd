#include "run/MapPictures.h"

#include "map/Overlays.h"
#include "map/PictureFile.h"
#include "map/WorldImage.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "platform/Twips.h"
#include "plot/PlotRendering.h"
#include "state/MapColours.h"
#include "state/StationInfo.h"

#include <optional>
#include <utility>

namespace tovrel {

namespace {

/// Questions with the default pointer; the wait pointer comes back when the user says yes.
class PointerPrompt : public ForwardingPrompt {
public:
    PointerPrompt(UserPrompt& prompt, MapScreen& screen)
        : ForwardingPrompt(prompt), screen_(screen) {}

    bool ask(const Question& question) override {
        screen_.setWaitPointer(false);
        const bool yes = ForwardingPrompt::ask(question);
        screen_.setWaitPointer(yes);
        return yes;
    }

private:
    MapScreen& screen_;
};

/// Answers a question that the user has answered before with yes.
class ConsentingPrompt : public ForwardingPrompt {
public:
    using ForwardingPrompt::ForwardingPrompt;

    bool ask(const Question& /*question*/) override { return true; }
};

} // namespace

MapPictures::MapPictures(RunData& data, MapScreen& screen, PassListener& listener,
                         UserPrompt& prompt)
    : Picture1(baseMapSize, baseMapSize), Picture2(twipsPerPixel, twipsPerPixel), data_(data),
      screen_(screen), listener_(listener), prompt_(prompt) {}

std::string MapPictures::cachePath() const {
    return filePath(data_.ini.programFolder(), data_.mapNames().cacheFile);
}

/// The home that the base map in force was drawn for; nothing where it does not depend on one.
std::optional<MapHome> MapPictures::mapHome() const {
    return data_.map()->centredOnHome()
               ? std::optional(MapHome{data_.run.HomeLatitude, data_.run.HomeLongitude})
               : std::nullopt;
}

int MapPictures::neededResolution() const {
    return resolutionFor(screen_.mostPixels(data_.map()->shape()));
}

void MapPictures::noteCustomMap() {
    if (!customMap_) {
        customMap_ = data_.ini.readPath(data_.mapNames().section, "BaseMap");
    }
}

/// @param end is told when the custom picture can't be used
const QImage& MapPictures::mapPix(BaseMapEnd& end) {
    if (mapPix_.isNull() && !loadMapPix(customMap_.value_or(std::string()))) {
        end.files.unreadable = true;
    }
    if (mapPix_.isNull()) {
        mapPix_ = builtInWorld();
    }
    return mapPix_;
}

bool MapPictures::loadMapPix(const std::string& path) {
    LoadedPicture picture = LoadPicture(path);
    if (picture) {
        mapPix_ = std::move(picture.image);
    } else if (picture.end == ReadEnd::Unreadable) {
        prompt_.tellFailure(
            {FileFailure::Act::Use, "The picture could not be used.", path, picture.reason});
    }
    return picture.end != ReadEnd::Unreadable;
}

void MapPictures::LoadBaseMap() {
    noteCustomMap();
    Picture2.Cls();
    const bool settingsServe = !data_.ini.isOutOfReach();
    CachedBaseMap cached = settingsServe ? loadBaseMap(cachePath()) : CachedBaseMap();
    const int resolution = neededResolution();
    const int across = baseMapPixels(resolution);
    const bool fits = cached && cached.map.resolution == resolution &&
                      cached.map.picture.size() == QSize(across, across);
    if (fits && (!cached.map.home || cached.map.home == mapHome())) {
        baseMap_ = std::move(cached.map);
        return;
    }
    if (cached.end == ReadEnd::Missing) {
        data_.run.marks.mnuMeridian = false;
        data_.run.marks.mnuTopo = false;
        data_.run.marksChanged();
        BuildBaseMap();
        return;
    }
    rebuildInSilence();
}

void MapPictures::rebuildInSilence() {
    SilentListener silence;
    ConsentingPrompt consent(prompt_);
    cacheBaseMap(drawBaseMap(silence, consent));
}

void MapPictures::BuildBaseMap() {
    cacheBaseMap(drawBaseMapInMemory());
    screen_.setWaitPointer(false);
}

BaseMapEnd MapPictures::drawBaseMapInMemory() {
    PointerPrompt prompt(prompt_, screen_);
    return drawBaseMap(listener_, prompt);
}

BaseMapEnd MapPictures::drawBaseMap(PassListener& listener, UserPrompt& prompt) {
    Picture2.Cls();
    showMap();
    if (const int resolution = neededResolution(); Picture1.resolution() != resolution)
        Picture1.setSize(baseMapSize, baseMapSize, resolution);
    const BaseMapEnd end = drawBaseMapOn(Picture1, listener, prompt);
    if (end.reliefRefused) {
        data_.run.marks.mnuTopo = false;
        data_.run.marksChanged();
    }
    baseMap_ = {PackedPicture(Picture1.Image()), static_cast<int>(Picture1.resolution()),
                mapHome()};
    return end;
}

/// Draws the base map that is switched on a surface of its size.
BaseMapEnd MapPictures::drawBaseMapOn(PictureSurface& surface, PassListener& listener,
                                      UserPrompt& prompt) {
    noteCustomMap();
    const auto colour = [this](MapColour which) {
        return readColour(data_.ini, data_.run.marks.projection, which, keyOf(which).byDefault);
    };
    const std::unique_ptr<const WorldMap> map = data_.map();
    BaseMapEnd custom;
    const BaseMapStyle style{.map = map.get(),
                             .land = colour(MapColour::Land),
                             .water = colour(MapColour::Water),
                             .relief = data_.run.marks.mnuTopo ? &mapPix(custom) : nullptr,
                             .reliefLand = keyOf(MapColour::Land).byDefault};
    BaseMapEnd end =
        tovrel::drawBaseMap(surface, style, data_.ini.programFolder(), listener, prompt);
    end.files.unreadable |= custom.files.unreadable;
    return end;
}

void MapPictures::addCompass(PictureSurface& surface) const {
    const MenuMarks& marks = data_.run.marks;
    if (data_.mapNames().compass && marks.mnuShowCompass) {
        DrawCompass(surface, {.step = marks.mnu15Degrees ? 15 : 45, .bold = marks.mnuBoldCompass});
    }
}

void MapPictures::drawAnew(PictureSurface& picture, PassListener& listener) {
    const std::unique_ptr<const WorldMap> map = data_.map();
    {
        PictureSurface base(baseMapSize, baseMapSize, resolutionFor(picture.pixelWidth()));
        ConsentingPrompt consent(prompt_);
        drawBaseMapOn(base, listener, consent);
        addCompass(base);
        picture.StretchBlt(base);
    }
    for (const MapLayer& layer : Picture2.layers) {
        drawLayer(layer, *map, data_.tables, picture, listener);
    }
    if (const PlotLine::Shape& line = data_.lneGCPlotLine.shape(); line.visible) {
        picture.LineWidth = line.width;
        picture.CurrentX = line.fromX;
        picture.CurrentY = line.fromY;
        picture.Line(line.toX, line.toY, line.colour);
    }
}

void MapPictures::cacheBaseMap(const BaseMapEnd& end) {
    if (end.files.unreadable || data_.ini.isOutOfReach()) {
        return;
    }
    if (const WriteEnd saved = saveBaseMap(baseMap_, cachePath()); !saved) {
        prompt_.tellFailure({FileFailure::Act::Write, "The base map could not be stored.",
                             cachePath(), saved.reason});
    }
}

void MapPictures::RebuildBaseMap() {
    screen_.setWaitPointer(true);
    BuildBaseMap();
    ResetMap();
    data_.maps.saveInForce();
    screen_.setWaitPointer(false);
}

void MapPictures::ResetMap() {
    data_.lneGCPlotLine.hide();
    Picture1.setPicture(baseMap_.picture, baseMap_.resolution);
    addCompass(Picture1);
    Form_Resize();
}

void MapPictures::Form_Resize() {
    if (screen_.isUnseen()) {
        fitAgain();
        return;
    }
    if (data_.run.FormReady) {
        fittedTo_ = screen_.area();
        place_ = MapFit(fittedTo_, data_.map()->shape());
        Picture2.setSize(place_.width, place_.height, static_cast<double>(fittedTo_.ratio));
    }
    Picture2.StretchBlt(Picture1);
    Picture2.layers.clear();
    if (data_.run.marks.mnuMeridian) {
        DrawGraticule();
    }
    if (data_.run.marks.mnuShowMe) {
        DrawHomeMarker();
    }
    data_.lneGCPlotLine.hide();
    showMap();
}

void MapPictures::followSize() {
    if (screen_.area() == fittedTo_) {
        return;
    }
    if (neededResolution() > Picture1.resolution()) {
        rebuildInSilence();
        ResetMap();
    } else {
        Form_Resize();
    }
}

void MapPictures::addLayer(const MapLayer& layer) {
    Picture2.layers.push_back(layer);
    drawLayer(layer, *data_.map(), data_.tables, Picture2, listener_);
    showMap();
}

void MapPictures::DrawGraticule() {
    data_.stats.load();
    addLayer(GraticuleLayer{data_.stats.legend().colour(MapColour::Meridian)});
}

void MapPictures::DrawHomeMarker() {
    // Where the map does not depend on it, the home of this moment counts.
    if (!data_.map()->centredOnHome()) {
        readHome(data_.ini, data_.run);
    }
    data_.stats.load();
    const Legend& legend = data_.stats.legend();
    addLayer(HomeLayer{data_.map()->home(), dotWidths(data_.maps.inForce().marker),
                       legend.colour(MapColour::PlotOutline), legend.colour(MapColour::Home)});
}

} // namespace tovrel
