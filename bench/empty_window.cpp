// The smallest window program: what start, first paint and exit cost without any work.

#include <QApplication>
#include <QWidget>

namespace {

class EmptyWindow : public QWidget {
protected:
    void paintEvent(QPaintEvent* /*event*/) override { QCoreApplication::quit(); }
};

} // namespace

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    EmptyWindow window;
    window.show();
    return QApplication::exec();
}
