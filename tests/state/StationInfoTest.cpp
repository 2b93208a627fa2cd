#include "state/StationInfo.h"

#include <QTemporaryDir>
#include <array>
#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(StationInfo, JudgesACoordinateByItsForm) {
    struct Row {
        std::string_view text;
        CoordinateFault fault;
    };
    constexpr std::array rows = {
        Row{"", CoordinateFault::None},
        Row{"0", CoordinateFault::None},
        Row{"41.5", CoordinateFault::None},
        Row{"-72.5", CoordinateFault::None},
        Row{"+7", CoordinateFault::None},
        Row{".5", CoordinateFault::None},
        Row{"-5.", CoordinateFault::None},
        Row{"400", CoordinateFault::None},
        Row{"41.5 ", CoordinateFault::Blank},
        Row{" ", CoordinateFault::Blank},
        Row{"41 30 N", CoordinateFault::Blank},
        Row{"41,5", CoordinateFault::NoNumber},
        Row{"41.5N", CoordinateFault::NoNumber},
        Row{"41.5.1", CoordinateFault::NoNumber},
        Row{"-", CoordinateFault::NoNumber},
        Row{".", CoordinateFault::NoNumber},
        Row{"1e3", CoordinateFault::NoNumber},
        Row{"nan", CoordinateFault::NoNumber},
        Row{"\t41.5", CoordinateFault::NoNumber},
        Row{"\xE2\x88\x92"
            "5",
            CoordinateFault::NoNumber},
    };
    for (const Row& row : rows)
        EXPECT_EQ(coordinateFault(row.text), row.fault) << '"' << row.text << '"';
}

TEST(StationInfo, WordsItsMessages) {
    EXPECT_EQ(coordinateMessage("Latitude", CoordinateFault::Blank),
              "Latitude Data Error\r\nPlease do not use a space as a delimiter.");
    EXPECT_EQ(coordinateMessage("Longitude", CoordinateFault::NoNumber),
              "Longitude Data Error\r\n"
              "Please enter a decimal number such as 41.5, with a point as decimal mark.");
}

TEST(StationInfo, ComesBackAsStored) {
    const QTemporaryDir folder;
    iniFiles ini(folder.path().toStdString(), "Tovrel.ini");
    writeStationInfo(ini, {"W1 ABC/P", "41.50", "-72.5"});
    const StationInfo info = readStationInfo(ini);
    EXPECT_EQ(info.MyCall, "W1 ABC/P");
    EXPECT_EQ(info.Latitude, "41.50");
    EXPECT_EQ(info.Longitude, "-72.5");
}

} // namespace
} // namespace tovrel
