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

TEST_F(BatchKmz, namesItsFilesAfterTheLogAndPutsThemBesideIt) {
    std::filesystem::create_directory(work.path("club.logs"));
    std::filesystem::create_directory(work.path("in"));
    const struct {
        std::string log, archive, document;
    } cases[] = {{"log.adi", "log.kmz", "log.kml"},
                 {"./log.adi", "log.kmz", "log.kml"},
                 {"my.log.adi", "my.log.kmz", "mylog.kml"},
                 {"club.logs/log.adi", "club.logs/log.kmz", "log.kml"},
                 {"in/../noext", "noext.kmz", "noext.kml"}};
    for (const auto& c : cases) {
        work.write(c.log, contacts());
        QProcess program;
        program.setWorkingDirectory(QString::fromStdString(work.path()));
        startBatch(program, {"kmz", c.log, "--folder", folder.path(), "--allow-incomplete"});
        EXPECT_EQ(endOf(program).status, 0) << c.log;
        EXPECT_EQ(entryNames(work.read(c.archive)), c.document + " ") << c.log;
        std::filesystem::remove(work.path(c.archive));
    }
    EXPECT_EQ(everythingIn(work.path()), "club.logs in log.adi my.log.adi noext ");
}

TEST_F(BatchKmz, readsPipesAndWritesToThem) {
    const std::vector<std::string> arguments = {log, folder.path(), work.path("p.kmz")};
    const BatchEnd piped = runShell(
        "cat \"$1\" | \"$0\" kmz - --folder \"$2\" --allow-incomplete --output \"$3\" --report -",
        arguments);
    EXPECT_EQ(piped.status, 0) << piped.err;
    EXPECT_EQ(entryNames(work.read("p.kmz")), "log.kml ");
    EXPECT_EQ(piped.out, run("kmz", {"--report", "-"}).out);
    const BatchEnd out = run("kmz", {"--output", "-"});
    EXPECT_EQ(entryNames(out.out), "log.kml ");
    EXPECT_TRUE(firstEntryOf(out.out) == firstEntryOf(work.read("p.kmz")));

    const BatchEnd fifo = runShell("mkfifo \"$3\" && { cat \"$1\" >\"$3\" & } && "
                                   "exec \"$0\" plot \"$3\" --folder \"$2\" --report -",
                                   {log, folder.path(), work.path("pipe")});
    EXPECT_EQ(fifo.out, run("plot", {"--report", "-"}).out) << fifo.err;
    const BatchEnd nowhere = runShell("exec \"$0\" kmz - --folder \"$2\"", arguments);
    EXPECT_EQ(nowhere.status, 2);
    EXPECT_NE(nowhere.err.find("--output is needed"), std::string::npos);
}

TEST_F(BatchKmz, withoutAnIconComesOnlyWhenThatIsAllowed) {
    const BatchEnd end = runBatch({"kmz", log, "--folder", folder.path()});
    EXPECT_EQ(end.status, 3);
    EXPECT_EQ(end.err, "tovrel-batch: " + folder.path("Google_Confirmed.png") +
                           " can't be read: No such file or directory\n"
                           "tovrel-batch: --allow-incomplete makes the KMZ file all the same\n");
    EXPECT_EQ(everythingIn(work.path()), "log.adi ");
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
    EXPECT_TRUE(has(document({"--my-call", ""}), "<name> Confirmed</name>"));
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
    for (const char* name : {"log.kml", "log.kmz"}) {
        log = work.write(name, contacts());
        const BatchEnd end = run("kmz", {"--keep-kml"});
        EXPECT_EQ(end.status, 2);
        EXPECT_NE(end.err.find("replace the log"), std::string::npos) << end.err;
        EXPECT_EQ(work.read(name), contacts());
        std::filesystem::remove(log);
    }
    EXPECT_EQ(everythingIn(work.path()), "log.adi ");
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
        int signal;
        std::string left;
    } rows[] = {{{"kmz", log}, ".tovrel-*", SIGINT, "log.adi "},
                {{"kmz", log}, ".tovrel-*", SIGHUP, "log.adi "},
                {{"plot", log, "--base-map", work.path("b.bmp"), "--image", work.path("m.png")},
                 "b.bmp",
                 SIGTERM,
                 "b.bmp log.adi "}};
    for (const auto& row : rows) {
        std::vector<std::string> arguments = row.options;
        arguments.insert(arguments.end(), {"--folder", folder.path(), "--allow-incomplete"});
        QProcess program;
        startBatch(program, arguments);
        ASSERT_TRUE(appears(work.path(), row.begun));
        kill(static_cast<pid_t>(program.processId()), row.signal);
        EXPECT_EQ(endOf(program).status, -1);
        EXPECT_EQ(everythingIn(work.path()), row.left);
    }
    // Nobody reads the report; the archive stands by then.
    runShell("\"$0\" kmz \"$1\" --folder \"$2\" --allow-incomplete --report - | :",
             {log, folder.path()});
    EXPECT_EQ(everythingIn(work.path()), "b.bmp log.adi log.kmz ");
}

TEST_F(BatchKmz, clearsWhatAKilledRunLeft) {
    std::string many;
    while (many.size() < 20'000'000)
        many += contacts();
    work.write("log.adi", many);
    QProcess killed;
    startBatch(killed, {"kmz", log, "--folder", folder.path(), "--allow-incomplete"});
    ASSERT_TRUE(appears(work.path(), ".tovrel-*"));
    QThread::msleep(20); // into the work
    killed.kill();
    EXPECT_EQ(endOf(killed).status, -1);
    EXPECT_NE(everythingIn(work.path()), "log.adi ");
    work.write("log.adi", contacts());
    EXPECT_EQ(run("kmz", {}).status, 0);
    EXPECT_EQ(everythingIn(work.path()), "log.adi log.kmz ");
}

} // namespace

} // namespace tovrel
