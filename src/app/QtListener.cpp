#include "app/QtListener.h"

#include "platform/ByteText.h"

#include <QCoreApplication>
#include <utility>

namespace tovrel {

namespace {

constexpr qint64 eventsEvery = 10; // milliseconds
constexpr qint64 listsEvery = 100;

} // namespace

QtListener::QtListener(QWidget& mainWindow, std::function<QRect()> mainWindowFrame)
    : mainWindowFrame_(std::move(mainWindowFrame)), window_(&mainWindow) {
    sinceLists_.start();
}

void QtListener::beginPass(std::string_view caption, std::string_view status, float maximum) {
    progress_ = 0.0F;
    window_.begin(displayText(caption), displayText(status), static_cast<double>(maximum),
                  mainWindowFrame_());
    sinceEvents_.invalidate(); // events run at the first yield, however short the pass
}

void QtListener::showStatus(std::string_view status) {
    window_.showStatus(displayText(status));
    window_.showProgress(static_cast<double>(progress_));
    // What follows may take seconds without a yield.
    window_.repaint();
}

void QtListener::endPass() {
    window_.showProgress(static_cast<double>(progress_));
    window_.close();
}

void QtListener::yield() {
    if (!sinceEvents_.hasExpired(eventsEvery)) {
        return;
    }
    window_.showProgress(static_cast<double>(progress_));
    if (sinceLists_.elapsed() >= listsEvery) {
        refreshLists();
        sinceLists_.restart();
    }
    QCoreApplication::processEvents();
    sinceEvents_.restart();
}

} // namespace tovrel
