#include "batch/BatchRun.h"
#include "export/Unpacked.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QThread>
#include <csignal>

namespace tovrel {

namespace {

class BatchKmz : public BatchTest {
protected:
    std::string document(std::vector<std::string> options) const {
        options.push_back("--keep-kml");
        EXPECT_EQ(run("kmz", options).status, 0);
        return work.read("log.kml");
    }
    static bool has(const std::string& text, std::string_view part) {
        return text.find(part) != std::string::npos;
    }
};

TEST_F(BatchKmz, writesTheArchiveBesideTheLogOrWhereItIsTold) {
    EXPECT_EQ(run("kmz", {}).status, 0);
    EXPECT_EQ(everythingIn(work.path()), "log.adi log.kmz ");
    const TestFolder other;
    EXPECT_EQ(run("kmz", {"--output", other.path("map.kmz")}).status, 0);
    EXPECT_EQ(everythingIn(work.path()), "log.adi log.kmz ");
    EXPECT_EQ(everythingIn(other.path()), "map.kmz ");
    EXPECT_EQ(entryNames(other.read("map.kmz")), "log.kml ") << "there are no icons";
    EXPECT_EQ(run("kmz", {"--keep-kml", "--output", other.path("map.kmz")}).status, 0);
    EXPECT_EQ(everythingIn(other.path()), "log.kml map.kmz ");
    EXPECT_EQ(everythingIn(folder.path()), "Tovrel.ini ");
}

TEST_F(BatchKmz, takesALogInTheCurrentFolder) {
    for (const char* name : {"log.adi", "./log.adi"}) {
        QProcess program;
        program.setWorkingDirectory(QString::fromStdString(work.path()));
        startBatch(program, {"kmz", name, "--folder", folder.path()});
        EXPECT_EQ(endOf(program).status, 0) << name;
        EXPECT_EQ(everythingIn(work.path()), "log.adi log.kmz ") << name;
        QFile::remove(QString::fromStdString(work.path("log.kmz")));
    }
}

TEST_F(BatchKmz, documentFollowsTheOptions) {
    const std::string plain = document({});
    EXPECT_TRUE(has(plain, "W1TVR Confirmed") && has(plain, "<name>A1A</name>"));
    EXPECT_TRUE(has(plain, "<scale>1</scale>") && !has(plain, "B1B"));
    const std::string changed = document(
        {"--my-call", "K9X", "--call-names", "off", "--marker", "small", "--bands", "40M"});
    EXPECT_TRUE(has(changed, "K9X Confirmed") && has(changed, "<scale>0.33</scale>"));
    EXPECT_TRUE(has(changed, "/B1B\"") && !has(changed, "<name>B1B</name>"));
    EXPECT_FALSE(has(changed, "A1A") || has(changed, "W1TVR"));
    EXPECT_TRUE(has(document({"--bands", "off", "--modes", "Phone", "--iota", "NA"}), "/B1B\""));
}

TEST_F(BatchKmz, reportsTheExport) {
    const QJsonObject all = report("kmz", {"--bands", "off"});
    const std::pair<const char*, int> counters[] = {
        {"QsosRead", 4},  {"QsosPlotted", 3},    {"QsosConfirmed", 1}, {"QsosWorked", 2},
        {"QsosHeard", 0}, {"QsosNotPlotted", 1}, {"GoogleRecords", 12}};
    for (const auto& [name, count] : counters)
        EXPECT_EQ(all[QLatin1String(name)], count) << name;
    EXPECT_EQ(all[QStringLiteral("messages")], QJsonArray());
    EXPECT_EQ(all[QStringLiteral("lstStats")][0], QStringLiteral("Google File:"));
}

TEST_F(BatchKmz, withoutPlacemarksLeavesTheDocumentOnlyWhenItIsToBeKept) {
    const QJsonObject none = report("kmz", {"--bands", "2M"}, 1);
    EXPECT_EQ(none[QStringLiteral("messages")],
              QJsonArray{QStringLiteral("There were no QSOs matching your filter selections.")});
    EXPECT_EQ(everythingIn(work.path()), "log.adi ");
    EXPECT_EQ(run("kmz", {"--bands", "2M", "--keep-kml"}).status, 1);
    EXPECT_EQ(everythingIn(work.path()), "log.adi log.kml ");
}

TEST_F(BatchKmz, neverPutsAFileInTheLogsPlace) {
    log = work.write("log.kml", contacts());
    EXPECT_EQ(run("kmz", {"--keep-kml"}).status, 3);
    EXPECT_EQ(work.read("log.kml"), contacts());
    EXPECT_EQ(everythingIn(work.path()), "log.adi log.kml ");
    log = work.write("log.kmz", contacts());
    const BatchEnd end = run("kmz", {});
    EXPECT_EQ(end.status, 3);
    EXPECT_NE(end.err.find("it would replace the ADIF file"), std::string::npos) << end.err;
    EXPECT_EQ(work.read("log.kmz"), contacts());
}

/// Waits until a name that matches appears in a folder.
bool appears(const std::string& folder, const char* pattern) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 30000) {
        if (QDirIterator(QString::fromStdString(folder), {QString::fromLatin1(pattern)},
                         QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)
                .hasNext())
            return true;
        QThread::msleep(1);
    }
    return false;
}

TEST_F(BatchKmz, leavesNothingHalfWrittenWhenInterrupted) {
    std::string many;
    while (many.size() < 20'000'000)
        many += contacts();
    work.write("log.adi", many);
    const struct {
        std::vector<std::string> options;
        const char* begun; ///< appears when the work has begun
        std::string left;
    } rows[] = {{{"kmz", log}, ".tovrel-*", "log.adi "},
                {{"plot", log, "--base-map", work.path("b.bmp"), "--image", work.path("m.png")},
                 "b.bmp",
                 "b.bmp log.adi "}};
    for (const auto& row : rows) {
        std::vector<std::string> arguments = row.options;
        arguments.insert(arguments.end(), {"--folder", folder.path()});
        QProcess program;
        startBatch(program, arguments);
        ASSERT_TRUE(appears(work.path(), row.begun));
        kill(static_cast<pid_t>(program.processId()), SIGINT);
        EXPECT_EQ(endOf(program).status, -1);
        EXPECT_EQ(everythingIn(work.path()), row.left);
    }
}

} // namespace

} // namespace tovrel
