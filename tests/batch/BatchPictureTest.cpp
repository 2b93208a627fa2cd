#include "batch/BatchRun.h"

#include "platform/SuppliedFiles.h"
#include "state/MapColours.h"

#include <QImage>
#include <algorithm>
#include <filesystem>
#include <sstream>

namespace tovrel {

namespace {

class BatchPicture : public BatchTest {
protected:
    /// The supplied map, and a log whose contacts lie far from each other.
    BatchPicture() {
        copySupplied(folder);
        log = work.write("log.adi",
                         record({"DL1A", "50", "-10.5", "20M", "CW", "", adif("QSL_RCVD", "Y")}) +
                             record({"ZS1A=", "-33", "-18"}));
    }
    /// The picture without its lower edge, where the stamp shows the time.
    QImage picture(std::vector<std::string> options, const std::string& kind = "--image") const {
        const std::string path = work.path("picture.bmp");
        options.insert(options.end(), {kind, path});
        EXPECT_EQ(run("plot", options).status, 0);
        const QImage image(QString::fromStdString(path));
        return kind == "--image" ? image.copy(0, 0, image.width(), image.height() * 9 / 10) : image;
    }
};

TEST_F(BatchPicture, isStampedAndOfTheKindThatItsNameTells) {
    const struct {
        const char *projection, *name, *magic;
        QSize size;
    } cases[] = {{"azimuthal", "map.png", "\x89PNG", {800, 800}},
                 {"miller", "map.BMP", "BM", {800, 400}},
                 {"miller", "map.jpeg", "\xFF\xD8", {800, 400}}};
    for (const auto& c : cases) {
        const std::string path = work.path(c.name);
        const BatchEnd end = run("plot", {"--projection", c.projection, "--image", path});
        EXPECT_EQ(end.status, 0) << end.err;
        EXPECT_EQ(end.out + end.err, "");
        EXPECT_TRUE(work.read(c.name).starts_with(c.magic)) << c.name;
        const QImage image(QString::fromStdString(path));
        EXPECT_EQ(image.size(), c.size) << c.name;
        const Ink stamp = inkWhere(surfaceOf(image), [&c](int x, int y, Colour colour) {
            return x < 100 && y > c.size.height() * 94 / 100 && (colour & 0xFFU) < 100;
        });
        EXPECT_GT(stamp.count, 50) << c.name;
    }
}

TEST_F(BatchPicture, showsContactsAndSeaInTheirPlaces) {
    const QImage image = picture({"--projection", "miller"});
    const auto at = [&](double latitude, double longitude) {
        return colourOfImage(image.pixel(static_cast<int>(400 + longitude * 122 * 800 / 44000),
                                         static_cast<int>(200 - latitude * 240 * 400 / 44000)));
    };
    EXPECT_EQ(at(50, 10.5), keyOf(MapColour::Confirmed).byDefault);
    EXPECT_EQ(at(-33, 18), keyOf(MapColour::Heard).byDefault);
    EXPECT_EQ(at(0, -30), keyOf(MapColour::Water).byDefault);
    EXPECT_EQ(at(40, -74), keyOf(MapColour::Home).byDefault);
}

TEST_F(BatchPicture, looksFollowTheirOptionAndTheBaseMapDoesNot) {
    std::filesystem::remove(folder.path("mapper.pnt")); // it would take its time
    EXPECT_EQ(picture({"--size", "300"}).size(), QSize(300, 270));
    const QImage base = picture({}, "--base-map");
    EXPECT_EQ(base.size(), QSize(667, 667));
    folder.write("GCBaseMap.map", "no picture");
    std::vector<QImage> seen;
    std::vector<std::string> all;
    for (const auto& [option, value] : {std::pair{"--compass", "off"},
                                        {"--compass", "15"},
                                        {"--compass", "45"},
                                        {"--graticule", "on"},
                                        {"--home-mark", "off"},
                                        {"--marker", "small"}}) {
        const QImage image = picture({"--size", "400", option, value});
        EXPECT_EQ(std::count(seen.begin(), seen.end(), image), 0) << option << ' ' << value;
        seen.push_back(image);
        all.insert(all.end(), {option, value});
    }
    EXPECT_EQ(picture(all, "--base-map"), base);
    // The relief is no look: it is part of the base map, and nobody is asked about it.
    const QString world = QString::fromStdString(folder.path("world.bmp"));
    ASSERT_TRUE(plainImage(36, 18, 0x0000FF).save(world));
    std::string reliefed = settings;
    reliefed.insert(reliefed.find("Band0"), "BaseMap=" + folder.path("world.bmp") + "\r\n");
    folder.write("Tovrel.ini", reliefed);
    EXPECT_NE(picture({"--topo", "on"}, "--base-map"), base);
    EXPECT_EQ(picture({"--topo", "off"}, "--base-map"), base);
    EXPECT_EQ(everythingIn(folder.path()), "GCBaseMap.map Tovrel.ini paintma.txt world.bmp ");
    EXPECT_EQ(folder.read("Tovrel.ini") + folder.read("GCBaseMap.map"), reliefed + "no picture");
}

TEST_F(BatchPicture, withoutTheDataFilesComesOnlyWhenThatIsAllowed) {
    const TestFolder empty;
    const std::string missing = "tovrel-batch: The databse file 'Mapper.pnt' not found.\n"
                                "tovrel-batch: The databse file 'paintma.txt' not found.\n";
    std::vector<std::string> arguments = {"plot",     log,   "--folder", empty.path(),
                                          "--home",   "1,2", "--image",  work.path("map.png"),
                                          "--report", "-"};
    BatchEnd end = runBatch(arguments);
    EXPECT_EQ(end.status, 3);
    EXPECT_EQ(end.err, missing + "tovrel-batch: --allow-incomplete draws the map all the same\n");
    EXPECT_EQ(everythingIn(work.path()), "log.adi ");

    arguments.emplace_back("--allow-incomplete");
    end = runBatch(arguments);
    EXPECT_EQ(end.status, 0);
    EXPECT_EQ(end.err, missing);
    EXPECT_NE(end.out.find("\"messages\":[\"The databse file 'Mapper.pnt' not found.\","),
              std::string::npos);
    end = runBatch({"plot", log, "--folder", empty.path(), "--report", "-"});
    EXPECT_EQ(end.status, 0) << "a report needs no map";
    EXPECT_EQ(end.err, "tovrel-batch: no settings tell the home position, 0,0 is taken; "
                       "--home LAT,LON sets it\n");
    EXPECT_EQ(everythingIn(empty.path()), "");
}

TEST_F(BatchPicture, goesToStandardOutputAsPng) {
    for (const char* option : {"--image", "--base-map"}) {
        const BatchEnd end = run("plot", {option, "-"});
        EXPECT_EQ(end.status, 0) << end.err;
        const QImage image = QImage::fromData(reinterpret_cast<const uchar*>(end.out.data()),
                                              static_cast<int>(end.out.size()), "PNG");
        EXPECT_EQ(image.width(), option == std::string("--image") ? 800 : 667);
    }
}

TEST(BatchProgram, TellsOfItselfOnStandardOutput) {
    const BatchEnd help = runBatch({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("  --home LAT,LON"), std::string::npos) << help.out;
    const BatchEnd version = runBatch({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, "tovrel-batch 1.0.0\n");
    EXPECT_EQ(help.err + version.err, "");

    std::istringstream lines(help.out);
    int count = 0;
    for (std::string line; std::getline(lines, line); ++count)
        EXPECT_LE(line.size(), 80U) << line;
    EXPECT_LE(count, 45) << "a screen";
}

} // namespace

} // namespace tovrel
