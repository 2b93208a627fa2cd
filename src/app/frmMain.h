#pragma once

#include "run/CommandQueue.h"
#include "run/Commands.h"
#include "run/RunData.h"

#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tovrel {

class MapView;
struct MainParts;

/// The main window: the menu bar and the map, and the owner of all other windows.
class frmMain : public QMainWindow {
    Q_OBJECT

public:
    /// @param runData has to outlive the window
    explicit frmMain(RunData& runData);
    ~frmMain() override;

    /// Runs the start-up and shows the window.
    /// @param log path of a log to plot as soon as the window has its size; empty for none
    void start(const std::string& log = {});

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void connectMenu();
    void connectRun();
    void onCommand(const char* name, void (Commands::*command)());
    void onAct(const char* name, std::function<void()> act);
    void pickLegendColour(MapColour entry);
    void tellSettingsFailure();

    void fitToFrame(int attempt);
    void plotAtStart();
    void plotFile(const std::string& path);
    void holdAboveSmallest();
    void followSize();
    void fitToScreen();

    RunData& data_;
    QTimer Timer1_{this};
    CommandQueue queue_;
    std::unique_ptr<MainParts> parts_;
    MapView* Picture2View_ = nullptr;
    std::vector<Connection> follows_;
    std::string logToPlot_; ///< at the end of the start
    bool shown_ = false;    ///< the window was shown and has its frame
    bool closing_ = false;
};

} // namespace tovrel
