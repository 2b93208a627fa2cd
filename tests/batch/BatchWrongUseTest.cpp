#include "batch/BatchRun.h"

#include <algorithm>
#include <filesystem>

namespace tovrel {

namespace {

struct Row {
    /// LOG stands for the log's path, WORK for its folder, FOLDER for the program's.
    std::vector<std::string> arguments;
    const char* told; ///< a part of the line
};

class BatchWrongUse : public BatchTest {
protected:
    void expect(const Row& row, int status, const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments = row.arguments;
        for (std::string& argument : arguments) {
            if (argument == "LOG")
                argument = log;
            else if (argument.starts_with("WORK"))
                argument.replace(0, 4, work.path());
            else if (argument.starts_with("FOLDER"))
                argument.replace(0, 6, folder.path());
        }
        arguments.insert(arguments.end(), more.begin(), more.end());
        const BatchEnd end = runBatch(arguments);
        SCOPED_TRACE(joined(arguments));
        EXPECT_EQ(end.status, status);
        EXPECT_EQ(end.out, "");
        EXPECT_EQ(std::count(end.err.begin(), end.err.end(), '\n'), 1) << end.err;
        EXPECT_TRUE(end.err.starts_with("tovrel-batch: ")) << end.err;
        EXPECT_NE(end.err.find(row.told), std::string::npos) << end.err;
        EXPECT_EQ(work.read("log.adi"), contacts());
        EXPECT_EQ(everythingIn(work.path()), "log.adi ");
    }
};

TEST_F(BatchWrongUse, isToldInOneLineAndTouchesNoFile) {
    const Row rows[] = {{{}, "no command"},
                        {{"draw", "LOG"}, "unknown command draw"},
                        {{"plot"}, "needs the name of a log"},
                        {{"plot", "LOG", "--wrong", "1"}, "unknown option --wrong"},
                        {{"plot", "LOG", "--home"}, "--home needs a value"},
                        {{"plot", "LOG", "--home", "91,0"}, "--home"},
                        {{"plot", "LOG", "--projection", "Mercator"}, "azimuthal or miller"},
                        {{"plot", "LOG", "--bands", "20M,off"}, "20M,off"},
                        {{"plot", "LOG", "--modes", ""}, "Phone,CW,Digital"},
                        {{"kmz", "LOG", "--marker", "huge"}, "small, medium or large"},
                        {{"plot", "LOG", "--compass", "30"}, "off, 15 or 45"},
                        {{"plot", "LOG", "--topo", "yes"}, "on or off"},
                        {{"plot", "LOG", "--size", "199"}, "200 to 8000"},
                        {{"plot", "LOG", "--size", "8001"}, "200 to 8000"},
                        {{"plot", "LOG", "--size", "300.5"}, "200 to 8000"},
                        {{"plot", "LOG", "--image", "map.gif"}, ".png, .bmp, .jpg or .pdf"},
                        {{"plot", "LOG", "--base-map", "map.pdf"}, ".png, .bmp or .jpg"},
                        {{"plot", "LOG", "--image", "WORK/m.png", "--paper", "a4"}, ".pdf"},
                        {{"plot", "LOG", "--image", "WORK/m.pdf", "--paper", "a5"}, "a3"},
                        {{"plot", "LOG", "--image", "WORK/m.pdf", "--size", "900"}, "--paper"},
                        {{"plot", "LOG", "--tip-parts", "call,name"}, "call,latlong,country"},
                        {{"plot", "LOG", "--output", "x.kmz"}, "no option of plot"},
                        {{"kmz", "LOG", "--keep-kml=yes"}, "takes no value"},
                        {{"plot", "LOG", "--quiet"}, "plot makes nothing without"},
                        {{"kmz", "LOG", "--output", "-", "--keep-kml"}, "--keep-kml needs"},
                        {{"kmz", "-"}, "--output is needed"}};
    for (const Row& row : rows)
        expect(row, 2);
}

TEST_F(BatchWrongUse, isATimeThatNoPageCanTell) {
    for (const char* time : {"253402300800", "-1", "noon"}) {
        qputenv("SOURCE_DATE_EPOCH", time);
        expect({{"plot", "LOG", "--image", "WORK/m.pdf"}, "SOURCE_DATE_EPOCH"}, 2);
    }
    qunsetenv("SOURCE_DATE_EPOCH");
}

TEST_F(BatchWrongUse, isAPlaceThatTwoFilesShare) {
    std::filesystem::create_hard_link(log, folder.path("hard.kmz"));
    const Row rows[] = {
        {{"kmz", "LOG", "--output", "LOG"}, "replace the log"},
        {{"kmz", "LOG", "--output", "FOLDER/hard.kmz"}, "replace the log"},
        {{"kmz", "WORK/x.kmz"}, "replace the log"},
        {{"kmz", "WORK/x.kml", "--keep-kml"}, "replace the log"},
        {{"plot", "LOG", "--report", "WORK/./log.adi"}, "replace the log"},
        {{"kmz", "LOG", "--output", "WORK/a.kmz", "--report", "WORK/./a.kmz"}, "that of --output"},
        {{"kmz", "LOG", "--output", "WORK/log.kml", "--keep-kml"}, "that of --output"},
        {{"plot", "LOG", "--image", "WORK/m.png", "--base-map", "WORK/./m.png"}, "that of --image"},
        {{"plot", "LOG", "--report", "FOLDER/Tovrel.ini"}, "replace Tovrel.ini"},
        {{"plot", "LOG", "--image", "-", "--report", "-"}, "standard output"},
        {{"plot", "LOG", "--image", "-", "--tip", "0,0"}, "standard output"}};
    for (const Row& row : rows)
        expect(row, 2, {"--folder", folder.path()});
    EXPECT_EQ(folder.read("Tovrel.ini"), settings);
}

TEST_F(BatchWrongUse, ofFilesEndsWithItsOwnStatusAndTheReasonEvenWhenQuiet) {
    const char* const noSuchLog = "/no: No such file or directory";
    const char* const noSuch = "can't be written: No such file or directory";
    const char* const isFolder = "can't be written: Is a directory";
    const Row rows[] = {
        // What is good at its ends is told by what is missing then.
        {{"plot", "WORK/no", "--report", "-", "--size=200", "--home=-90,-180"}, noSuchLog},
        {{"plot", "WORK/no", "--report", "-", "--size=8000", "--home=90,360"}, noSuchLog},
        {{"kmz", "WORK"}, "Is a directory"},
        {{"plot", "LOG", "--image", "WORK/none/map.png"}, noSuch},
        {{"plot", "LOG", "--report", "WORK"}, isFolder},
        {{"kmz", "LOG", "--output", "WORK"}, isFolder}};
    for (const Row& row : rows)
        expect(row, 3, {"--quiet", "--folder", folder.path()});
    expect({{"plot", "--quiet", "--image", "WORK/m.jpeg", "--", "-no"}, "there is no log -no: No"},
           3);
}

} // namespace

} // namespace tovrel
