#include "batch/BatchRun.h"

namespace tovrel {

namespace {

std::string plottedCalls(const QJsonObject& report) {
    std::string calls;
    const QJsonArray plotted = report[QStringLiteral("plotted")].toArray();
    for (const QJsonValue& contact : plotted)
        calls += contact[QStringLiteral("call")].toString().toStdString() + " ";
    return calls;
}

class BatchPlot : public BatchTest {};

TEST_F(BatchPlot, reportsWhatWasPlottedInLogOrder) {
    const std::string odd = "OX\"1\\\x1F";
    log = work.write("log.adi", contacts() + record({odd, "", "7"}) + record({"H1H=", "1", "2"}));
    const QJsonObject all = report("plot", {"--bands", "off", "--projection", "miller"});
    EXPECT_EQ(plottedCalls(all), "A1A B1B C1C H1H= ");
    const std::pair<const char*, int> counters[] = {{"QsosRead", 6},      {"QsosPlotted", 4},
                                                    {"QsosConfirmed", 1}, {"QsosWorked", 2},
                                                    {"QsosHeard", 1},     {"QsosNotPlotted", 2}};
    for (const auto& [name, count] : counters)
        EXPECT_EQ(all[QLatin1String(name)], count) << name;
    EXPECT_EQ(all[QStringLiteral("LogHasCoordinates")], true);
    EXPECT_EQ(all[QStringLiteral("FilterPassedAny")], true);
    EXPECT_EQ(all[QStringLiteral("messages")], QJsonArray());
    EXPECT_EQ(all[QStringLiteral("lstStats")][2], QStringLiteral(" 4 QSOs Plotted"));
    EXPECT_EQ(all[QStringLiteral("lstPfxNotPlotted")],
              (QJsonArray{QStringLiteral("D1D"), QString::fromStdString(odd)}));
    const QJsonObject third{{"call", "C1C"},     {"country", QStringLiteral(u"\u00C5land")},
                            {"latitude", -30},   {"longitude", -60},
                            {"mapX", -60 * 122}, {"mapY", -30 * 240},
                            {"status", "C"}};
    EXPECT_EQ(all[QStringLiteral("plotted")][2], third);
}

TEST_F(BatchPlot, needsNoSettingsAndLeavesTheFolderAsItIs) {
    QFile::remove(QString::fromStdString(folder.path("Tovrel.ini")));
    const QJsonObject all = report("plot", {"--home", "-50,-170"});
    EXPECT_EQ(plottedCalls(all), "A1A B1B C1C ");
    const QJsonArray plotted = all[QStringLiteral("plotted")].toArray();
    EXPECT_TRUE(plotted[0][QStringLiteral("mapY")].isNull()) << "at the antipode";
    EXPECT_TRUE(plotted[0][QStringLiteral("mapX")].isNull());
    EXPECT_TRUE(plotted[1][QStringLiteral("mapX")].isDouble());
    EXPECT_EQ(everythingIn(folder.path()), "");
}

TEST_F(BatchPlot, filterGroupsThatAreGivenReplaceThoseOfTheSettings) {
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{}, "A1A C1C "}, // the settings let 20M through
        {{"--bands", "40m,20m"}, "A1A B1B C1C "},
        {{"--bands=2M", "--bands=40M"}, "B1B "},
        {{"--modes", "CW"}, "A1A "},
        {{"--bands", "off", "--modes", " Phone , CW"}, "A1A B1B C1C "},
        {{"--bands", "off", "--iota", "NA,EU"}, "A1A B1B "}};
    for (const auto& [options, calls] : rows)
        EXPECT_EQ(plottedCalls(report("plot", options)), calls) << joined(options);
}

TEST_F(BatchPlot, printsTheTipsInTheirOrder) {
    const QJsonObject all = report("plot", {});
    const auto at = [&all](int i) {
        const QJsonValue contact = all[QStringLiteral("plotted")][i];
        return "--tip=" + decimalText(contact[QStringLiteral("mapY")].toDouble()) + "," +
               decimalText(contact[QStringLiteral("mapX")].toDouble());
    };
    const std::vector<std::string> tips = {at(1), "--tip", "-21000,21000", at(0)};
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{}, "C1C  \n\nA1A  \n"}, // the settings select the calls
        {{"--tip-parts", "country"}, "\xC3\x85land: \n\n: \n"},
        {{"--tip-parts", "latlong,call"}, "[-30, -60] C1C  \n\n[50, 10] A1A  \n"},
        {{"--tip-parts="}, "\n\n\n"}};
    for (const auto& [parts, lines] : rows) {
        std::vector<std::string> options = tips;
        options.insert(options.end(), parts.begin(), parts.end());
        EXPECT_EQ(run("plot", options).out, lines);
    }
    // The settings select nothing on this map: then all is shown.
    EXPECT_EQ(run("plot", {"--bands", "40M", "--projection", "miller", "--tip=7200,-12200"}).out,
              "[30, -100] : B1B  \n");
}

} // namespace

} // namespace tovrel
