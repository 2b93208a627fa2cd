// The window program driven from its start to its end.
//
//     window_plot FOLDER         starts, paints once, ends
//     window_plot FOLDER plot    starts, plots the log that the settings in FOLDER name, paints,
//     ends
//
// FOLDER holds the data files and Tovrel.ini.

#include "app/frmMain.h"
#include "platform/frmControls.h"
#include "platform/frmStyle.h"
#include "run/RunData.h"

#include <QAction>
#include <QApplication>
#include <QTimer>
#include <cstdio>

namespace {

/// Ends the program when the window has been painted.
class PaintWatch : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        }
        return false;
    }
};

} // namespace

int main(int argc, char* argv[]) {
    if (argc < 2) {
        std::fputs("usage: window_plot FOLDER [plot]\n", stderr);
        return 2;
    }
    int qtArguments = 1;
    QApplication application(qtArguments, argv);
    QApplication::setStyle(new tovrel::frmStyle);
    QApplication::setFont(tovrel::windowFont());

    tovrel::RunData data(argv[1], "Tovrel.ini");
    tovrel::frmMain window(data);
    window.start();
    if (argc > 2) {
        // The click comes back when the pass has ended.
        window.findChild<QAction*>(QStringLiteral("mnuLoadADIF"))->trigger();
        if (data.tables.counters.QsosPlotted == 0) {
            std::fputs("window_plot: nothing was plotted\n", stderr);
            return 1;
        }
    }
    PaintWatch watch;
    window.centralWidget()->installEventFilter(&watch);
    window.centralWidget()->update();
    return QApplication::exec();
}
