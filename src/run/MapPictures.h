#pragma once

#include "map/BaseMap.h"
#include "map/BaseMapCache.h"
#include "map/PictureSurface.h"
#include "platform/PassListener.h"
#include "platform/UserPrompt.h"
#include "plot/MapLayers.h"
#include "run/MapWindow.h"
#include "run/RunData.h"

#include <QImage>
#include <optional>
#include <string>

namespace tovrel {

/// The map of a run: its two pictures and the ways in which they are made and put back.
class MapPictures {
public:
    /// All have to outlive this object. The pictures are white until a base map is loaded or drawn.
    MapPictures(RunData& data, MapScreen& screen, PassListener& listener, UserPrompt& prompt);

    /// The base map with the compass, source of every redraw.
    PictureSurface Picture1;
    /// The map on screen: a stretch of Picture1, with graticule, home mark and plot on top.
    LayeredPicture Picture2;

    /// Takes the cached base map of the projection, to be shown by ResetMap(), or builds one, with
    /// graticule and relief switched off, when there is none. A cache file that is no whole base
    /// map, one of another resolution than the screen needs, or the azimuthal one of another home,
    /// is built anew with all as it is switched, without a question or a word. While the settings
    /// are out of reach no cache file is looked at or written: it belongs to a home that is not
    /// known.
    void LoadBaseMap();

    /// Draws the base map and caches it in its file. When that can't be written the user is told
    /// and the picture serves from memory; a map that lacks a data file that could not be read is
    /// not cached either.
    void BuildBaseMap();

    /// Draws the base map without looking at the cache file or writing it.
    /// @return whether all data files and the custom world picture could be read
    BaseMapEnd drawBaseMapInMemory();

    /// Builds the base map anew after a change of its options, and stores them.
    void RebuildBaseMap();

    /// Puts the clean map back: base map, compass, and the overlays of Form_Resize. A plot is gone.
    void ResetMap();

    /// Takes the world picture of the relief from a file from now on. One that is missing changes
    /// nothing, nor does one that can't be used, which the user is told.
    /// @return false when it can't be used
    bool loadMapPix(const std::string& path);

    /// Fits Picture2 to the window and draws it anew from Picture1, with graticule and home mark.
    /// While nobody can see it, that is left to the next followSize().
    void Form_Resize();

    /// The same if the window has another size than the picture was fitted to. On a screen that
    /// needs a finer base map that is drawn first, in silence.
    void followSize();

    /// The next followSize() draws in any case, as when the window was maximized or restored.
    void fitAgain() { fittedTo_ = {}; }

    /// What is drawn on Picture2 reaches the screen.
    void showMap() { screen_.showMap(place_); }

    /// Draws meridians and parallels over what is on Picture2, in the colour of the key, whether
    /// the menu has them on or not, and shows that. Events run meanwhile.
    void DrawGraticule();

    /// Draws the home station's mark over it, too, as wide as the map's marks are. For a map that
    /// is not centred on the home, the settings are asked for the position first.
    void DrawHomeMarker();

    /// Draws what is on show, base map, compass, what lies over it and the line to a station, anew
    /// on a picture of any size. The map on show stays as it is; data files that are missing are
    /// told.
    /// @param picture as high and as wide as Picture2, in twips; its resolution tells its pixels
    void drawAnew(PictureSurface& picture, PassListener& listener);

private:
    std::string cachePath() const;
    std::optional<MapHome> mapHome() const;
    int neededResolution() const;
    void addLayer(const MapLayer& layer);
    void rebuildInSilence();
    /// Keeps the path of the custom world picture that the settings name for the first map of the
    /// run; a switch of projection keeps the picture.
    void noteCustomMap();
    const QImage& mapPix(BaseMapEnd& end);
    BaseMapEnd drawBaseMap(PassListener& listener, UserPrompt& prompt);
    BaseMapEnd drawBaseMapOn(PictureSurface& surface, PassListener& listener, UserPrompt& prompt);
    void addCompass(PictureSurface& surface) const;
    void cacheBaseMap(const BaseMapEnd& end);

    RunData& data_;
    MapScreen& screen_;
    PassListener& listener_;
    UserPrompt& prompt_;
    WindowArea fittedTo_;                  ///< the window that Picture2 has its size from
    MapPlace place_;                       ///< of Picture2 in it
    KeptBaseMap baseMap_;                  ///< what Picture1 goes back to
    std::optional<std::string> customMap_; ///< path, empty for the built-in one
    QImage mapPix_;                        ///< the relief's world picture; null until it is needed
};

} // namespace tovrel
