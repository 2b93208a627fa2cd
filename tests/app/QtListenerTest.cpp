#include "app/QtListener.h"

#include "app/WindowFixture.h"

#include <QLabel>
#include <QProgressBar>
#include <QTimer>

namespace tovrel {
namespace {

class QtListenerTest : public WindowFixture {
protected:
    QWidget& progress() { return control(main_, "frmGCMapCalculations"); }
    int bar() { return control<QProgressBar>(progress(), "ProgressBar1").value(); }
    QString status() { return control<QLabel>(progress(), "Label1").text(); }

    QWidget main_;
    QtListener listener_{main_, [] { return QRect(10, 20, 500, 400); }};
};

TEST_F(QtListenerTest, ShowsAPassFromItsBeginningToItsEnd) {
    listener_.beginPass("Plotting", "Processing: <b>caf\xE9.adi", 200.0F);
    EXPECT_TRUE(progress().isVisible());
    const QRect outer = progress().frameGeometry();
    EXPECT_EQ(outer, QRect(10, 420 - outer.height(), 500, outer.height()));
    EXPECT_EQ(control<QLabel>(progress(), "Label1").textFormat(), Qt::PlainText);
    EXPECT_EQ(progress().windowTitle() + '|' + status(),
              QString("Plotting|Processing: <b>caf\u00E9.adi"));
    listener_.showProgress(50.0F);
    listener_.yield();
    EXPECT_EQ(bar(), 50);
    listener_.showProgress(120.0F);
    EXPECT_EQ(bar(), 50) << "shown by the next yield that lets events run";
    listener_.showStatus("Sorting");
    EXPECT_EQ(std::pair(status(), bar()), std::pair(QString("Sorting"), 120));
    listener_.endPass();
    EXPECT_FALSE(progress().isVisible());
    listener_.beginPass("Again", "", 10.0F);
    EXPECT_EQ(bar(), 0);
    listener_.closeWindow(); // what follows an abort
    EXPECT_FALSE(progress().isVisible());
}

TEST_F(QtListenerTest, LetsEventsRunAtTheFirstYieldAndThenNowAndAgain) {
    int ran = 0;
    int refreshed = 0;
    const Connection lists = listener_.refreshLists.connect([&] { ++refreshed; });
    QTimer timer;
    timer.callOnTimeout([&] { ++ran; });
    timer.start(0);
    for (int pass = 1; pass <= 2; ++pass) {
        listener_.beginPass("", "", 1.0F);
        listener_.yield();
        EXPECT_EQ(ran, pass);
    }
    QElapsedTimer time;
    time.start();
    for (const int before = refreshed; refreshed < before + 2;)
        listener_.yield();
    EXPECT_GE(time.elapsed(), 100) << "the lists are not renewed more often";
    EXPECT_GT(ran, 3) << "the user is heard";
    EXPECT_LE(ran, time.elapsed() / 10 + 3) << "most records go on at once";
}

} // namespace
} // namespace tovrel
