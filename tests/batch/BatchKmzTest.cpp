#include "batch/BatchRun.h"
#include "export/Unpacked.h"

#include <QDirIterator>
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

TEST_F(BatchKmz, liesBesideTheLogAndIsCalledLikeItOrWhereItIsTold) {
    std::filesystem::create_directory(work.path("club.logs"));
    std::filesystem::create_directory(work.path("in"));
    const struct {
        std::string log, archive, document;
    } cases[] = {{"./log.adi", "log.kmz", "log.kml"},
                 {"my.log.adi", "my.log.kmz", "mylog.kml"},
                 {"club.logs/log.adi", "club.logs/log.kmz", "log.kml"},
                 {".adi", ".adi.kmz", ".adi.kml"},
                 {"in/../noext", "noext.kmz", "noext.kml"}};
    for (const auto& c : cases) {
        work.write(c.log, contacts());
        QProcess program;
        program.setWorkingDirectory(QString::fromStdString(work.path()));
        startBatch(program, {"kmz", c.log, "--folder", folder.path(), "--allow-incomplete"});
        EXPECT_EQ(endOf(program).status, 0) << c.log;
        EXPECT_EQ(entryNames(work.read(c.archive)), c.document + " ") << "there are no icons";
        std::filesystem::remove(work.path(c.archive));
        std::filesystem::remove(work.path(c.log));
    }
    EXPECT_EQ(everythingIn(work.path()), "club.logs in ");
    work.write("log.adi", contacts());
    const TestFolder other;
    for (const auto& [option, left] :
         {std::pair{"--quiet", "log.kml "}, {"--keep-kml", "log.kml map.kmz "}}) {
        // Without --keep-kml the document takes no place.
        const std::string output = other.path(option[2] == 'q' ? "log.kml" : "map.kmz");
        EXPECT_EQ(run("kmz", {option, "--output", output}).status, 0);
        EXPECT_EQ(everythingIn(other.path()), left);
    }
    EXPECT_EQ(everythingIn(folder.path()) + everythingIn(work.path()),
              "Tovrel.ini club.logs in log.adi ");
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

    // The program has opened the pipe when its writer has; a signal that the caller ignores is
    // none.
    const BatchEnd fifo =
        runShell("mkfifo \"$3\" && { { exec 3>\"$3\"; kill -HUP $$; cat \"$1\" >&3; } & } && "
                 "trap '' HUP && exec \"$0\" plot \"$3\" --folder \"$2\" --report -",
                 {log, folder.path(), work.path("pipe")});
    EXPECT_EQ(fifo.out, run("plot", {"--report", "-"}).out) << fifo.err;
    const BatchEnd broken = runShell("exec \"$0\" plot - --report - <\"$2\"", arguments);
    EXPECT_EQ(broken.status, 3);
    EXPECT_EQ(broken.err, "tovrel-batch: standard input can't be read: Is a directory\n");
}

TEST_F(BatchKmz, withoutAnIconComesOnlyWhenThatIsAllowed) {
    const BatchEnd end = runBatch({"kmz", log, "--folder", folder.path()});
    EXPECT_EQ(end.status, 3);
    EXPECT_EQ(end.err, "tovrel-batch: " + folder.path("Google_Confirmed.png") +
                           " can't be read: No such file or directory\n"
                           "tovrel-batch: --allow-incomplete makes the KMZ file all the same\n");
    EXPECT_EQ(everythingIn(work.path()), "log.adi ");
}

TEST_F(BatchKmz, documentFollowsTheSettingsAndTheOptions) {
    const std::string plain = document({});
    EXPECT_TRUE(has(plain, "W1TVR Confirmed") && has(plain, "lookup for A1A"));
    EXPECT_FALSE(has(plain, "<name>A1A</name>")) << "the settings leave the calls out";
    EXPECT_TRUE(has(plain, "<scale>1</scale>") && !has(plain, "B1B"));
    const std::string changed =
        document({"--my-call", "K9X", "--call-names", "on", "--marker", "small", "--bands", "40M"});
    EXPECT_TRUE(has(changed, "K9X Confirmed") && has(changed, "<scale>0.33</scale>"));
    EXPECT_TRUE(has(changed, "<name>B1B</name>"));
    EXPECT_FALSE(has(changed, "A1A") || has(changed, "W1TVR"));
    EXPECT_TRUE(has(document({"--my-call", ""}), "<name> Confirmed</name>"));
    EXPECT_TRUE(has(document({"--bands", "off", "--modes", "Phone", "--iota", "NA"}), "/B1B\""));
}

TEST_F(BatchKmz, reportsTheExportAndThatNothingWasPlaced) {
    const QJsonObject all = report("kmz", {"--bands", "off"});
    for (const auto& [name, count] : {std::pair{"QsosRead", 4},
                                      {"QsosConfirmed", 1},
                                      {"QsosNotPlotted", 1},
                                      {"GoogleWorked", 2}})
        EXPECT_EQ(all[QLatin1String(name)], count) << name;
    EXPECT_EQ(all[QStringLiteral("messages")], QJsonArray());
    EXPECT_EQ(all[QStringLiteral("lstStats")][0], QStringLiteral("Google File:"));

    std::filesystem::remove(work.path("log.kmz"));
    const QJsonObject none = report("kmz", {"--bands", "2M"}, 1);
    EXPECT_EQ(none[QStringLiteral("messages")],
              QJsonArray{QStringLiteral("There were no QSOs matching your filter selections.")});
    EXPECT_EQ(run("kmz", {"--bands", "2M", "--output", "-"}).status, 1);
    EXPECT_EQ(everythingIn(work.path()), "log.adi ");
    EXPECT_EQ(run("kmz", {"--bands", "2M", "--keep-kml"}).status, 1);
    EXPECT_EQ(everythingIn(work.path()), "log.adi log.kml ");
}

class BatchInterrupted : public BatchTest {
protected:
    /// Sends a signal to a run that is in the midst of its work: the file `begun` has bytes, and
    /// `made` is not there yet. A run that was faster gets a longer log.
    void interrupt(std::vector<std::string> arguments, const char* begun, const char* made,
                   int signal) {
        arguments.insert(arguments.begin() + 1, log);
        arguments.insert(arguments.end(), {"--folder", folder.path(), "--allow-incomplete"});
        std::string many = contacts();
        while (many.size() < 500'000'000) {
            while (many.size() < 10'000'000)
                many += many;
            work.write("log.adi", many);
            QProcess program;
            // Under nohup, or behind a shell's "&", it would be ignored.
            program.setChildProcessModifier([signal] { std::signal(signal, SIG_DFL); });
            startBatch(program, arguments);
            while (!program.waitForFinished(1) && !hasBytes(begun)) {
            }
            if (program.state() == QProcess::Running)
                kill(static_cast<pid_t>(program.processId()), signal);
            const int status = endOf(program).status;
            if (status == -1 && !std::filesystem::exists(work.path(made)))
                return;
            EXPECT_TRUE(status == -1 || status == 0);
            std::filesystem::remove(work.path(made));
            std::filesystem::remove(work.path(begun));
            many += many;
        }
        FAIL() << "each run was over before its signal";
    }
    bool hasBytes(const char* name) const {
        QDirIterator found(QString::fromStdString(work.path()), {QString::fromLatin1(name)},
                           QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        return found.hasNext() && (found.next(), found.fileInfo().size() > 0);
    }
};

TEST_F(BatchInterrupted, leavesNothingHalfWritten) {
    for (const int signal : {SIGINT, SIGHUP}) {
        interrupt({"kmz"}, "log.kml", "log.kmz", signal);
        EXPECT_EQ(everythingIn(work.path()), "log.adi ");
    }
    interrupt({"plot", "--base-map", work.path("b.bmp"), "--image", work.path("m.png")}, "b.bmp",
              "m.png", SIGTERM);
    EXPECT_EQ(everythingIn(work.path()), "b.bmp log.adi ");
    // Nobody reads the report; the archive stands by then.
    runShell("\"$0\" kmz \"$1\" --folder \"$2\" --allow-incomplete --report - | :",
             {log, folder.path()});
    EXPECT_EQ(everythingIn(work.path()), "b.bmp log.adi log.kmz ");
}

TEST_F(BatchInterrupted, leavesToTheNextRunWhatAKillLeft) {
    interrupt({"kmz"}, "log.kml", "log.kmz", SIGKILL);
    EXPECT_NE(everythingIn(work.path()), "log.adi ");
    work.write("log.adi", contacts());
    EXPECT_EQ(run("kmz", {}).status, 0);
    EXPECT_EQ(everythingIn(work.path()), "log.adi log.kmz ");
}

} // namespace

} // namespace tovrel
