#include "state/iniFiles.h"

#include "platform/TestFolder.h"
#include "state/MapColours.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(iniFiles, readsPathsOfBothEncodingsAndLeavesThemAsTheyAre) {
    const TestFolder folder;
    const std::string old = "[Log]\r\nadifile=C:\\Gr\xF6\xDF"
                            "e\\\x80.adi\r\n";
    const std::string later = "BaseMap=\\\\host\\Größe\\世.jpg\r\n";
    folder.write("Tovrel.ini", old + later);
    iniFiles ini(folder.path(), "Tovrel.ini");
    EXPECT_EQ(ini.readPath("Log", "ADIFile"), "C:\\Größe\\€.adi");
    EXPECT_EQ(ini.readPath("Log", "BaseMap"), "\\\\host\\Größe\\世.jpg");
    EXPECT_TRUE(ini.WriteIniValue("Log", "Other", "1"));
    EXPECT_EQ(folder.read("Tovrel.ini"), old + later + "Other=1\r\n");
}

TEST(iniFiles, convertsTextsOfEveryKind) {
    constexpr double none = 7.0;
    const struct {
        std::string value;
        double number; ///< with the fallback `none`
        bool boolean;  ///< with the fallback true
        bool check;
        Colour colour; ///< with the fallback 0xABCDEF
    } cases[] = {{"", none, true, false, 0xABCDEF},
                 {"1", 1, true, true, 1},
                 {"0", 0, false, false, 0},
                 {"tRUE", none, true, false, 0xABCDEF},
                 {"yes", none, false, false, 0xABCDEF},
                 {"-1", -1, true, false, 0xABCDEF},
                 {"1.0", 1, true, true, 1},
                 {"16777215", 16777215, true, false, 0xFFFFFF},
                 {"16777216", 16777216, true, false, 0xABCDEF},
                 {"48.5N", 48.5, true, false, 48},
                 {"N48", none, false, false, 0xABCDEF},
                 {"1e300", 1e300, true, false, 0xABCDEF}};
    const TestFolder folder;
    for (const auto& c : cases) {
        folder.write("T.ini", "[S]\r\nKey=" + c.value +
                                  "\r\n[GCMapOptions]\r\nLandColor=" + c.value + "\r\n");
        const iniFiles ini(folder.path(), "T.ini");
        EXPECT_EQ(ini.readNumber("S", "Key", none), c.number) << c.value;
        EXPECT_EQ(ini.readBoolean("S", "Key", true), c.boolean) << c.value;
        EXPECT_EQ(ini.readCheck("S", "Key"), c.check) << c.value;
        EXPECT_EQ(readColour(ini, Projection::Azimuthal, MapColour::Land, 0xABCDEF), c.colour)
            << c.value;
    }
}

TEST(iniFiles, trimsWhatItWritesAndFindsItInAnyCase) {
    const TestFolder folder;
    iniFiles ini(folder.path(), "My Settings.ini");
    EXPECT_TRUE(ini.WriteIniValue("Log", " ADIFile ", "  /a b/log.adi "));
    EXPECT_EQ(folder.read("My Settings.ini"), "[Log]\r\nADIFile=/a b/log.adi\r\n");
    EXPECT_EQ(ini.ReadIniValue("LOG", "adifile"), "/a b/log.adi");
    ini.WriteIniValue("Log", "adifile", std::string(600, 'x'));
    EXPECT_EQ(ini.ReadIniValue("Log", "adifile"), std::string(511, 'x'));
}

} // namespace
} // namespace tovrel
