#include "log/ContactPlace.h"

#include "log/PositionCounts.h"
#include "platform/Numbers.h"

#include <gtest/gtest.h>
#include <string>

namespace tovrel {
namespace {

std::string textOf(std::optional<double> value) { return value ? fixedText(*value, 6) : "-"; }

std::string textOf(const std::optional<Position>& place) {
    return place ? textOf(place->latitude) + "," + textOf(place->longitude) : "-";
}

TEST(ContactPlace, readsLocations) {
    const std::pair<const char*, const char*> cases[] = {
        {"N51 30.3", "51.505"}, {"s51 30", "-51.5"}, {"N1   3.", "1.05"}, {"N090 00.000", "90"},
        {"S000 00.0", "0"},     {"51.5", "51.5"},    {"-.5", "-0.5"},     {"+7.", "7"},
        {"-90", "-90"},         {"-0.0", "0"}};
    for (const auto& [text, degrees] : cases)
        EXPECT_EQ(textOf(locationDegrees(text, 'N', 'S', 90.0)), degrees) << text;
    EXPECT_EQ(textOf(locationDegrees("w179 59.4", 'E', 'W', 180.0)), "-179.99");
    for (const char* none :
         {"",         "N",        "N051",    "N051 ",       "N051 30.25x", "N05130.25",
          "N0051 30", "N051 030", "N051 60", "N090 00.001", "N 51 30",     "N051\t30",
          "N051 +3",  "N051 .5",  "E051 30", "51 30",       "51.5N",       ".",
          "51,5",     "5e1",      "90.0001", "inf",         "1.2.3"})
        EXPECT_FALSE(locationDegrees(none, 'N', 'S', 90.0)) << none;
}

TEST(ContactPlace, takesTheMiddleOfALocator) {
    // Of some the good beginning counts. An extension stands behind 8 characters alone.
    const struct {
        const char *square, *extension, *place;
    } cases[] = {{"JO62", "", "52.5,13"},
                 {"jo62QM", "", "52.520833,13.375"},
                 {"JO62QM50", "", "52.502083,13.379167"},
                 {"JO62QM50AB", "", "52.50026,13.375174"},
                 {"AA00AA00AA00", "", "-89.999991,-179.999983"},
                 {"RR99XX99XX99", "", "89.999991,179.999983"},
                 {"JO62QM50", "AB", "52.50026,13.375174"},
                 {"JO62QM50", "AB12xyz", "52.500217,13.375052"},
                 {"JO62QM", "50", "52.520833,13.375"},
                 {"JO62QMZ", "", "52.520833,13.375"},
                 {"JO62YM", "", "52.5,13"},
                 {"JO62Q", "", "52.5,13"},
                 {"JO62QM5x", "AB", "52.520833,13.375"},
                 {"JO62QM50ABC", "", "52.50026,13.375174"},
                 {"JO62QM50AB1234", "", "52.500217,13.375052"}};
    for (const auto& c : cases)
        EXPECT_EQ(textOf(locatorPosition(c.square, c.extension)), c.place) << c.square;
    for (const char* none : {"", "JO6", "JO6X", "SO62", "62JO"})
        EXPECT_FALSE(locatorPosition(none, "")) << none;
}

TEST(ContactPlace, isTheFirstThatIsTold) {
    EntityTable table;
    const auto expect = [&table](const char* what, const QsoFields& fields, const char* wanted) {
        const std::optional<ContactPlace> place = contactPlace(fields, &table);
        const std::string got =
            place ? std::string(wordOf(place->from)) + " " + textOf(place->position) : "-";
        EXPECT_EQ(got, wanted) << what << ": " << fields.call << " " << fields.dxcc;
    };
    QsoFields all;
    all.call = "G4ABC";
    all.loggerNorth = "- 5";
    all.loggerWest = "7x";
    all.lat = "N010 30";
    all.lon = "-20.5";
    all.gridSquare = "JO62";
    all.dxcc = "229";
    expect("everything", all, "coordinates -5,-7");
    all.loggerWest = "0";
    expect("a logger's 0", all, "coordinates 10.5,-20.5");
    QsoFields other = all;
    other.lon = "181";
    expect("beyond the range", other, "locator 52.5,13");
    other = all;
    other.lat = "0";
    expect("on the equator", other, "coordinates 0,-20.5");
    all.lat = "S000 00.000";
    all.lon = "0";
    expect("0, 0 is unknown", all, "locator 52.5,13");
    all.gridSquare = "none";
    expect("a deleted entity", all, "country 52.2,13");
    all.dxcc = "0230";
    expect("an entity of today", all, "country 50.9,9.7");
    for (const char* dxcc : {"", "-230", "230.0", "4711", "99999999999999999999"}) {
        all.dxcc = dxcc;
        expect("a DXCC that says nothing", all, "country 52.5,-1.5");
    }
    all.dxcc = "00";
    expect("in no country", all, "-");
    all.dxcc = "230";
    for (const char* call : {"G4ABC/mm", "/AM", "G4ABC/MM=", "G4ABC/AM/P"}) {
        all.call = call;
        expect("at sea or in the air", all, "-");
    }
    all.call = "MM0ABC";
    expect("in Scotland", all, "country 50.9,9.7");

    EXPECT_FALSE(contactPlace(all, nullptr)) << "not by country";
}

} // namespace
} // namespace tovrel
