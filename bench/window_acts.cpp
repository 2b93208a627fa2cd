// What a user does with a plotted log in the window, and the CPU time of each act.
//
//     window_acts FOLDER
//
// FOLDER holds the data files and Tovrel.ini, which names a log. Prints a line for each act: what
// it is, a tab, and milliseconds.

#include "app/frmMain.h"
#include "platform/frmControls.h"
#include "platform/frmStyle.h"
#include "run/RunData.h"

#include <QAction>
#include <QApplication>
#include <QListView>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimer>
#include <cstdio>
#include <ctime>
#include <functional>

namespace {

/// Lets the window program answer: all events, and what it does a moment later.
void settle() {
    constexpr int pause = 60; // milliseconds; a change of size is followed up after 15
    QEventLoop loop;
    QTimer::singleShot(pause, &loop, &QEventLoop::quit);
    loop.exec();
}

/// @param perform is handed the number of the step, from 0
void measure(const char* act, int steps, const std::function<void(int)>& perform) {
    settle();
    const std::clock_t before = std::clock();
    for (int step = 0; step < steps; ++step) {
        perform(step);
        QCoreApplication::processEvents();
    }
    settle();
    const double seconds = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    std::printf("%s\t%.2f\n", act, seconds * 1000.0 / steps);
}

template <typename Widget>
Widget& named(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* found = window->findChild<Widget*>(QLatin1String(name))) {
            return *found;
        }
    }
    std::fprintf(stderr, "window_acts: no %s\n", name);
    std::exit(1);
}

void hover(QWidget& map, QPointF at) {
    QMouseEvent move(QEvent::MouseMove, at, map.mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&map, &move);
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::fputs("usage: window_acts FOLDER\n", stderr);
        return 2;
    }
    int qtArguments = 1;
    QApplication application(qtArguments, argv);
    QApplication::setStyle(new tovrel::frmStyle);
    QApplication::setFont(tovrel::windowFont());
    QApplication::setQuitOnLastWindowClosed(false);

    tovrel::RunData data(argv[1], "Tovrel.ini");
    tovrel::frmMain window(data);
    window.start();
    const auto pick = [](const char* item) { named<QAction>(item).trigger(); };
    pick("mnuLoadADIF");
    QWidget& map = *window.centralWidget();

    measure("Opening the statistics, list sorted", 1, [&](int) { pick("mnuView_Stats"); });
    auto& list = named<QListView>("lstConfirmed");
    QScrollBar& bar = *list.verticalScrollBar();
    measure("A page of the list", 100,
            [&](int) { bar.triggerAction(QScrollBar::SliderPageStepAdd); });
    measure("A drag of the scroll bar to any place", 100,
            [&](int step) { bar.setValue(bar.maximum() / 100 * step); });
    measure("Picking a station", 10, [&](int step) {
        list.setCurrentIndex(list.model()->index(list.model()->rowCount() / 10 * step, 0));
    });
    measure("A move over the map, with its tip", 100, [&](int step) {
        hover(map, {50.0 + 4.0 * step, map.height() / 2.0});
    });
    pick("mnuMeridian");
    measure("A step of a drag at the corner, with graticule", 10,
            [&](int) { window.resize(window.width() + 4, window.height() + 4); });
    measure("Switching the projection, with a progress window", 2,
            [&](int step) { pick(step == 0 ? "mnuMiller" : "mnuGreatCircle"); });
    return 0;
}
