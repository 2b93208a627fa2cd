#pragma once

#include "app/MapFrame.h"
#include "app/OptionWindows.h"
#include "app/QtFrame.h"
#include "app/QtListener.h"
#include "app/QtMapWindow.h"
#include "app/QtPrompt.h"
#include "run/CommandQueue.h"
#include "run/Commands.h"
#include "run/MapPictures.h"
#include "run/RunData.h"

#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <vector>

namespace tovrel {

class MapView;

/// The main window: the menu bar and the map, and the owner of all other windows.
class frmMain : public QMainWindow {
    Q_OBJECT

public:
    /// @param runData has to outlive the window
    explicit frmMain(RunData& runData);

    /// Runs the start-up and shows the window.
    void start();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void connectMenu();
    void connectRun();
    void onCommand(const char* name, void (Commands::*command)());
    void onAct(const char* name, std::function<void()> act);
    QStringList hoverTip(double mapY, double mapX) const;
    void pickLegendColour(MapColour entry);
    void tellSettingsFailure();

    void fitToFrame(int attempt);
    void holdAboveSmallest();
    void followSize();

    RunData& data_;
    QtPrompt prompt_;
    QTimer Timer1_{this};
    QtFrame outer_;
    MapFrame frame_;
    OptionWindows windows_;
    QtMapWindow window_;
    QtListener listener_;
    MapPictures map_;
    Commands commands_;
    CommandQueue queue_;
    MapView* Picture2View_;
    std::vector<Connection> follows_;
    bool shown_ = false; ///< the window was shown and has its frame
    bool closing_ = false;
};

} // namespace tovrel
