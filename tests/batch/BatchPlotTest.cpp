#include "batch/BatchRun.h"

#include <QImage>

namespace tovrel {

namespace {

std::string plottedCalls(const QJsonObject& report) {
    std::string calls;
    const QJsonArray plotted = report[QStringLiteral("plotted")].toArray();
    for (const QJsonValue& contact : plotted)
        calls += contact[QStringLiteral("call")].toString().toStdString() + " ";
    return calls;
}

class BatchPlot : public BatchTest {
protected:
    /// The picture without its lower edge, where the stamp shows the time.
    QImage picture(std::vector<std::string> options, const std::string& kind = "--image") const {
        const std::string path = work.path("picture.png");
        options.insert(options.end(), {kind, path});
        EXPECT_EQ(run("plot", options).status, 0);
        const QImage image(QString::fromStdString(path));
        return kind == "--image" ? image.copy(0, 0, image.width(), image.height() * 9 / 10) : image;
    }
};

TEST_F(BatchPlot, reportsWhatWasPlottedInLogOrder) {
    const QJsonObject all = report("plot", {"--bands", "off"});
    EXPECT_EQ(plottedCalls(all), "A1A B1B C1C ");
    EXPECT_EQ(all[QStringLiteral("QsosRead")], 4);
    EXPECT_EQ(all[QStringLiteral("QsosConfirmed")], 1);
    EXPECT_EQ(all[QStringLiteral("QsosNotPlotted")], 1);
    EXPECT_EQ(all[QStringLiteral("lstPfxNotPlotted")][0], QStringLiteral("D1D"));
    const QJsonValue last = all[QStringLiteral("plotted")][2];
    EXPECT_EQ(last[QStringLiteral("country")], QStringLiteral(u"\u00C5land"));
    EXPECT_EQ(last[QStringLiteral("status")], QStringLiteral("C"));
    EXPECT_EQ(last[QStringLiteral("longitude")], -60);
}

TEST_F(BatchPlot, leavesTheProgramFolderAsItIsAndNeedsNoSettingsInIt) {
    picture({"--topo", "on", "--home", "10,20", "--bands", "off", "--tip", "0,0"});
    EXPECT_EQ(everythingIn(folder.path()), "Tovrel.ini ");
    EXPECT_EQ(folder.read("Tovrel.ini"), settings);
    QFile::remove(QString::fromStdString(folder.path("Tovrel.ini")));
    EXPECT_EQ(plottedCalls(report("plot", {})), "A1A B1B C1C ");
    EXPECT_EQ(everythingIn(folder.path()), "");
}

TEST_F(BatchPlot, withNothingToPlotEndsWithItsOwnStatus) {
    const QJsonObject none = report("plot", {"--bands", "2M"}, 1);
    EXPECT_EQ(none[QStringLiteral("QsosPlotted")], 0);
    EXPECT_EQ(none[QStringLiteral("FilterPassedAny")], false);
    const std::string last =
        none[QStringLiteral("messages")].toArray().last().toString().toStdString();
    EXPECT_NE(last.find("filter"), std::string::npos) << last;
}

TEST_F(BatchPlot, filterGroupsThatAreGivenReplaceThoseOfTheSettings) {
    const struct {
        std::vector<std::string> options;
        const char* calls;
    } rows[] = {{{}, "A1A C1C "}, // the settings let 20M through
                {{"--bands", "40m,20m"}, "A1A B1B C1C "},
                {{"--bands=2M", "--bands=40M"}, "B1B "},
                {{"--modes", "CW"}, "A1A "},
                {{"--bands", "off", "--modes", " Phone , CW"}, "A1A B1B C1C "},
                {{"--bands", "off", "--iota", "NA,EU"}, "A1A B1B "}};
    for (const auto& row : rows) {
        for (const char* projection : {"azimuthal", "miller"}) {
            std::vector<std::string> options = row.options;
            options.insert(options.end(), {"--projection", projection});
            EXPECT_EQ(plottedCalls(report("plot", options)), row.calls) << joined(options);
        }
    }
}

TEST_F(BatchPlot, picturesHaveTheirSizes) {
    EXPECT_EQ(picture({}, "--base-map").size(), QSize(667, 667));
    EXPECT_EQ(picture({"--size", "300"}).size(), QSize(300, 270));
    EXPECT_EQ(picture({"--size", "300", "--projection", "miller"}).size(), QSize(300, 135));
    EXPECT_EQ(picture({}).width(), 800);
}

TEST_F(BatchPlot, looksFollowTheirOptionAndTheBaseMapDoesNot) {
    const char* const rows[][3] = {{"--compass", "off", "45"},
                                   {"--compass", "15", "45"},
                                   {"--graticule", "on", "off"},
                                   {"--home-mark", "on", "off"},
                                   {"--marker", "small", "large"}};
    for (const auto& [option, one, other] : rows) {
        EXPECT_NE(picture({option, one}), picture({option, other})) << option;
        EXPECT_EQ(picture({option, one}, "--base-map"), picture({option, other}, "--base-map"));
    }
    // The relief is no look: it is part of the base map, and nobody is asked about it.
    const std::vector<std::string> supplied = {"--folder", TOVREL_DATA_DIR, "--topo"};
    EXPECT_NE(picture({supplied[0], supplied[1], supplied[2], "on"}, "--base-map"),
              picture({supplied[0], supplied[1], supplied[2], "off"}, "--base-map"));
}

TEST_F(BatchPlot, printsTheTipsInTheirOrder) {
    const QJsonObject all = report("plot", {});
    const auto at = [&all](int i) {
        const QJsonValue contact = all[QStringLiteral("plotted")][i];
        return "--tip=" + decimalText(contact[QStringLiteral("mapY")].toDouble()) + "," +
               decimalText(contact[QStringLiteral("mapX")].toDouble());
    };
    const std::vector<std::string> tips = {at(1), "--tip", "-21000,21000", at(0)};
    const struct {
        std::vector<std::string> parts;
        std::string lines;
    } rows[] = {{{}, "C1C  \n\nA1A  \n"}, // the settings select the calls
                {{"--tip-parts", "country"}, "\xC3\x85land: \n\n: \n"},
                {{"--tip-parts", "latlong,call"}, "[-30, -60] C1C  \n\n[50, 10] A1A  \n"},
                {{"--tip-parts="}, "\n\n\n"}};
    for (const auto& row : rows) {
        std::vector<std::string> options = tips;
        options.insert(options.end(), row.parts.begin(), row.parts.end());
        EXPECT_EQ(run("plot", options).out, row.lines);
    }
    // The settings select nothing on this map: then all is shown.
    EXPECT_EQ(run("plot", {"--bands", "40M", "--projection", "miller", "--tip=7200,-12200"}).out,
              "[30, -100] : B1B  \n");
}

TEST_F(BatchPlot, putsTheContactAtTheAntipodeWithoutAPlace) {
    const QJsonObject all = report("plot", {"--home", "-50,-170"});
    const QJsonValue first = all[QStringLiteral("plotted")][0];
    EXPECT_EQ(first[QStringLiteral("call")], QStringLiteral("A1A"));
    EXPECT_TRUE(first[QStringLiteral("mapY")].isNull());
    EXPECT_TRUE(first[QStringLiteral("mapX")].isNull());
    EXPECT_TRUE(all[QStringLiteral("plotted")][1][QStringLiteral("mapX")].isDouble());
}

} // namespace

} // namespace tovrel
