#pragma once

#include "app/OuterFrame.h"
#include "app/QtListener.h"
#include "app/QtPrompt.h"
#include "app/WindowSizing.h"
#include "run/CommandQueue.h"
#include "run/Commands.h"
#include "run/MapRun.h"
#include "run/MapWindow.h"
#include "run/RunData.h"

#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <memory>

namespace tovrel {

class MapView;
class frmAbout;
class frmGoogleMapOptions;
class frmInfoInput;
class frmMapOptions;
class frmMapStats;

/// The main window: the menu bar and the map, and the owner of all other windows.
class frmMain : public QMainWindow, public MapWindow {
    Q_OBJECT

public:
    /// @param runData has to outlive the window
    explicit frmMain(RunData& runData);
    ~frmMain() override;

    /// Runs the start-up and shows the window.
    void start();

    MapWindow::State windowState() const override;
    float Width() const override;
    float Height() const override;
    void setWidth(float width) override;
    void setHeight(float height) override;
    float ScaleHeight() const override;
    void setCaption(const std::string& caption) override;
    void setVisible(bool visible) override;
    void CenterForm() override;
    void followState(State state) override;
    void showMap() override;
    void setWaitPointer(bool wait) override;
    void setTimer1(bool enabled) override;
    bool statsVisible() const override;
    void hideStats() override;
    void closeStats() override;
    void mnuView_Stats() override;
    void askStationInfo() override;
    std::optional<std::string> openFile(const std::string& title, const std::string& folder,
                                        const std::string& filter) override;
    std::optional<Colour> chooseColour(Colour start) override;
    bool openWithSystem(const std::string& path) override;
    void close() override { QMainWindow::close(); }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void connectMenu();
    void onCommand(const char* name, void (Commands::*command)());
    void onAct(const char* name, std::function<void()> act);
    QString hoverTip(double mapY, double mapX);
    void showMapOptions();
    frmInfoInput& infoInput();
    void pickLegendColour(LegendEntry entry);
    void tellSettingsFailure();

    void fitToFrame(int attempt);
    void resizeMap();

    RunData& data_;
    QtPrompt prompt_;
    QtListener listener_;
    MapRun map_;
    Commands commands_;
    CommandQueue queue_;
    MapView* Picture2View_;
    QTimer Timer1_{this};

    std::unique_ptr<frmMapStats> stats_;
    frmMapOptions* gcOptions_ = nullptr; ///< these five are children, made when they are shown
    frmMapOptions* mcOptions_ = nullptr;
    frmGoogleMapOptions* googleOptions_ = nullptr;
    frmInfoInput* infoInput_ = nullptr;
    frmAbout* about_ = nullptr;

    OuterFrame frame_;
    WindowSizing sizing_;
    bool shown_ = false; ///< the window was shown and has its frame
    bool closing_ = false;
    bool waitPointer_ = false;
};

} // namespace tovrel
