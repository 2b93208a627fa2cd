#include "batch/BatchRun.h"

namespace tovrel {

namespace {

class BatchAdif : public BatchTest {
protected:
    BatchAdif() {
        log = work.write("log.adi", "<call:6>DL1ABC<band:3>20m<gridsquare:4>JO62<eor>"
                                    "<call:5>K1ABC<band:3>20m<eor><call:5>TO5AB<band:3>20m<eor>"
                                    "<call:6>SP1ABC<band:3>20m<lat:5>-0.00<lon:4>21.5<eor>");
    }
};

TEST_F(BatchAdif, reportsWhereThePlacesCameFrom) {
    const QJsonObject all = report("plot", {"--log-format", "adif"});
    EXPECT_EQ(QJsonDocument(all[QStringLiteral("PositionsFrom")].toObject())
                  .toJson(QJsonDocument::Compact),
              R"({"coordinates":1,"country":1,"locator":1})");
    std::string from;
    for (const QJsonValue& contact : all[QStringLiteral("plotted")].toArray())
        from += contact[QStringLiteral("from")].toString().toStdString() + " ";
    EXPECT_EQ(from, "locator country coordinates ");
    EXPECT_EQ(report("plot", {"--log-format", "adif", "--place-by-country",
                              "off"})[QStringLiteral("QsosPlotted")],
              2);
    const QJsonObject none = report("plot", {}, 1); // nothing to plot has a status of its own
    EXPECT_FALSE(none.contains(QStringLiteral("PositionsFrom")));
    EXPECT_EQ(none[QStringLiteral("FilterPassedAny")], false);
}

TEST_F(BatchAdif, writesPlacesIntoTheDocumentAsDecimalDegrees) {
    const BatchEnd end = run("kmz", {"--log-format=adif", "--keep-kml"});
    EXPECT_EQ(end.status, 0) << end.err;
    const std::string kml = work.read("log.kml");
    for (const char* place : {">13,52.5<", ">-95.7,39<", ">21.5,0<"})
        EXPECT_NE(kml.find(place), std::string::npos) << place;
}

TEST_F(BatchAdif, tellsOfPlacesInTheOtherFormatEvenWhenQuiet) {
    for (const char* command : {"plot", "kmz"}) {
        std::vector<std::string> options = {"--quiet"};
        if (std::string(command) == "plot")
            options.insert(options.end(), {"--report", work.path("report.json")});
        const BatchEnd end = run(command, options);
        EXPECT_EQ(end.status, 1);
        EXPECT_EQ(end.err, "tovrel-batch: contacts with a place by other fields or by the country "
                           "of the call: 3; --log-format adif finds them\n");
    }
}

} // namespace

} // namespace tovrel
