#include "app/frmMain.h"

#include "app/MainMenu.h"
#include "app/MainParts.h"
#include "app/MapView.h"
#include "platform/ByteText.h"
#include "run/TipText.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QLayout>
#include <QMimeData>
#include <QUrl>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace tovrel {

namespace {

constexpr int timerInterval = 60000; // milliseconds

} // namespace

frmMain::frmMain(RunData& runData) : data_(runData) {
    parts_ = std::make_unique<MainParts>(*this, Timer1_, runData,
                                         [this](MapColour entry) { pickLegendColour(entry); });
    Picture2View_ = new MapView(
        parts_->map.Picture2, runData.lneGCPlotLine,
        [&runData](double mapY, double mapX) {
            return toolTipText(runData.tables, runData.maps.inForce(), mapY, mapX);
        },
        this);
    setObjectName(QStringLiteral("frmMain"));
    setCentralWidget(Picture2View_);
    // Tool tips of the map show while another window of the program is the active one, too.
    setAttribute(Qt::WA_AlwaysShowToolTips);
    setAcceptDrops(true);
    layout()->setSizeConstraint(QLayout::SetNoConstraint);
    buildMainMenu(*menuBar());

    Timer1_.setObjectName(QStringLiteral("Timer1"));
    Timer1_.setInterval(timerInterval);
    connect(&Timer1_, &QTimer::timeout, this, [this] {
        if (!queue_.busy()) {
            queue_.submit("Timer1", [this] { parts_->map.ResetMap(); });
        }
    });
    parts_->window.showOn(*Picture2View_);
    connectRun();
    connectMenu();
}

frmMain::~frmMain() = default;

void frmMain::connectRun() {
    follows_.push_back(data_.run.marksChanged.connect([this] {
        showMarks(*menuBar(), data_.run);
        holdAboveSmallest();
    }));
    // Told when the act that met it has ended; it may be a move of the mouse.
    follows_.push_back(data_.ini.failed.connect(
        [this] { QTimer::singleShot(0, this, [this] { tellSettingsFailure(); }); }));
    data_.ini.failed(); // of what was read before
    follows_.push_back(
        parts_->listener.refreshLists.connect([this] { parts_->window.refreshLists(); }));
    follows_.push_back(queue_.commandEnded.connect([this] {
        parts_->window.refreshLists();
        followSize();
    }));
}

void frmMain::start(const std::string& log) {
    logToPlot_ = log;
    queue_.submit("Form_Load", [this] { parts_->commands.Form_Load(); });
    setVisible(true);
    activateWindow();
    fitToFrame(0);
}

void frmMain::onCommand(const char* name, void (Commands::*command)()) {
    onAct(name, [this, name, command] {
        queue_.submit(name, [this, command] { (parts_->commands.*command)(); });
    });
}

void frmMain::onAct(const char* name, std::function<void()> act) {
    connect(&menuItem(*menuBar(), name), &QAction::triggered, this, [this, act = std::move(act)] {
        // The click has moved the item's own mark; what the mark shows is the state.
        showMarks(*menuBar(), data_.run);
        act();
    });
}

void frmMain::connectMenu() {
    onCommand("mnuLoadADIF", &Commands::mnuLoadADIF);
    onCommand("mnuGoogle", &Commands::mnuGoogle);
    onCommand("mnuSaveMap", &Commands::mnuSaveMap);
    onCommand("mnuExportPicture", &Commands::mnuExportPicture);
    onCommand("mnuClearMap", &Commands::mnuClearMap);
    onCommand("mnuShowMe", &Commands::mnuShowMe);
    onCommand("mnuMeridian", &Commands::mnuMeridian);
    onCommand("mnuTopo", &Commands::mnuTopo);
    onCommand("mnuShowCompass", &Commands::mnuShowCompass);
    onCommand("mnuBoldCompass", &Commands::mnuBoldCompass);
    onCommand("mnuLightCompass", &Commands::mnuLightCompass);
    onCommand("mnu15Degrees", &Commands::mnu15Degrees);
    onCommand("mnu45Degrees", &Commands::mnu45Degrees);
    onCommand("mnuLoadCustomMap", &Commands::mnuLoadCustomMap);
    onCommand("mnuChangeLandColor", &Commands::mnuChangeLandColor);
    onCommand("mnuChangeWaterColor", &Commands::mnuChangeWaterColor);
    onCommand("mnuResetBaseColors", &Commands::mnuResetBaseColors);
    onCommand("mnuGreatCircle", &Commands::mnuGreatCircle);
    onCommand("mnuMiller", &Commands::mnuMiller);
    onCommand("mnuRecreateMap", &Commands::mnuRecreateMap);

    // These neither start a pass nor change the map: they work at any time.
    onAct("mnuAbort", [this] { parts_->commands.mnuAbort(); });
    onAct("mnuOpenADIFFile", [this] { parts_->commands.mnuOpenADIFFile(); });
    onAct("mnuLogger32", [this] { parts_->commands.mnuLogger32(); });
    onAct("mnuAnyLogger", [this] { parts_->commands.mnuAnyLogger(); });
    onAct("mnuPlaceByCountry", [this] { parts_->commands.mnuPlaceByCountry(); });
    onAct("mnuHidePlotLine", [this] { parts_->commands.mnuHidePlotLine(); });
    onAct("mnuView_Stats", [this] { parts_->window.mnuView_Stats(); });
    onAct("mnuPlotOptions", [this] { parts_->windows.showMapOptions(); });
    onAct("mnuGoogleMapOptions", [this] { parts_->windows.showGoogleMapOptions(); });
    onAct("mnuInfo", [this] { parts_->windows.showStationInfo(); });
    onAct("mnuHelp", [this] { parts_->commands.mnuHelp(); });
    onAct("mnuAbout", [this] { parts_->windows.showAbout(); });
}

void frmMain::pickLegendColour(MapColour entry) {
    if (parts_->commands.pickLegendColour(entry)) {
        queue_.submit("RebuildBaseMap", [this] { parts_->map.RebuildBaseMap(); });
    }
}

void frmMain::tellSettingsFailure() {
    if (const std::optional<FileFailure> failure = data_.ini.takeFailure()) {
        parts_->prompt.tellFailure(*failure);
    }
}

/// The smallest window of a map's shape has its menu in one line and the map 240 pixels wide.
void frmMain::holdAboveSmallest() {
    constexpr int smallestMap = 240;
    const QMargins& frame = parts_->outer.margins;
    const int width = std::max(menuBar()->sizeHint().width(), smallestMap);
    const int outerWidth = width + frame.left() + frame.right();
    const MapShape shape = data_.map()->shape();
    const int outerHeight =
        outerWidth / shape.widthPerHeight + shape.beside(parts_->outer.chrome());
    setMinimumSize(width, outerHeight - frame.top() - frame.bottom());
}

void frmMain::fitToFrame(int attempt) {
    constexpr int attempts = 10; // a window system without frames never tells of one
    constexpr int pause = 30;    // milliseconds
    const bool known = parts_->outer.learnMargins();
    if (attempt == 0 && !known) {
        parts_->map.followSize(); // for the first paint
    }
    if (!known && attempt < attempts) {
        QTimer::singleShot(pause, this, [this, attempt] { fitToFrame(attempt + 1); });
        return;
    }
    holdAboveSmallest();
    if (known) {
        queue_.submit("fitToFrame", [this] { parts_->commands.fitWindow(); });
    }
    parts_->commands.loadLegendAtStart();
    shown_ = true;
    parts_->frame.watch(true);
    // Another screen may have more pixels to a map of the same size.
    connect(windowHandle(), &QWindow::screenChanged, this, [this] { fitToScreen(); });
    plotAtStart();
}

/// A size that the window system grants late would wipe the marks, so the plot waits for the last.
void frmMain::plotAtStart() {
    constexpr int pause = 30; // milliseconds
    if (!logToPlot_.empty() && !parts_->frame.atRest()) {
        QTimer::singleShot(pause, this, [this] { plotAtStart(); });
    } else if (!logToPlot_.empty()) {
        plotFile(logToPlot_);
    }
}

void frmMain::plotFile(const std::string& path) {
    queue_.submit("plotFile " + path, [this, path] { parts_->commands.plotFile(path); });
}

void frmMain::followSize() {
    if (shown_ && !closing_) {
        parts_->map.followSize();
    }
}

/// While a command works, it looks at the size itself before it draws marks, and at its end.
void frmMain::fitToScreen() {
    if (!queue_.busy()) {
        queue_.submit("Form_Resize", [this] { followSize(); });
    }
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    parts_->frame.changed();
    fitToScreen();
}

void frmMain::enterEvent(QEnterEvent* event) {
    QMainWindow::enterEvent(event);
    parts_->frame.settle(true);
}

void frmMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && shown_) {
        parts_->frame.changed();
        parts_->window.followState();
        parts_->map.fitAgain();
        fitToScreen();
    }
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (queue_.busy() && !closing_) {
        // The running pass is asked to stop; the window closes when its command has ended, and what
        // waits after it is not wanted any more.
        data_.run.AbortRequested = true;
        queue_.dropWaiting();
        queue_.submit("close", [this] {
            closing_ = true;
            QMainWindow::close();
        });
        event->ignore();
        return;
    }
    queue_.close();
    Timer1_.stop();
    parts_->frame.watch(false);
    parts_->commands.Form_Unload();
    parts_->window.setWaitPointer(false);
    tellSettingsFailure();
    parts_->listener.closeWindow();
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window != this) {
            window->close();
        }
    }
    event->accept();
    QApplication::quit();
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    // Anything may come, so that what is no log can be refused with a word. Copied: a file manager
    // that moves a file takes it away from where it lies.
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void frmMain::dropEvent(QDropEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
    const QList<QUrl> files = event->mimeData()->urls();
    const std::string path =
        files.size() == 1 ? nativePath(files.constFirst().toLocalFile()) : std::string();
    // The program that the file comes from waits for the end of this event.
    QTimer::singleShot(0, this, [this, path] { plotFile(path); });
}

} // namespace tovrel
