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

TEST_F(frmGCMapCalculationsTest, BarTellsWholeNumbersOfItsOwnScale) {
    struct Row {
        double maximum;
        double value;
        int shown;
    };
    for (const Row& row : {Row{100.0, 42.4F, 42}, Row{100.0, 100.0, 100}, Row{100.0, 250.0, 100},
                           Row{4860000.0F, 1215000.0F, 1215000}, Row{0.0, 0.0, 0}}) {
        window_.begin("", "", row.maximum, {0, 0, 440, 400});
        EXPECT_EQ(bar().value(), 0) << "taken over with an empty bar";
        window_.showProgress(row.value);
        EXPECT_EQ(bar().value(), row.shown);
        EXPECT_LT(bar().minimum(), bar().maximum()) << "an empty range runs to and fro";
    }
}

} // namespace
} // namespace tovrel
