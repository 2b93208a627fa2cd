#include "app/frmMain.h"

#include "app/MainMenu.h"
#include "app/MapView.h"
#include "app/frmAbout.h"
#include "app/frmInfoInput.h"
#include "app/frmMapOptions.h"
#include "export/frmGoogleMapOptions.h"
#include "platform/ByteText.h"
#include "platform/Twips.h"
#include "stats/frmMapStats.h"

#include <QApplication>
#include <QCloseEvent>
#include <QColorDialog>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QLayout>
#include <QScreen>
#include <QUrl>
#include <algorithm>
#include <utility>

namespace tovrel {

namespace {

constexpr int timerInterval = 60000; // milliseconds

/// Upper left corner of a window of an outer size in the middle of a screen.
QPoint centred(const QScreen& screen, QSize outer) {
    const QRect area = screen.geometry();
    return area.topLeft() +
           QPoint((area.width() - outer.width()) / 2, (area.height() - outer.height()) / 2);
}

/// The window that a member points at, made at its first use: most runs open few of the dialogs.
template <typename Window, typename... Arguments>
Window& made(Window*& window, Arguments&&... arguments) {
    if (window == nullptr) {
        window = new Window(std::forward<Arguments>(arguments)...);
    }
    return *window;
}

} // namespace

frmMain::frmMain(RunData& runData)
    : data_(runData), prompt_(this), listener_([this] { return frame_.rect(); }),
      map_(runData, *this, listener_, prompt_), commands_(runData, map_, *this, listener_, prompt_),
      Picture2View_(new MapView(
          map_.Picture2, runData.lneGCPlotLine,
          [this](double mapY, double mapX) { return hoverTip(mapY, mapX); }, this)),
      frame_(*this), sizing_(
                         frame_, [this] { return data_.run.marks.projection; },
                         [this] { queue_.run("Form_Resize", [this] { resizeMap(); }); }) {
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
    data_.run.marksChanged = [this] { showMarks(*menuBar(), data_.run.marks); };
    const auto refreshLists = [this] {
        if (stats_) {
            stats_->refreshLists();
        }
    };
    // Told when the act that met it has ended; it may be a move of the mouse.
    data_.ini.failed = [this] { QTimer::singleShot(0, this, [this] { tellSettingsFailure(); }); };
    data_.ini.failed(); // of what was read before
    queue_.commandEnded = refreshLists;
    listener_.refreshLists = refreshLists;
    connectMenu();
}

frmMain::~frmMain() {
    data_.run.marksChanged = nullptr;
    data_.ini.failed = nullptr;
    data_.lneGCPlotLine.changed = nullptr;
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
    onAct("mnuView_Stats", [this] { mnuView_Stats(); });
    onAct("mnuPlotOptions", [this] { showMapOptions(); });
    onAct("mnuGoogleMapOptions",
          [this] { made(googleOptions_, data_.ini, data_.google, this).show(); });
    onAct("mnuInfo", [this] { infoInput().show(); });
    onAct("mnuHelp", [this] { commands_.mnuHelp(); });
    onAct("mnuAbout", [this] {
        frmAbout& about = made(about_, prompt_, displayText(GetVersionString()), this);
        // The frame of a dialog is taken to be as wide as that of the main window.
        about.move(centred(*screen(), about.size().grownBy(frame_.margins())));
        about.show();
        about.activateWindow();
    });
}

QString frmMain::hoverTip(double mapY, double mapX) {
    constexpr std::size_t longest = 1500; // a screen full of calls
    const MapOptions& options = data_.maps.inForce();
    const TipParts parts{
        .latLong = options.chkLatLong, .country = options.chkCountry, .call = options.chkCall};
    return displayText(tipText(data_.tables, parts, mapY, mapX, longest));
}

void frmMain::showMapOptions() {
    const Projection projection = data_.run.marks.projection;
    frmMapOptions*& window = data_.run.marks.azimuthal() ? gcOptions_ : mcOptions_;
    const auto apply = [this, projection, &window] {
        commands_.applyMapOptions(projection);
        window->hide();
    };
    made(window, projection, data_.maps, apply, this).show();
    window->activateWindow();
}

void frmMain::pickLegendColour(LegendEntry entry) {
    if (commands_.pickLegendColour(entry)) {
        queue_.run("RebuildBaseMap", [this] { map_.RebuildBaseMap(); });
    }
}

void frmMain::tellSettingsFailure() {
    if (const std::optional<FileFailure> failure = data_.ini.takeFailure()) {
        prompt_.tellFailure(*failure);
    }
}

MapWindow::State frmMain::windowState() const {
    if (isMinimized()) {
        return State::Minimized;
    }
    return isMaximized() || isFullScreen() ? State::Maximized : State::Normal;
}

float frmMain::Width() const { return twipsFromPixels(frame_.size().width()); }

float frmMain::Height() const { return twipsFromPixels(frame_.size().height()); }

void frmMain::setWidth(float width) {
    if (!sizing_.insisted()) {
        frame_.request(QSize(pixelsFromTwips(static_cast<double>(width)), frame_.size().height()));
    }
}

void frmMain::setHeight(float height) {
    if (!sizing_.insisted()) {
        frame_.request(QSize(frame_.size().width(), pixelsFromTwips(static_cast<double>(height))));
    }
}

float frmMain::ScaleHeight() const {
    return twipsFromPixels(std::max(height() - menuBar()->heightForWidth(width()), 1));
}

void frmMain::setCaption(const std::string& caption) { setWindowTitle(displayText(caption)); }

void frmMain::setVisible(bool visible) {
    // A window that comes back is put where it was: window managers like to place it anew.
    const QPoint place = pos();
    QMainWindow::setVisible(visible);
    if (visible && shown_) {
        move(place);
    }
}

void frmMain::CenterForm() { move(centred(*screen(), frame_.size())); }

void frmMain::followState(State state) {
    if (!statsVisible() || state == State::Maximized) {
        return;
    }
    const bool minimize = state == State::Minimized;
    if (minimize != stats_->isMinimized()) {
        stats_->setWindowState(minimize ? Qt::WindowMinimized : Qt::WindowNoState);
    }
}

void frmMain::showMap() { Picture2View_->showMap(); }

void frmMain::setWaitPointer(bool wait) {
    if (wait == std::exchange(waitPointer_, wait)) {
        return;
    }
    if (wait) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

void frmMain::setTimer1(bool enabled) {
    if (enabled) {
        Timer1_.start();
    } else {
        Timer1_.stop();
    }
}

bool frmMain::statsVisible() const { return stats_ && stats_->isVisible(); }

void frmMain::hideStats() {
    if (stats_) {
        stats_->hide();
    }
}

void frmMain::closeStats() {
    if (stats_) {
        stats_->close();
    }
    data_.stats.unload();
}

void frmMain::mnuView_Stats() {
    if (statsVisible()) {
        return;
    }
    if (!stats_) {
        stats_ = std::make_unique<frmMapStats>(
            data_.stats, [this](LegendEntry entry) { pickLegendColour(entry); });
    }
    frame_.learnMargins();
    stats_->loadForm(frame_.size().height(), frame_.margins());
    const int statsWidth = stats_->size().grownBy(frame_.margins()).width();
    const QRect outer = frame_.rect().translated(-statsWidth / 2, 0);
    move(outer.topLeft());
    stats_->move(outer.left() + outer.width(), outer.top());
    stats_->show();
    stats_->refreshLists();
}

frmInfoInput& frmMain::infoInput() {
    frmInfoInput& window = made(infoInput_, data_.ini, prompt_, this);
    window.loadForm();
    return window;
}

void frmMain::askStationInfo() { infoInput().exec(); }

std::optional<std::string> frmMain::openFile(const std::string& title, const std::string& folder,
                                             const std::string& filter) {
    // "Caption (*.A)|*.A|Caption (*.B)|*.B": the captions name the patterns once more.
    QStringList nameFilters;
    const QStringList parts = displayText(filter).split(QLatin1Char('|'));
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        nameFilters.append(parts[i]);
    }
    QFileDialog dialog(this, displayText(title), displayText(folder));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(nameFilters);
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return byteText(QDir::toNativeSeparators(dialog.selectedFiles().constFirst()));
}

std::optional<Colour> frmMain::chooseColour(Colour start) {
    const QColor chosen = QColorDialog::getColor(QColor::fromRgb(imageColour(start)), this);
    if (!chosen.isValid()) {
        return std::nullopt;
    }
    return colourOfImage(chosen.rgb());
}

bool frmMain::openWithSystem(const std::string& path) {
    const QFileInfo file(QString::fromStdString(path));
    return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
}

void frmMain::fitToFrame(int attempt) {
    constexpr int attempts = 10; // a window system without frames never tells of one
    constexpr int pause = 30;    // milliseconds
    frame_.learnMargins();
    if (frame_.margins().isNull() && attempt < attempts) {
        QTimer::singleShot(pause, this, [this, attempt] { fitToFrame(attempt + 1); });
        return;
    }
    if (!frame_.margins().isNull()) {
        queue_.run("fitToFrame", [this] { commands_.fitWindow(); });
    }
    commands_.loadLegendAtStart();
    shown_ = true;
    sizing_.start();
}

void frmMain::resizeMap() {
    map_.Form_Resize();
    sizing_.resized();
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    sizing_.sizeChanged();
}

void frmMain::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    sizing_.placeChanged();
}

void frmMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) {
        sizing_.stateChanged();
    }
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (queue_.busy() && !closing_) {
        // The running pass is asked to stop; the window closes when its command has ended.
        data_.run.AbortRequested = true;
        queue_.run("close", [this] {
            closing_ = true;
            QMainWindow::close();
        });
        event->ignore();
        return;
    }
    queue_.close();
    Timer1_.stop();
    sizing_.stop();
    frame_.learnMargins();
    commands_.Form_Unload();
    setWaitPointer(false);
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
