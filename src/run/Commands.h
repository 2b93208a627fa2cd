#pragma once

#include "platform/PassListener.h"
#include "platform/UserPrompt.h"
#include "run/MapPictures.h"
#include "run/MapWindow.h"
#include "run/RunData.h"

#include <QDateTime>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tovrel {

/// The menu's commands that work on the map, each with its steps in their order. Which of them may
/// run at a moment is the command queue's affair.
class Commands {
public:
    /// Tells the local time.
    using Clock = std::function<QDateTime()>;

    /// All but the clock have to outlive this object.
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

    /// Lets the user choose the log and stores its path; the log is not read, and map and lists
    /// stay. On cancel nothing changes.
    void mnuOpenADIFFile();

    /// Takes a file that was handed to the program, at its start or by a drop, for the log: stored
    /// as mnuOpenADIFFile() does, and plotted. What is not one readable file is told, and nothing
    /// changes.
    /// @param path UTF-8; empty where it was no file, or several
    void plotFile(const std::string& path);

    /// Saves the map as it is shown, plot included, as a bitmap in the program's folder, with the
    /// time on it and in its name, and tells the name, or why it could not be saved. The line to a
    /// station is no part of it.
    void mnuSaveMap();

    /// Exports the map as a picture or a page, in a size and to a file that the user is asked for,
    /// and tells its name, or why it could not be saved. The user may stop it, which leaves no
    /// file.
    void mnuExportPicture();

    /// Plots the log on a clean map with empty lists. The user is asked for a log when there is
    /// none; map and lists stay empty when there still is none, when the pass was aborted (but for
    /// the calls that can't be plotted) and when a file could not be read. Where a log tells no
    /// coordinates but other places the user may have it read as one of any logger. The window
    /// closes when the field dictionary has gone.
    void mnuLoadADIF();

    /// Exports the log to Google Earth, after the user was asked for one if there is none. A plot
    /// stays on the map; the lists are emptied and take the summary of an export that is done. A
    /// log without coordinates is as with mnuLoadADIF(). The window closes when the field
    /// dictionary has gone.
    void mnuGoogle();

    /// Store how the next pass reads its log: as an export of Logger32 or as a log of any logger,
    /// and of that one whether a contact without a better place gets its country's.
    void mnuLogger32() { setLogFormat(LogFormat::Logger32); }
    void mnuAnyLogger() { setLogFormat(LogFormat::Adif); }
    void mnuPlaceByCountry();

    /// Takes the plot off the map, and with it its tool tips and lists. The settings stay.
    void mnuClearMap();

    /// Takes the line to a station off the map; the plot stays.
    void mnuHidePlotLine() { data_.lneGCPlotLine.hide(); }

    /// Switches the home station's mark and stores that. It is drawn over a plot; to take it away,
    /// the map is drawn anew, and the log read once more if it was plotted.
    void mnuShowMe();

    /// The same of the meridians and parallels.
    void mnuMeridian();

    /// Switches the relief, draws and caches the base map anew, and stores the map's options. A
    /// plot is gone, the lists stay.
    void mnuTopo();

    /// Switches the compass of the azimuthal map and stores that. The map is drawn anew: a plot is
    /// gone, the lists stay.
    void mnuShowCompass();

    /// The same of the weight of its labels.
    void mnuBoldCompass() { setCompassWeight(true); }
    void mnuLightCompass() { setCompassWeight(false); }

    /// The same of the step from one of its ticks to the next.
    void mnu15Degrees() { setCompassStep(true); }
    void mnu45Degrees() { setCompassStep(false); }

    /// Changes to the other map, in a window of its stored size, and stores which one is on show.
    /// Its options come from the settings; those of the map that is on show already are read again,
    /// and nothing else of it changes. A log that was plotted is read and plotted once more. An
    /// open statistics window is closed and opened again.
    void mnuGreatCircle() { switchProjection(Projection::Azimuthal); }
    void mnuMiller() { switchProjection(Projection::Miller); }

    /// Draws and caches the base map anew, for the home position that the settings have now, and
    /// stores the map's options. A plot is gone, the lists stay.
    void mnuRecreateMap();

    /// Lets the user choose the relief's world picture, stores its path, and recreates the map. On
    /// cancel nothing changes; a picture that can't be used is told, and the last one serves on.
    void mnuLoadCustomMap();

    /// Let the user choose a colour of the base map and store it. With another colour than before
    /// the map is recreated, which costs a plot.
    void mnuChangeLandColor() { changeBaseColour(MapColour::Land); }
    void mnuChangeWaterColor() { changeBaseColour(MapColour::Water); }

    /// Stores the default land and water for the map in force and recreates it; a plot is gone.
    void mnuResetBaseColors();

    /// Opens the user's guide. Nothing happens when it is missing; where no program shows it, the
    /// user is told.
    void mnuHelp();

    /// Asks the pass that runs to stop at its next record. With none running, a plot drops the
    /// request as it begins, and an export ends at its first record.
    void mnuAbort() { data_.run.AbortRequested = true; }

    /// Apply Changes of a map's option window: stores the options and tells the statistics window
    /// the new filter. The window closes itself.
    void applyMapOptions(Projection projection);

    /// Lets the user choose a colour of the key.
    /// @return whether the base map has to be rebuilt, since the meridians have a new colour
    bool pickLegendColour(MapColour entry);

private:
    void keepLog(const std::string& path);
    /// Asks for a picture until its file is new or may be replaced.
    /// @return nothing when the user wants none
    std::optional<PictureWish> choosePicture(PictureWish start);
    bool logChosen() const;
    /// Lets the user choose a log if there is none, and tells if there still is none then.
    bool chooseLog();
    void setLogFormat(LogFormat format);
    /// Offers to read a log that tells no coordinates in the other format, if it has places then.
    /// @param act what is done with them: "plot" or "export"
    /// @return whether the user wants it; the format is stored then
    bool takesOtherPlaces(const std::string& act);
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
