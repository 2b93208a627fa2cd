#include "app/frmInfoInput.h"

#include "app/WindowFixture.h"

#include <QLineEdit>

namespace tovrel {
namespace {

class frmInfoInputTest : public WindowFixture {
protected:
    void enter(const char* latitude, const char* longitude, const char* button) {
        window_.loadForm();
        window_.show();
        box("txtCallSign").setText(QStringLiteral("W1 ABC"));
        box("txtLatitude").setText(QLatin1String(latitude));
        box("txtLongitude").setText(QLatin1String(longitude));
        click(window_, button);
    }
    QLineEdit& box(const char* name) { return control<QLineEdit>(window_, name); }

    frmInfoInput window_{data_.ini, prompt_};
};

TEST_F(frmInfoInputTest, StoresWhatIsGoodAndClosesByApplyAlone) {
    enter("5", "6", "cmdInfoExit");
    EXPECT_FALSE(window_.isVisible());
    EXPECT_EQ(folder_.names(), "");
    enter("41.50", "", "cmdInfoApply");
    EXPECT_FALSE(window_.isVisible());
    EXPECT_TRUE(prompt_.told.empty());
    EXPECT_EQ(folder_.read("Tovrel.ini"),
              "[Globals]\r\nMyCall=W1 ABC\r\nLatitude=41.50\r\nLongitude=\r\n");
    window_.loadForm();
    EXPECT_EQ(box("txtLatitude").text(), "41.50");
}

TEST_F(frmInfoInputTest, TellsBothFaultsLatitudeFirstAndEmptiesABoxWithABlank) {
    enter("41,5", "7 2", "cmdInfoApply");
    ASSERT_EQ(prompt_.told.size(), 2U);
    EXPECT_EQ(prompt_.told[0].substr(0, 8), "Latitude");
    EXPECT_EQ(prompt_.told[1].substr(0, 9), "Longitude");
    EXPECT_EQ(box("txtLatitude").text(), "41,5") << "what can be mended is kept";
    EXPECT_EQ(box("txtLongitude").text(), "");
    EXPECT_TRUE(window_.isVisible());
    EXPECT_EQ(folder_.names(), "");
    enter("41.5 ", "-72.5", "cmdInfoApply");
    EXPECT_EQ(prompt_.told.size(), 3U);
    EXPECT_EQ(box("txtLatitude").text() + box("txtLongitude").text(), "-72.5");
    EXPECT_EQ(folder_.names(), "");
}

} // namespace
} // namespace tovrel
