#include "run/MapRun.h"

#include "map/BaseMap.h"
#include "map/Overlays.h"
#include "map/PictureFile.h"
#include "map/WorldImage.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "plot/PlotRendering.h"

#include <optional>
#include <utility>

namespace tovrel {

namespace {

constexpr Colour defaultLand = 0xC0FFC0;
constexpr Colour defaultWater = 0xFECDA5;

// What a window of the map's width leaves beside the picture, in twips.
constexpr float besidePicture = 110.0F;

/// Questions with the default pointer; the wait pointer comes back when the user says yes.
class PointerPrompt : public UserPrompt {
public:
    PointerPrompt(UserPrompt& prompt, MapWindow& window) : prompt_(prompt), window_(window) {}

    void tell(const std::string& text, MessageIcon icon) override { prompt_.tell(text, icon); }

    bool ask(const Question& question) override {
        window_.setWaitPointer(false);
        const bool yes = prompt_.ask(question);
        window_.setWaitPointer(yes);
        return yes;
    }

private:
    UserPrompt& prompt_;
    MapWindow& window_;
};

} // namespace

MapRun::MapRun(RunData& data, MapWindow& window, PassListener& listener, UserPrompt& prompt)
    : Picture1(baseMapSize, baseMapSize), Picture2(Picture1), data_(data), window_(window),
      listener_(listener), prompt_(prompt), baseMap_(Picture1.Image()) {}

std::string MapRun::cachePath() const {
    return filePath(data_.ini.programFolder(), baseMapCacheName(data_.run.marks.projection));
}

void MapRun::noteCustomMap() {
    if (!customMap_) {
        customMap_ = data_.ini.ReadIniValue(sectionOf(data_.run.marks.projection), "BaseMap");
    }
}

const QImage& MapRun::mapPix() {
    if (mapPix_.isNull()) {
        loadMapPix(customMap_.value_or(std::string()));
    }
    if (mapPix_.isNull()) {
        mapPix_ = builtInWorld();
    }
    return mapPix_;
}

void MapRun::loadMapPix(const std::string& path) {
    if (std::optional<QImage> picture = LoadPicture(path)) {
        mapPix_ = std::move(*picture);
    }
}

void MapRun::LoadBaseMap() {
    noteCustomMap();
    Picture2.Cls();
    window_.CenterForm();
    if (std::optional<QImage> cached = LoadPicture(cachePath())) {
        baseMap_ = std::move(*cached);
        Picture1.setPicture(baseMap_);
        Form_Resize();
        return;
    }
    data_.run.marks.mnuMeridian = false;
    data_.run.marks.mnuTopo = false;
    data_.run.tellMarksChanged();
    BuildBaseMap();
}

void MapRun::BuildBaseMap() {
    drawBaseMapInMemory();
    SavePicture(baseMap_, cachePath());
    window_.setWaitPointer(false);
}

void MapRun::drawBaseMapInMemory() {
    noteCustomMap();
    const Projection projection = data_.run.marks.projection;
    const std::string_view section = sectionOf(projection);
    const BaseMapStyle style{.projection = projection,
                             .HomeLatitude = data_.run.HomeLatitude,
                             .HomeLongitude = data_.run.HomeLongitude,
                             .land = readColour(data_.ini, section, "LandColor", defaultLand),
                             .water = readColour(data_.ini, section, "WaterColor", defaultWater),
                             .relief = data_.run.marks.mnuTopo ? &mapPix() : nullptr};
    Picture2.Cls();
    window_.showMap();
    PointerPrompt prompt(prompt_, window_);
    if (!drawBaseMap(Picture1, style, data_.ini.programFolder(), listener_, prompt)) {
        data_.run.marks.mnuTopo = false;
        data_.run.tellMarksChanged();
    }
    baseMap_ = Picture1.Image();
}

void MapRun::RebuildBaseMap() {
    window_.setWaitPointer(true);
    BuildBaseMap();
    ResetMap();
    data_.maps.saveInForce();
    window_.setWaitPointer(false);
}

void MapRun::ResetMap() {
    data_.lneGCPlotLine.hide();
    Picture1.setPicture(baseMap_);
    const MenuMarks& marks = data_.run.marks;
    if (marks.azimuthal() && marks.mnuShowCompass) {
        DrawCompass(Picture1, {.step = marks.mnu15Degrees ? 15 : 45, .bold = marks.mnuBoldCompass});
    }
    Form_Resize();
}

void MapRun::Form_Resize() {
    const MapWindow::State state = window_.windowState();
    window_.followState(state);
    if (state != MapWindow::State::Normal) {
        return;
    }
    fitPicture2();
    Picture2.StretchBlt(Picture1);
    if (data_.run.marks.mnuMeridian) {
        DrawGraticule();
    }
    if (data_.run.marks.mnuShowMe) {
        DrawHomeMarker();
    }
    data_.lneGCPlotLine.hide();
    window_.showMap();
}

void MapRun::fitPicture2() {
    const bool azimuthal = data_.run.marks.azimuthal();
    if (azimuthal) {
        window_.setWidth(window_.ScaleHeight());
    }
    const float height = data_.run.FormReady ? window_.ScaleHeight() : Picture2.Height();
    // The picture is square before the base map is stretched over it, so that circles are round and
    // the marks lie where the base map has their places.
    Picture2.setSize(azimuthal ? height : window_.Width() - besidePicture, height);
}

void MapRun::SetWindowAspect() {
    data_.run.FormReady = false;
    if (data_.run.marks.azimuthal()) {
        window_.setWidth(window_.ScaleHeight());
    } else {
        window_.setHeight(window_.Width() / 2.0F);
    }
    data_.run.FormReady = true;
}

void MapRun::readHome() {
    data_.run.HomeLatitude = toSingle(data_.ini.readNumber(section::globals, "Latitude"));
    data_.run.HomeLongitude = toSingle(data_.ini.readNumber(section::globals, "Longitude"));
}

void MapRun::DrawGraticule() {
    tovrel::DrawGraticule(Picture2, data_.run.marks.projection, data_.run.HomeLatitude,
                          data_.run.HomeLongitude,
                          data_.stats.legend().colour(LegendEntry::Meridian), listener_);
    window_.showMap();
}

void MapRun::DrawHomeMarker() {
    const Projection projection = data_.run.marks.projection;
    if (projection == Projection::Miller) {
        readHome();
    }
    const Legend& legend = data_.stats.legend();
    tovrel::DrawHomeMarker(
        Picture2, homePosition(projection, data_.run.HomeLatitude, data_.run.HomeLongitude),
        dotWidths(data_.maps.inForce().marker), legend.colour(LegendEntry::PlotOutline),
        legend.colour(LegendEntry::Home));
    window_.showMap();
}

} // namespace tovrel
