#include "batch/BatchRun.h"

#include <QImage>
#include <filesystem>
#include <sstream>

namespace tovrel {

namespace {

class BatchPicture : public BatchTest {
protected:
    /// The supplied map, and a log whose contacts lie far from each other.
    BatchPicture() {
        for (const char* name : {"mapper.pnt", "paintma.txt"})
            std::filesystem::copy_file(joinPath(TOVREL_DATA_DIR, name), folder.path(name));
        log = work.write("log.adi",
                         record({"DL1A", "50", "-10.5", "20M", "CW", "", adif("QSL_RCVD", "Y")}) +
                             record({"ZS1A=", "-33", "-18"}) + record({"OX\"1\\\x1F", "", "7"}));
    }
};

/// Dark pixels where the stamp begins.
int stampInk(const QImage& image) {
    int dark = 0;
    for (int y = image.height() * 94 / 100; y < image.height(); ++y) {
        for (int x = 8; x < 100; ++x)
            dark += qGray(image.pixel(x, y)) < 100 ? 1 : 0;
    }
    return dark;
}

TEST_F(BatchPicture, isStampedAndOfTheKindThatItsNameTells) {
    const struct {
        const char *projection, *name, *magic;
        QSize size;
    } cases[] = {{"azimuthal", "map.png", "\x89PNG", {800, 800}},
                 {"miller", "map.BMP", "BM", {800, 400}},
                 {"miller", "map.jpg", "\xFF\xD8", {800, 400}}};
    for (const auto& c : cases) {
        const std::string path = work.path(c.name);
        const BatchEnd end = run("plot", {"--projection", c.projection, "--image", path});
        EXPECT_EQ(end.status, 0) << end.err;
        EXPECT_EQ(end.out + end.err, "");
        EXPECT_TRUE(work.read(c.name).starts_with(c.magic)) << c.name;
        const QImage image(QString::fromStdString(path));
        EXPECT_EQ(image.size(), c.size) << c.name;
        EXPECT_GT(stampInk(image), 50) << c.name;
    }
}

TEST_F(BatchPicture, showsContactsAndSeaInTheirPlaces) {
    const std::string path = work.path("map.png");
    EXPECT_EQ(run("plot", {"--projection", "miller", "--image", path}).status, 0);
    const QImage image(QString::fromStdString(path));
    const auto at = [&](double latitude, double longitude) {
        return image.pixel(static_cast<int>(400 + longitude * 122 * 800 / 44000),
                           static_cast<int>(200 - latitude * 240 * 400 / 44000));
    };
    EXPECT_EQ(at(50, 10.5), qRgb(0, 255, 64)) << "confirmed";
    EXPECT_EQ(at(-33, 18), qRgb(0, 0, 255)) << "heard";
    EXPECT_EQ(at(0, -30), qRgb(0xA5, 0xCD, 0xFE)) << "sea";
    EXPECT_EQ(at(40, -74), qRgb(255, 255, 0)) << "home";
}

TEST_F(BatchPicture, neverLooksAtACache) {
    const std::string before = work.path("before.png");
    const std::string after = work.path("after.png");
    run("plot", {"--base-map", before});
    folder.write("GCBaseMap.map", "no picture");
    EXPECT_EQ(run("plot", {"--base-map", after}).status, 0);
    EXPECT_EQ(QImage(QString::fromStdString(before)), QImage(QString::fromStdString(after)));
    EXPECT_EQ(folder.read("GCBaseMap.map"), "no picture");
}

TEST_F(BatchPicture, goesWithAReportOfPlacesAndTextsOfAnyBytes) {
    const QJsonObject miller = report("plot", {"--projection", "miller"});
    const QJsonValue first = miller[QStringLiteral("plotted")][0];
    EXPECT_EQ(first[QStringLiteral("mapX")], 10.5 * 122);
    EXPECT_EQ(first[QStringLiteral("mapY")], 50 * 240);
    EXPECT_EQ(miller[QStringLiteral("lstPfxNotPlotted")][0], QStringLiteral("OX\"1\\\u001F"));
    EXPECT_EQ(miller[QStringLiteral("lstStats")][2], QStringLiteral(" 2 QSOs Plotted"));
    EXPECT_EQ(miller[QStringLiteral("LogHasCoordinates")], true);
    EXPECT_EQ(miller[QStringLiteral("messages")].toArray().size(), 0);
    const QJsonObject azimuthal = report("plot", {"--home", "50,10.5"});
    EXPECT_EQ(azimuthal[QStringLiteral("plotted")][0][QStringLiteral("mapX")], 0);
}

TEST_F(BatchPicture, withoutTheDataFilesComesOnlyWhenThatIsAllowed) {
    const TestFolder empty;
    std::vector<std::string> arguments = {"plot",     log,   "--folder", empty.path(),
                                          "--home",   "1,2", "--image",  work.path("map.png"),
                                          "--report", "-"};
    BatchEnd end = runBatch(arguments);
    EXPECT_EQ(end.status, 3);
    EXPECT_TRUE(end.err.ends_with(
        "not found.\ntovrel-batch: --allow-incomplete draws the map all the same\n"))
        << end.err;
    EXPECT_EQ(everythingIn(work.path()), "log.adi ");

    arguments.emplace_back("--allow-incomplete");
    end = runBatch(arguments);
    EXPECT_EQ(end.status, 0);
    EXPECT_EQ(end.err, "tovrel-batch: The databse file 'Mapper.pnt' not found.\n"
                       "tovrel-batch: The databse file 'paintma.txt' not found.\n");
    EXPECT_NE(end.out.find("\"messages\":[\"The databse file 'Mapper.pnt' not found.\","),
              std::string::npos);
    EXPECT_EQ(everythingIn(empty.path()), "");
    const BatchEnd report = runBatch({"plot", log, "--folder", empty.path(), "--report", "-"});
    EXPECT_EQ(report.status, 0) << "a report needs no map";
    EXPECT_EQ(report.err, "tovrel-batch: no settings tell the home position, 0,0 is taken; "
                          "--home LAT,LON sets it\n");
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

#ifdef __linux__
TEST_F(BatchPicture, comesWithoutHelperThreadsAndNotWithoutFonts) {
    const std::string plot = " plot \"$1\" --folder \"$2\" --size 300 --image \"$3\"";
    const std::vector<std::string> arguments = {log, folder.path(), work.path("map.png"),
                                                work.path("program")};
    std::filesystem::permissions(work.path(), std::filesystem::perms::all);
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    if (geteuid() == 0) { // whom no limit of processes would stop
        // Another user may not reach the place of the build. The leak check of a build with
        // sanitizers starts a process of its own.
        const std::string limited = "cp \"$0\" \"$4\"; export ASAN_OPTIONS=detect_leaks=0; "
                                    "ulimit -c 0; exec setpriv --reuid 65533 --clear-groups "
                                    "--inh-caps=-all prlimit --nproc=1 \"$4\"";
        const BatchEnd alone = runShell(limited + plot, arguments);
        EXPECT_EQ(alone.status, 0) << alone.err;
        EXPECT_EQ(QImage(QString::fromStdString(work.path("map.png"))).width(), 300);
    }
    const std::string none = folder.write("fonts.conf", "<fontconfig></fontconfig>");
    const BatchEnd mute =
        runShell("export FONTCONFIG_FILE=" + none + "; exec \"$0\"" + plot, arguments);
    EXPECT_EQ(mute.status, 3);
    EXPECT_NE(mute.err.find("No font is installed"), std::string::npos) << mute.err;
}
#endif

TEST(BatchProgram, TellsOfItselfOnStandardOutput) {
    const BatchEnd help = runBatch({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* option : {"plot LOG", "--folder", "--projection", "--home", "--image",
                               "--report", "--quiet", "--version"})
        EXPECT_NE(help.out.find(option), std::string::npos) << option;
    const BatchEnd version = runBatch({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, "tovrel-batch 1.0.0\n");
    EXPECT_EQ(help.err + version.err, "");

    std::istringstream lines(help.out);
    int count = 0;
    for (std::string line; std::getline(lines, line); ++count)
        EXPECT_LE(line.size(), 80U) << line;
    EXPECT_LE(count, 45) << "a screen";
#ifdef __linux__
    for (const char* option : {"--help", "--version"}) {
        const BatchEnd full = runShell("exec \"$0\" \"$1\" >/dev/full", {option});
        EXPECT_EQ(full.status, 3);
        EXPECT_EQ(full.err, "tovrel-batch: standard output can't be written: "
                            "No space left on device\n");
    }
#endif
}

} // namespace

} // namespace tovrel
