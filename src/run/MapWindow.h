#pragma once

#include "platform/Colour.h"
#include "run/MapFit.h"
#include "run/PictureWish.h"

#include <optional>
#include <string>

namespace tovrel {

/// Where the map is shown. Sizes are twips.
class MapScreen {
public:
    virtual ~MapScreen() = default;

    /// Whether nobody can see the map, so that it need not be fitted to a size: the window is
    /// minimized or hidden, as before it is first shown.
    virtual bool isUnseen() const = 0;

    /// The window as it is now, free or not.
    virtual WindowArea area() const = 0;

    /// Pixels across of the largest map of a shape that this screen can show, and that the base map
    /// is to have at least.
    virtual int mostPixels(MapShape shape) const = 0;

    /// Picture2 has changed; it reaches the screen with the next repaint.
    /// @param place of the picture in the client area
    virtual void showMap(const MapPlace& place) = 0;

    /// Shows the wait pointer, or the default one.
    virtual void setWaitPointer(bool wait) = 0;
};

/// The main window. Sizes are twips, of the outer window while it is free; while it is maximized,
/// those that it will have again.
class MainWindow {
public:
    virtual ~MainWindow() = default;

    /// A size that was asked for counts at once, until the window system has granted another.
    virtual float Width() const = 0;
    virtual float Height() const = 0;

    /// Asks for a size, the other side as it is. A screen that is smaller, a menu that is wider, or
    /// the window system may grant another one, and at a later time.
    virtual void setWidth(float width) = 0;
    virtual void setHeight(float height) = 0;

    /// Height of the client area, below title bar and menu.
    virtual float ScaleHeight() const = 0;

    /// Settles a change of size that the user has made a moment ago.
    virtual void settleSize() = 0;

    /// Moves the window to the middle of the screen.
    virtual void CenterForm() = 0;

    /// @param caption bytes, UTF-8
    virtual void setCaption(const std::string& caption) = 0;

    /// Shows the window, in the place that it had, or hides it.
    virtual void setVisible(bool visible) = 0;

    /// Starts or stops Timer1.
    virtual void setTimer1(bool enabled) = 0;

    /// Closes the main window, and with it the program.
    virtual void close() = 0;
};

/// The statistics window beside the map.
class StatsWindow {
public:
    virtual ~StatsWindow() = default;

    /// Whether it is on the screen; it is not while the main window is minimized.
    virtual bool statsVisible() const = 0;

    /// Takes it off the screen. What it holds stays.
    virtual void hideStats() = 0;

    /// Closes it, visible or not, which drops what it holds.
    virtual void closeStats() = 0;

    /// Opens it beside the map, or brings it to the front.
    virtual void mnuView_Stats() = 0;
};

/// What the user is asked in windows, and shown in those of other programs.
class UserDialogs {
public:
    virtual ~UserDialogs() = default;

    /// Shows frmInfoInput and waits until the user has closed it.
    virtual void askStationInfo() = 0;

    /// The open dialog. Filters have the form "ADIF Files (*.ADI)|*.ADI" and match in any case.
    /// @return path of the chosen file; nothing on cancel
    virtual std::optional<std::string> openFile(const std::string& title, const std::string& folder,
                                                const std::string& filter) = 0;

    /// Asks what file of the map is to be made.
    /// @param start what the dialog begins with
    /// @param shape of the map
    /// @return what the user wants, in the folder that is told there; nothing on cancel
    virtual std::optional<PictureWish> choosePicture(const PictureWish& start, MapShape shape) = 0;

    /// The colour dialog, fully open.
    /// @return nothing on cancel
    virtual std::optional<Colour> chooseColour(Colour start) = 0;

    /// Opens a file with the program that the system has registered for it.
    /// @param path UTF-8
    /// @return false when that is known to have failed
    virtual bool openWithSystem(const std::string& path) = 0;
};

/// The windows that a command works with. They have to outlive whoever keeps a copy of this.
struct Windows {
    MapScreen& screen;    ///< for the wait pointer
    MainWindow& main;     ///< takes its size from the commands
    StatsWindow& stats;   ///< opened and closed by them
    UserDialogs& dialogs; ///< for what they ask
};

} // namespace tovrel
