#include "map/Coastline.h"

#include "map/CoastFile.h"
#include "map/MapColours.h"
#include "map/Pixels.h"
#include "platform/TestDoubles.h"

namespace tovrel {
namespace {

/// Draws a coastline database on a surface of its own.
struct CoastDrawing {
    CoastDrawing(const std::string& bytes, Projection projection)
        : map(worldMap(projection, 0.0F, 0.0F)) {
        coast.DrawCoastline(readCoastRecords(bytes));
    }
    PictureSurface surface = whiteSurface(1000, 1000);
    std::unique_ptr<const WorldMap> map;
    ScriptedListener listener;
    Coastline coast{surface, *map, listener};
};

/// Pixels of a coast in some columns of a surface.
int inkInColumns(const PictureSurface& surface, int first, int last) {
    return inkWhere(surface,
                    [=](int x, int, Colour c) { return c == black && x >= first && x <= last; })
        .count;
}

TEST(CoastRecords, CountIsTheLengthDividedAndRounded) {
    const std::pair<std::size_t, std::size_t> cases[] = {{0, 0}, {3, 0},  {4, 1},  {8, 1},
                                                         {9, 2}, {15, 2}, {16, 3}, {21, 4}};
    for (const auto& [bytes, records] : cases)
        EXPECT_EQ(readCoastRecords(std::string(bytes, '\1')).size(), records) << bytes;
    const auto cut = readCoastRecords(std::string("\x01\x02\x03\x04\x05", 5));
    EXPECT_EQ(cut[0].latitude, 0x0403);
    EXPECT_EQ(cut[0].longitude, 0x0005) << "a byte that is lacking counts as 0";
}

TEST(Coastline, AMarkerAbove1000LiftsThePenAndLetsEventsRun) {
    const std::string bytes = coastRecord(1001, {0, -3000}) + coastRecord(1000, {0, -1800}) +
                              coastRecord(32767, {0, 1800}) + coastRecord(-5, {0, 3000});
    const CoastDrawing drawing(bytes, Projection::Miller);
    EXPECT_EQ(drawing.listener.yields, 2);
    EXPECT_EQ(colourAt(drawing.surface, -40 * 122, 0), black);
    EXPECT_EQ(colourAt(drawing.surface, 40 * 122, 0), black);
    EXPECT_NE(colourAt(drawing.surface, 0, 0), black) << "no line from stroke to stroke";
}

TEST(Coastline, AMillerStrokeLeavesTheSurfaceAtTheDateLineAndComesBackBeyond) {
    // East over the line in one numbering, west over it in the other, each with its own latitudes.
    const struct {
        std::vector<CoastPoint> points;
        double sideBefore;
    } cases[] = {{{{600, 10200}, {600, 10740}, {1200, 10860}, {1200, 11400}}, 1.0},
                 {{{600, -10200}, {600, -10740}, {1200, 10740}, {1200, 10200}}, -1.0}};
    for (const auto& c : cases) {
        const CoastDrawing drawing(coastStroke(c.points), Projection::Miller);
        const auto at = [&](double x, double latitude) {
            return colourAt(drawing.surface, x * c.sideBefore, latitude * 240);
        };
        EXPECT_EQ(at(21960, 10), black) << "runs off the near edge at its old latitude";
        EXPECT_EQ(at(-21940, 20), black) << "comes in at the far edge at the new one";
        EXPECT_NE(at(21000, 20), black);
        EXPECT_NE(at(-21000, 10), black);
        EXPECT_EQ(inkInColumns(drawing.surface, 60, 939), 0) << "nothing crosses the map";
    }
}

TEST(Coastline, AnAzimuthalStrokeBreaksAtTheAntipodeAndGoesOnAfterIt) {
    const CoastDrawing drawing(coastAlong(0, 170, 190), Projection::Azimuthal);
    const Ink ink = inkOf(drawing.surface, black);
    EXPECT_GT(ink.count, 30);
    EXPECT_EQ(inkInColumns(drawing.surface, 81, 919), 0) << "no stroke across the map";
    EXPECT_NEAR(ink.left, 500 - 19731 / 44, 2);
    EXPECT_NEAR(ink.right, 500 + 19731 / 44, 2);
}

TEST(Coastline, SealingDrawsNothingWhereNoCoastWasCut) {
    const std::string cases[] = {"", coastAlong(0, -170, 170), coastAlong(0, 176, 177),
                                 coastAlong(0, 178, 180), // all of it hidden
                                 // One stroke ends before the cut, another begins within it.
                                 coastAlong(0, 150, 177) + coastAlong(0, 178, 182)};
    for (const std::string& bytes : cases) {
        CoastDrawing drawing(bytes, Projection::Azimuthal);
        const QImage before = drawing.surface.Image();
        drawing.coast.SealAntipodeRing();
        EXPECT_EQ(drawing.surface.Image(), before);
    }
}

} // namespace
} // namespace tovrel
