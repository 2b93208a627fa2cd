#include "batch/BatchRun.h"

#include <algorithm>
#include <ostream>

namespace tovrel {

namespace {

struct WrongUse {
    std::vector<std::string> arguments; ///< LOG stands for the log's path
    std::string told;                   ///< a part of the line
};

void PrintTo(const WrongUse& use, std::ostream* out) { *out << joined(use.arguments); }

class BatchWrongUse : public BatchTest, public testing::WithParamInterface<WrongUse> {};

TEST_P(BatchWrongUse, isToldInOneLineAndTouchesNoFile) {
    std::vector<std::string> arguments = GetParam().arguments;
    std::replace(arguments.begin(), arguments.end(), std::string("LOG"), log);
    const BatchEnd end = runBatch(arguments);
    EXPECT_EQ(end.status, 2);
    EXPECT_EQ(end.out, "");
    EXPECT_EQ(std::count(end.err.begin(), end.err.end(), '\n'), 1) << end.err;
    EXPECT_TRUE(end.err.starts_with("tovrel-batch: ")) << end.err;
    EXPECT_NE(end.err.find(GetParam().told), std::string::npos) << end.err;
    EXPECT_EQ(work.read("log.adi"), contacts());
    EXPECT_EQ(everythingIn(work.path()), "log.adi ");
}

INSTANTIATE_TEST_SUITE_P(
    CommandLines, BatchWrongUse,
    testing::Values(WrongUse{{}, "no command"}, WrongUse{{"draw", "LOG"}, "unknown command draw"},
                    WrongUse{{"plot"}, "needs the name of a log"}, WrongUse{{"kmz"}, "kmz needs"},
                    WrongUse{{"plot", "LOG", "LOG"}, "more than one log"},
                    WrongUse{{"plot", "LOG", "--wrong", "1"}, "unknown option --wrong"},
                    WrongUse{{"plot", "LOG", "-q"}, "unknown option -q"},
                    WrongUse{{"plot", "LOG", "--home"}, "--home needs a value"},
                    WrongUse{{"plot", "LOG", "--home", "91,0"}, "--home"},
                    WrongUse{{"plot", "LOG", "--home", "1-2,3"}, "--home"},
                    WrongUse{{"plot", "LOG", "--projection", "Mercator"}, "azimuthal or miller"},
                    WrongUse{{"plot", "LOG", "--bands", "20M,21M"}, "20M,21M"},
                    WrongUse{{"plot", "LOG", "--bands", "20M,off"}, "20M,off"},
                    WrongUse{{"plot", "LOG", "--modes", ""}, "Phone,CW,Digital"},
                    WrongUse{{"kmz", "LOG", "--iota", "EU,"}, "EU,"},
                    WrongUse{{"kmz", "LOG", "--marker", "huge"}, "small, medium or large"},
                    WrongUse{{"plot", "LOG", "--compass", "30"}, "off, 15 or 45"},
                    WrongUse{{"plot", "LOG", "--topo", "yes"}, "on or off"},
                    WrongUse{{"plot", "LOG", "--size", "199"}, "200 to 8000"},
                    WrongUse{{"plot", "LOG", "--size", "8001"}, "200 to 8000"},
                    WrongUse{{"plot", "LOG", "--size", "800.5"}, "200 to 8000"},
                    WrongUse{{"plot", "LOG", "--size", "800px"}, "200 to 8000"},
                    WrongUse{{"plot", "LOG", "--image", "map.gif"}, ".png, .bmp or .jpg"},
                    WrongUse{{"plot", "LOG", "--base-map", "map"}, ".png, .bmp or .jpg"},
                    WrongUse{{"plot", "LOG", "--tip", "1"}, "Y,X"},
                    WrongUse{{"plot", "LOG", "--tip-parts", "call,name"}, "call,latlong,country"},
                    WrongUse{{"plot", "LOG", "--output", "x.kmz"}, "no option of plot"},
                    WrongUse{{"kmz", "LOG", "--tip", "1,2"}, "no option of kmz"},
                    WrongUse{{"kmz", "LOG", "--keep-kml=yes"}, "takes no value"},
                    WrongUse{{"kmz", "LOG", "--my-call", " "}, "--my-call"},
                    WrongUse{{"kmz", "LOG", "--output", "LOG"}, "replace the log"},
                    WrongUse{{"plot", "LOG", "--report", "LOG"}, "replace the log"}));

struct FailingFile {
    std::vector<std::string> arguments; ///< LOG and WORK stand for the log and its folder
    std::string told;
};

void PrintTo(const FailingFile& use, std::ostream* out) { *out << joined(use.arguments); }

class BatchFailingFile : public BatchTest, public testing::WithParamInterface<FailingFile> {};

TEST_P(BatchFailingFile, endsWithItsOwnStatusEvenWhenQuiet) {
    std::vector<std::string> arguments = GetParam().arguments;
    for (std::string& argument : arguments) {
        if (argument == "LOG")
            argument = log;
        else if (argument.starts_with("WORK"))
            argument.replace(0, 4, work.path());
    }
    arguments.insert(arguments.end(), {"--quiet", "--folder", folder.path()});
    const BatchEnd end = runBatch(arguments);
    EXPECT_EQ(end.status, 3);
    EXPECT_NE(end.err.find(GetParam().told), std::string::npos) << end.err;
    EXPECT_EQ(everythingIn(work.path()), "log.adi ");
}

INSTANTIATE_TEST_SUITE_P(
    Files, BatchFailingFile,
    testing::Values(
        FailingFile{{"plot", "WORK/none.adi"}, "there is no log"},
        FailingFile{{"kmz", "WORK"}, "there is no log"},
        FailingFile{{"plot", "LOG", "--image", "WORK/none/map.png"}, "can't be written"},
        FailingFile{{"plot", "LOG", "--base-map", "WORK/none/map.png"}, "can't be written"},
        FailingFile{{"plot", "LOG", "--report", "WORK"}, "can't be written"},
        FailingFile{{"kmz", "LOG", "--output", "WORK/none/a.kmz"}, "can't be written"},
        FailingFile{{"kmz", "LOG", "--output", "WORK"}, "can't be written"}));

} // namespace

} // namespace tovrel
