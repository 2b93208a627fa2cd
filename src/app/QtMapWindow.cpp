#include "app/QtMapWindow.h"

#include "app/Dialogs.h"
#include "app/MapView.h"
#include "app/frmExportPicture.h"
#include "platform/ByteText.h"
#include "platform/Twips.h"
#include "run/WindowPlaces.h"
#include "stats/frmMapStats.h"

#include <QApplication>
#include <QScreen>
#include <algorithm>
#include <utility>

namespace tovrel {

QtMapWindow::QtMapWindow(QtFrame& outer, MapFrame& frame, MapStats& stats, QTimer& Timer1,
                         Acts acts)
    : window_(outer.window), outer_(outer), frame_(frame), content_(stats), Timer1_(Timer1),
      acts_(std::move(acts)) {}

QtMapWindow::~QtMapWindow() = default;

float QtMapWindow::Width() const { return twipsFromPixels(frame_.size().width()); }

float QtMapWindow::Height() const { return twipsFromPixels(frame_.size().height()); }

void QtMapWindow::setWidth(float width) {
    ask({pixelsFromTwips(static_cast<double>(width)), frame_.size().height()});
}

void QtMapWindow::setHeight(float height) {
    ask({frame_.size().width(), pixelsFromTwips(static_cast<double>(height))});
}

/// Asks for a size, held between the smallest window and the screen.
void QtMapWindow::ask(QSize outer) {
    const QSize most = window_.screen()->availableSize();
    frame_.ask(outer.boundedTo(most).expandedTo(window_.minimumSize().grownBy(outer_.margins)));
}

float QtMapWindow::ScaleHeight() const {
    return twipsFromPixels(frame_.size().height() - outer_.chrome());
}

WindowArea QtMapWindow::area() const {
    const QSize outer = outer_.outer().size();
    const QSize client(window_.width(), std::max(window_.height() - outer_.menuHeight(), 1));
    return {twipsFromPixels(outer.width()),
            twipsFromPixels(outer.height()),
            twipsFromPixels(client.width()),
            twipsFromPixels(client.height()),
            outer_.isFree(),
            static_cast<float>(window_.devicePixelRatioF())};
}

int QtMapWindow::mostPixels(MapShape shape) const {
    constexpr int most = 4000; // at more the eye finds nothing finer, and memory and time go
    const QSize screen = window_.screen()->size();
    const MapPlace place = MapFit({.ScaleWidth = twipsFromPixels(screen.width()),
                                   .ScaleHeight = twipsFromPixels(screen.height()),
                                   .free = false},
                                  shape);
    return std::min(pixelsFromTwips(place.width * window_.devicePixelRatioF()), most);
}

void QtMapWindow::setCaption(const std::string& caption) {
    window_.setWindowTitle(displayText(caption));
}

void QtMapWindow::CenterForm() {
    if (outer_.isFree()) {
        const QScreen& screen = *window_.screen();
        window_.move(centred(screen.geometry(), screen.availableGeometry(), frame_.size()));
    }
}

void QtMapWindow::followState() {
    // The statistics window has no button to minimize it, and some window managers then won't at
    // all.
    if (window_.isMinimized() && statsVisible()) {
        stats_->hide();
        statsAway_ = true;
    } else if (!window_.isMinimized() && std::exchange(statsAway_, false)) {
        stats_->show();
    }
}

void QtMapWindow::showMap(const MapPlace& place) {
    if (view_ == nullptr) {
        return;
    }
    view_->showMap(place);
}

void QtMapWindow::setWaitPointer(bool wait) {
    if (wait == std::exchange(waitPointer_, wait)) {
        return;
    }
    if (wait) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

void QtMapWindow::setTimer1(bool enabled) {
    if (enabled) {
        Timer1_.start();
    } else {
        Timer1_.stop();
    }
}

bool QtMapWindow::statsVisible() const { return stats_ && stats_->isVisible(); }

void QtMapWindow::hideStats() {
    statsAway_ = false;
    if (stats_) {
        stats_->hide();
    }
}

void QtMapWindow::closeStats() {
    if (stats_) {
        stats_->close();
    }
    content_.unload();
}

void QtMapWindow::mnuView_Stats() {
    if (statsVisible()) {
        stats_->raise();
        stats_->activateWindow();
        return;
    }
    if (!stats_) {
        stats_ = std::make_unique<frmMapStats>(
            content_, [this](MapColour entry) { acts_.pickColour(entry); });
    }
    outer_.learnMargins();
    const PairPlaces places = sideBySide(outer_.outer(), stats_->outerWidth(),
                                         window_.screen()->availableGeometry(), outer_.isFree());
    if (places.main != outer_.outer().topLeft()) {
        window_.move(places.main);
    }
    stats_->loadForm(places.stats, outer_.margins);
    stats_->show();
    stats_->refreshLists();
}

void QtMapWindow::askStationInfo() { acts_.askStationInfo(); }

std::optional<std::string> QtMapWindow::openFile(const std::string& title,
                                                 const std::string& folder,
                                                 const std::string& filter) {
    return openFileDialog(window_, title, folder, filter);
}

std::optional<PictureWish> QtMapWindow::choosePicture(const PictureWish& start, MapShape shape) {
    frmExportPicture dialog(start, shape, &window_);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.wish()) : std::nullopt;
}

std::optional<Colour> QtMapWindow::chooseColour(Colour start) {
    return colourDialog(window_, start);
}

bool QtMapWindow::openWithSystem(const std::string& path) { return openWithItsProgram(path); }

void QtMapWindow::refreshLists() {
    if (stats_) {
        stats_->refreshLists();
    }
}

void QtMapWindow::setVisible(bool visible) {
    // A window that comes back is put where it was: window managers like to place it anew.
    const QPoint place = window_.pos();
    window_.setVisible(visible);
    if (visible && outer_.isFree()) {
        window_.move(place);
    }
}

} // namespace tovrel
