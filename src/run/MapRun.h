#pragma once

#include "map/PictureSurface.h"
#include "platform/PassListener.h"
#include "platform/UserPrompt.h"
#include "run/MapWindow.h"
#include "run/RunData.h"

#include <QImage>
#include <optional>
#include <string>

namespace tovrel {

/// The map of a run: its two pictures and the ways in which they are made and put back.
class MapRun {
public:
    MapRun(RunData& data, MapWindow& window, PassListener& listener, UserPrompt& prompt);

    /// The base map with the compass, source of every redraw.
    PictureSurface Picture1;
    /// The map on screen: a stretch of Picture1, with graticule, home mark and plot on top.
    PictureSurface Picture2;

    /// Takes the cached base map of the projection, or builds one, with graticule and relief
    /// switched off, when there is none that can be shown.
    void LoadBaseMap();

    /// Draws the base map and caches it in its file. When that can't be written the picture serves
    /// from memory.
    void BuildBaseMap();

    /// Draws the base map without looking at the cache file or writing it.
    void drawBaseMapInMemory();

    /// Builds the base map anew after a change of its options, and stores them.
    void RebuildBaseMap();

    /// Puts the clean map back: base map, compass, and the overlays of Form_Resize. A plot is gone.
    void ResetMap();

    /// Takes the world picture of the relief from a file from now on. What can't be decoded changes
    /// nothing.
    void loadMapPix(const std::string& path);

    /// Fits Picture2 to the window and draws it anew from Picture1, with graticule and home mark.
    void Form_Resize();

    /// Gives the window the shape of the map in force.
    void SetWindowAspect();

    /// Reads the home station's position from the settings.
    void readHome();

    void DrawGraticule();
    void DrawHomeMarker();

private:
    std::string cachePath() const;
    /// Keeps the path of the custom world picture that the settings name for the first map of the
    /// run; a switch of projection keeps the picture.
    void noteCustomMap();
    const QImage& mapPix();
    void fitPicture2();

    RunData& data_;
    MapWindow& window_;
    PassListener& listener_;
    UserPrompt& prompt_;
    QImage baseMap_;                       ///< what Picture1 goes back to
    std::optional<std::string> customMap_; ///< path, empty for the built-in one
    QImage mapPix_;                        ///< the relief's world picture; null until it is needed
};

} // namespace tovrel
