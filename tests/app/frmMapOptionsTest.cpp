#include "app/frmMapOptions.h"

#include "app/WindowFixture.h"

namespace tovrel {
namespace {

class frmMapOptionsTest : public WindowFixture {
protected:
    frmMapOptionsTest() {
        folder_.write("Tovrel.ini", settings);
        data_.maps.LoadMCMapOptions();
        window_.show();
    }

    const std::string settings = "[MCMapOptions]\r\nBand0=0\r\nBand12=1\r\nMarker=Medium\r\n"
                                 "Line=3\r\nCountry=1\r\n";
    const MapOptions& options_ = data_.maps.of(Projection::Miller);
    frmMapOptions window_{Projection::Miller, data_.maps, [] {}};
};

TEST_F(frmMapOptionsTest, FilterBoxesKeepTheirRuleUnderTheMouse) {
    const struct {
        const char* clicked;
        bool off, third; ///< boxes that are checked afterwards
    } rows[] = {{"chkBand(12)", true, false}, {"chkBand(0)", true, false},
                {"chkBand(3)", false, true},  {"chkBand(3)", true, false},
                {"chkBand(3)", false, true},  {"chkBand(0)", true, false}};
    for (const auto& row : rows) {
        click(window_, row.clicked);
        EXPECT_EQ(checked(window_, "chkBand(0)"), row.off) << row.clicked;
        EXPECT_EQ(checked(window_, "chkBand(3)"), row.third) << row.clicked;
        EXPECT_EQ(options_.filter.band.selected(3), row.third);
    }
}

TEST_F(frmMapOptionsTest, ShowsTheSettingsAndWritesEachActIntoItsMapAloneUntilItIsClosed) {
    const auto showsSettings = [this] {
        for (const char* name : {"chkBand(12)", "Option2", "optLine3", "chkCountry"})
            EXPECT_TRUE(checked(window_, name)) << name;
        for (const char* name : {"chkBand(0)", "chkMode(2)", "chkLatLong", "chkCall"})
            EXPECT_FALSE(checked(window_, name)) << name;
    };
    showsSettings();
    for (const char* name : {"Option3", "optLine2", "chkLatLong", "chkMode(2)"})
        click(window_, name);
    EXPECT_EQ(options_.marker, MarkerSize::Large);
    EXPECT_EQ(options_.line, 2);
    EXPECT_TRUE(options_.chkLatLong && options_.chkCountry && !options_.chkCall);
    EXPECT_FALSE(checked(window_, "Option2") || checked(window_, "optLine3"));
    EXPECT_EQ(data_.maps.of(Projection::Azimuthal).marker, MarkerSize::Small);
    window_.close();
    EXPECT_FALSE(options_.filter.mode.selected(2));
    window_.show();
    showsSettings();
    EXPECT_EQ(folder_.read("Tovrel.ini"), settings) << "all this writes nothing";
}

} // namespace
} // namespace tovrel
