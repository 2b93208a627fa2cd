#include "app/frmInfoInput.h"

#include "app/WindowFixture.h"

#include <QLineEdit>

namespace tovrel {
namespace {

class frmInfoInputTest : public WindowFixture {
protected:
    void enter(const char* latitude, const char* longitude) {
        window_.loadForm();
        window_.show();
        box("txtCallSign").setText(QStringLiteral("W1 ABC"));
        box("txtLatitude").setText(QLatin1String(latitude));
        box("txtLongitude").setText(QLatin1String(longitude));
        click(control<QWidget>(window_, "cmdInfoApply"));
    }
    QLineEdit& box(const char* name) { return control<QLineEdit>(window_, name); }
    std::string stored(const char* key) { return ini_.ReadIniValue("Globals", key); }

    frmInfoInput window_{ini_, prompt_};
};

TEST_F(frmInfoInputTest, StoresWhatIsGoodAndCloses) {
    enter("41.50", "");
    EXPECT_FALSE(window_.isVisible());
    EXPECT_TRUE(prompt_.told.empty());
    EXPECT_EQ(stored("MyCall"), "W1 ABC");
    EXPECT_EQ(stored("Latitude"), "41.50");
    window_.loadForm();
    EXPECT_EQ(box("txtLatitude").text(), "41.50");
}

TEST_F(frmInfoInputTest, EmptiesABoxWithABlankAndKeepsTheOther) {
    enter("41.5 ", "-72.5");
    EXPECT_TRUE(window_.isVisible());
    EXPECT_EQ(box("txtLatitude").text(), "");
    EXPECT_EQ(box("txtLongitude").text(), "-72.5");
    ASSERT_EQ(prompt_.told.size(), 1U);
    EXPECT_EQ(stored("MyCall"), "");
}

TEST_F(frmInfoInputTest, TellsBothFaultsLatitudeFirst) {
    enter("41,5", "7 2");
    ASSERT_EQ(prompt_.told.size(), 2U);
    EXPECT_EQ(prompt_.told[0].substr(0, 8), "Latitude");
    EXPECT_EQ(prompt_.told[1].substr(0, 9), "Longitude");
    EXPECT_EQ(box("txtLatitude").text(), "41,5") << "what can be mended is kept";
    EXPECT_EQ(box("txtLongitude").text(), "");
    EXPECT_TRUE(window_.isVisible());
}

TEST_F(frmInfoInputTest, LeavesByExitOrEscapeWithoutStoring) {
    for (const bool byExit : {true, false}) {
        window_.loadForm();
        window_.show();
        box("txtLatitude").setText(QStringLiteral("5"));
        QTest::keyClick(&box("txtLatitude"), Qt::Key_Return);
        EXPECT_TRUE(window_.isVisible()) << "Return in a box is no Apply";
        if (byExit) {
            click(control<QWidget>(window_, "cmdInfoExit"));
        } else {
            QTest::keyClick(&window_, Qt::Key_Escape);
        }
        EXPECT_FALSE(window_.isVisible());
        EXPECT_EQ(stored("Latitude"), "");
    }
}

} // namespace
} // namespace tovrel
