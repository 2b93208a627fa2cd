#include "app/frmMain.h"

#include "app/MainMenu.h"
#include "app/MapView.h"
#include "map/WindowShape.h"
#include "platform/ByteText.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLayout>
#include <algorithm>
#include <utility>

namespace tovrel {

namespace {

constexpr int timerInterval = 60000; // milliseconds

} // namespace

frmMain::frmMain(RunData& runData)
    : data_(runData), prompt_(this), outer_(*this),
      frame_(outer_,
             [this](const QRect& before, const QRect& after) {
                 return shapedWindow(before, after, data_.map()->shape(), outer_.chrome());
             }),
      windows_(outer_, runData, prompt_,
               [this](Projection map) { commands_.applyMapOptions(map); }),
      window_(outer_, frame_, runData.stats, Timer1_,
              {[this] { windows_.askStationInfo(); },
               [this](MapColour entry) { pickLegendColour(entry); }}),
      listener_(*this, [this] { return outer_.outer(); }),
      map_(runData, window_, listener_, prompt_),
      commands_(runData, map_, {window_, window_, window_, window_}, listener_, prompt_),
      Picture2View_(new MapView(
          map_.Picture2, runData.lneGCPlotLine,
          [this](double mapY, double mapX) { return hoverTip(mapY, mapX); }, this)) {
    setObjectName(QStringLiteral("frmMain"));
    setCentralWidget(Picture2View_);
    // Tool tips of the map show while another window of the program is the active one, too.
    setAttribute(Qt::WA_AlwaysShowToolTips);
    layout()->setSizeConstraint(QLayout::SetNoConstraint);
    buildMainMenu(*menuBar());

    Timer1_.setObjectName(QStringLiteral("Timer1"));
    Timer1_.setInterval(timerInterval);
    connect(&Timer1_, &QTimer::timeout, this, [this] {
        if (!queue_.busy()) {
            queue_.run("Timer1", [this] { map_.ResetMap(); });
        }
    });
    window_.showOn(*Picture2View_);
    connectRun();
    connectMenu();
}

void frmMain::connectRun() {
    follows_.push_back(data_.run.marksChanged.connect([this] {
        showMarks(*menuBar(), data_.run.marks);
        holdAboveSmallest();
    }));
    // Told when the act that met it has ended; it may be a move of the mouse.
    follows_.push_back(data_.ini.failed.connect(
        [this] { QTimer::singleShot(0, this, [this] { tellSettingsFailure(); }); }));
    data_.ini.failed(); // of what was read before
    follows_.push_back(listener_.refreshLists.connect([this] { window_.refreshLists(); }));
    follows_.push_back(queue_.commandEnded.connect([this] {
        window_.refreshLists();
        followSize();
    }));
}

void frmMain::start() {
    queue_.run("Form_Load", [this] { commands_.Form_Load(); });
    setVisible(true);
    activateWindow();
    fitToFrame(0);
}

void frmMain::onCommand(const char* name, void (Commands::*command)()) {
    onAct(name,
          [this, name, command] { queue_.run(name, [this, command] { (commands_.*command)(); }); });
}

void frmMain::onAct(const char* name, std::function<void()> act) {
    connect(&menuItem(*menuBar(), name), &QAction::triggered, this, [this, act = std::move(act)] {
        // The click has moved the item's own mark; what the mark shows is the state.
        showMarks(*menuBar(), data_.run.marks);
        act();
    });
}

void frmMain::connectMenu() {
    onCommand("mnuLoadADIF", &Commands::mnuLoadADIF);
    onCommand("mnuGoogle", &Commands::mnuGoogle);
    onCommand("mnuSaveMap", &Commands::mnuSaveMap);
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
    onAct("mnuAbort", [this] { commands_.mnuAbort(); });
    onAct("mnuOpenADIFFile", [this] { commands_.mnuOpenADIFFile(); });
    onAct("mnuHidePlotLine", [this] { commands_.mnuHidePlotLine(); });
    onAct("mnuView_Stats", [this] { window_.mnuView_Stats(); });
    onAct("mnuPlotOptions", [this] { windows_.showMapOptions(); });
    onAct("mnuGoogleMapOptions", [this] { windows_.showGoogleMapOptions(); });
    onAct("mnuInfo", [this] { windows_.showStationInfo(); });
    onAct("mnuHelp", [this] { commands_.mnuHelp(); });
    onAct("mnuAbout", [this] { windows_.showAbout(); });
}

QStringList frmMain::hoverTip(double mapY, double mapX) const {
    constexpr std::size_t longest = 1500; // a screen full of calls
    const MapOptions& options = data_.maps.inForce();
    const TipParts parts{
        .latLong = options.chkLatLong, .country = options.chkCountry, .call = options.chkCall};
    QStringList stations;
    for (const std::string& station : tipStations(data_.tables, parts, mapY, mapX, longest)) {
        stations << displayText(station);
    }
    return stations;
}

void frmMain::pickLegendColour(MapColour entry) {
    if (commands_.pickLegendColour(entry)) {
        queue_.run("RebuildBaseMap", [this] { map_.RebuildBaseMap(); });
    }
}

void frmMain::tellSettingsFailure() {
    if (const std::optional<FileFailure> failure = data_.ini.takeFailure()) {
        prompt_.tellFailure(*failure);
    }
}

/// The smallest window of a map's shape has its menu in one line and the map 240 pixels wide.
void frmMain::holdAboveSmallest() {
    constexpr int smallestMap = 240;
    const QMargins& frame = outer_.margins;
    const int width = std::max(menuBar()->sizeHint().width(), smallestMap);
    const int outerWidth = width + frame.left() + frame.right();
    const MapShape shape = data_.map()->shape();
    const int outerHeight = outerWidth / shape.widthPerHeight + shape.beside(outer_.chrome());
    setMinimumSize(width, outerHeight - frame.top() - frame.bottom());
}

void frmMain::fitToFrame(int attempt) {
    constexpr int attempts = 10; // a window system without frames never tells of one
    constexpr int pause = 30;    // milliseconds
    const bool known = outer_.learnMargins();
    if (!known && attempt < attempts) {
        QTimer::singleShot(pause, this, [this, attempt] { fitToFrame(attempt + 1); });
        return;
    }
    holdAboveSmallest();
    if (known) {
        queue_.run("fitToFrame", [this] { commands_.fitWindow(); });
    }
    commands_.loadLegendAtStart();
    shown_ = true;
    frame_.watch(true);
}

void frmMain::followSize() {
    if (shown_ && !closing_) {
        map_.followSize();
    }
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    frame_.changed();
    // While a command works, it looks at the size itself before it draws marks, and at its end.
    if (!queue_.busy()) {
        queue_.run("Form_Resize", [this] { followSize(); });
    }
}

void frmMain::enterEvent(QEnterEvent* event) {
    QMainWindow::enterEvent(event);
    frame_.settle(true);
}

void frmMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && shown_) {
        frame_.changed();
        window_.followState();
        map_.fitAgain();
        if (!queue_.busy()) {
            queue_.run("Form_Resize", [this] { followSize(); });
        }
    }
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (queue_.busy() && !closing_) {
        // The running pass is asked to stop; the window closes when its command has ended, and what
        // waits after it is not wanted any more.
        data_.run.AbortRequested = true;
        queue_.dropWaiting();
        queue_.run("close", [this] {
            closing_ = true;
            QMainWindow::close();
        });
        event->ignore();
        return;
    }
    queue_.close();
    Timer1_.stop();
    frame_.watch(false);
    commands_.Form_Unload();
    window_.setWaitPointer(false);
    tellSettingsFailure();
    listener_.closeWindow();
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window != this) {
            window->close();
        }
    }
    event->accept();
    QApplication::quit();
}

} // namespace tovrel
