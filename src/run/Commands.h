#pragma once

#include "platform/PassListener.h"
#include "platform/UserPrompt.h"
#include "run/MapPictures.h"
#include "run/MapWindow.h"
#include "run/RunData.h"

#include <QDateTime>
#include <functional>
#include <string_view>

namespace tovrel {

/// The menu's commands that work on the map, each with its steps in their order. Which of them may
/// run at a moment is the command queue's affair.
class Commands {
public:
    using Clock = std::function<QDateTime()>;

    /// @param clock local time, for the names and stamps of saved maps
    Commands(RunData& data, MapPictures& map, const Windows& windows, PassListener& listener,
             UserPrompt& prompt, Clock clock = &QDateTime::currentDateTime);

    /// Start-up: settings, state, options and the first map, all before the window is first shown.
    void Form_Load();

    /// The end of the start-up, when the window shows the first map: sets the colours of the key.
    void loadLegendAtStart();

    /// Gives the window its stored size again, now that the width of its frame is known, and draws
    /// the map to it if that changes anything.
    void fitWindow();

    /// Shut-down: stores the window's size of the projection on show.
    void Form_Unload();

    void mnuOpenADIFFile();
    void mnuSaveMap();
    void mnuLoadADIF();
    void mnuGoogle();
    void mnuClearMap();
    void mnuHidePlotLine() { data_.lneGCPlotLine.hide(); }
    void mnuShowMe();
    void mnuMeridian();
    void mnuTopo();
    void mnuShowCompass();
    void mnuBoldCompass() { setCompassWeight(true); }
    void mnuLightCompass() { setCompassWeight(false); }
    void mnu15Degrees() { setCompassStep(true); }
    void mnu45Degrees() { setCompassStep(false); }
    void mnuGreatCircle() { switchProjection(Projection::Azimuthal); }
    void mnuMiller() { switchProjection(Projection::Miller); }
    void mnuRecreateMap();
    void mnuLoadCustomMap();
    void mnuChangeLandColor() { changeBaseColour(MapColour::Land); }
    void mnuChangeWaterColor() { changeBaseColour(MapColour::Water); }
    void mnuResetBaseColors();
    /// Opens the user's guide. Nothing happens when it is missing; where no program shows it, the
    /// user is told.
    void mnuHelp();
    void mnuAbort() { data_.run.AbortRequested = true; }

    /// Apply Changes of a map's option window: stores the options and tells the statistics window
    /// the new filter. The window closes itself.
    void applyMapOptions(Projection projection);

    /// Lets the user choose a colour of the key.
    /// @return whether the base map has to be rebuilt, since the meridians have a new colour
    bool pickLegendColour(MapColour entry);

private:
    bool logChosen() const;
    /// Lets the user choose a log if there is none, and tells if there still is none then.
    bool chooseLog();
    void replot();
    void setProjection(Projection projection);
    void setStoredSize();
    /// Gives the window the shape of the map in force.
    void SetWindowAspect();
    void setCompassWeight(bool bold);
    void setCompassStep(bool every15);
    void switchProjection(Projection projection);
    void toggleOverlay(bool MenuMarks::*mark, void (MapPictures::*draw)(),
                       bool MenuMarks::*otherMark, void (MapPictures::*drawOther)());
    void changeBaseColour(MapColour which);

    RunData& data_;
    MapPictures& map_;
    Windows windows_;
    PassListener& listener_;
    UserPrompt& prompt_;
    Clock clock_;
};

/// The program's own version: major, minor and revision joined by points.
std::string_view GetVersionString();

} // namespace tovrel
