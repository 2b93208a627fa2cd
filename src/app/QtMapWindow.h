#pragma once

#include "app/QtFrame.h"
#include "run/MapFrame.h"
#include "run/MapWindow.h"
#include "stats/MapStats.h"

#include <QTimer>
#include <functional>
#include <memory>

namespace tovrel {

class MapView;
class frmMapStats;

/// The windows as a run sees them: the main window with its frame and map, the statistics window
/// beside it, and the system's dialogs.
class QtMapWindow : public MapScreen, public MainWindow, public StatsWindow, public UserDialogs {
public:
    /// What the window asks of others.
    struct Acts {
        std::function<void()> askStationInfo;      ///< returns when frmInfoInput was closed
        std::function<void(MapColour)> pickColour; ///< a colour of the key was clicked
    };

    /// @param outer, frame, stats, Timer1 have to outlive this object
    QtMapWindow(QtFrame& outer, MapFrame& frame, MapStats& stats, QTimer& Timer1, Acts acts);
    ~QtMapWindow() override;

    /// The widget that the map is shown on from now on.
    void showOn(MapView& view) { view_ = &view; }

    /// The main window was minimized or came back: the statistics window goes along.
    void followState();

    /// Brings the lists of the statistics window up to date, if it is open.
    void refreshLists();

    bool isUnseen() const override { return window_.isMinimized() || !window_.isVisible(); }
    float Width() const override;
    float Height() const override;
    void setWidth(float width) override;
    void setHeight(float height) override;
    float ScaleHeight() const override;
    WindowArea area() const override;
    void settleSize() override { frame_.settle(); }
    void setCaption(const std::string& caption) override;
    void setVisible(bool visible) override;
    void CenterForm() override;
    int mostPixels(MapShape shape) const override;
    void showMap(const MapPlace& place) override;
    void setWaitPointer(bool wait) override;
    void setTimer1(bool enabled) override;
    bool statsVisible() const override;
    void hideStats() override;
    void closeStats() override;
    void mnuView_Stats() override;
    void askStationInfo() override;
    std::optional<std::string> openFile(const std::string& title, const std::string& folder,
                                        const std::string& filter) override;
    std::optional<PictureWish> choosePicture(const PictureWish& start, MapShape shape) override;
    std::optional<Colour> chooseColour(Colour start) override;
    bool openWithSystem(const std::string& path) override;
    void close() override { window_.close(); }

private:
    void ask(QSize outer);

    QMainWindow& window_;
    QtFrame& outer_;
    MapFrame& frame_;
    MapStats& content_;
    QTimer& Timer1_;
    Acts acts_;
    MapView* view_ = nullptr;
    std::unique_ptr<frmMapStats> stats_; ///< made when it is first opened
    bool statsAway_ = false;             ///< hidden for as long as the main window is minimized
    bool waitPointer_ = false;
};

} // namespace tovrel
