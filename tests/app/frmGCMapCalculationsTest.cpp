#include "app/frmGCMapCalculations.h"

#include "app/WindowFixture.h"

#include <QLabel>
#include <QProgressBar>

namespace tovrel {
namespace {

class frmGCMapCalculationsTest : public WindowFixture {
protected:
    const QProgressBar& bar() { return control<QProgressBar>(window_, "ProgressBar1"); }

    frmGCMapCalculations window_;
};

TEST_F(frmGCMapCalculationsTest, LiesAlongTheBottomOfTheMainWindow) {
    window_.begin("Plotting ADIF File", "Processing: <b>.adi", 100.0, {50, 60, 500, 400});
    EXPECT_TRUE(window_.isVisible());
    EXPECT_EQ(window_.windowTitle(), "Plotting ADIF File");
    const QRect outer = window_.frameGeometry();
    EXPECT_EQ(outer.left(), 50);
    EXPECT_EQ(outer.width(), 500);
    EXPECT_EQ(outer.bottom(), 459);
    EXPECT_EQ(window_.height(), 56);
    EXPECT_EQ(bar().width(), 475);
    EXPECT_EQ(bar().x(), 10);
    const auto& label = control<QLabel>(window_, "Label1");
    EXPECT_EQ(label.width(), 475);
    EXPECT_LE(label.geometry().bottom(), bar().y());
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
}

} // namespace
} // namespace tovrel
