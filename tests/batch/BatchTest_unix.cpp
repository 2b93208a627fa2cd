// Of signals, pipes in the tree of files, terminals, limits of processes, /dev/full and names that
// are no UTF-8: other systems have none of these, or end programs in their own way.
#include "batch/BatchRun.h"
#include "platform/SuppliedFiles.h"

#include <QDirIterator>
#include <QImage>
#include <csignal>
#include <filesystem>
#include <unistd.h>

namespace tovrel {

namespace {

/// Runs a line of the shell, in which $0 is the program and $1 and on the arguments.
BatchEnd runShell(const std::string& line, const std::vector<std::string>& arguments) {
    QProcess shell;
    shell.setStandardInputFile(QProcess::nullDevice());
    QStringList all = {QStringLiteral("-c"), QString::fromStdString(line),
                       QStringLiteral(TOVREL_BATCH_PROGRAM)};
    all += qtArguments(arguments);
    shell.start(QStringLiteral("sh"), all);
    return endOf(shell);
}

using BatchOnUnix = BatchTest;

TEST_F(BatchOnUnix, readsPipes) {
    // The program has opened the pipe when its writer has; a signal that the caller ignores is
    // none.
    const BatchEnd fifo =
        runShell("mkfifo \"$3\" && { { exec 3>\"$3\"; kill -HUP $$; cat \"$1\" >&3; } & } && "
                 "trap '' HUP && exec \"$0\" plot \"$3\" --folder \"$2\" --report -",
                 {log, folder.path(), work.path("pipe")});
    EXPECT_EQ(fifo.out, run("plot", {"--report", "-"}).out) << fifo.err;
    const BatchEnd broken = runShell("exec \"$0\" plot - --report - <\"$1\"", {folder.path()});
    EXPECT_EQ(broken.status, 3);
    EXPECT_EQ(broken.err, "tovrel-batch: standard input can't be read: Is a directory\n");
}

TEST_F(BatchOnUnix, refusesWhatCantBeNamedOrWritten) {
    const BatchEnd bytes = runShell("exec \"$0\" plot \"$(printf 'l\\366g.adi')\" --report -", {});
    EXPECT_EQ(bytes.status, 2);
    EXPECT_EQ(bytes.err, "tovrel-batch: not UTF-8, and so not usable: l\xC3\xB6g.adi\n");
    std::filesystem::create_symlink(work.path("m.png"), folder.path("link.png"));
    const BatchEnd link =
        run("plot", {"--image", work.path("m.png"), "--base-map", folder.path("link.png")});
    EXPECT_EQ(link.status, 2);
    EXPECT_NE(link.err.find("that of --image"), std::string::npos) << link.err;
    for (const char* option : {"--help", "--version"}) {
        const BatchEnd full = runShell("exec \"$0\" \"$1\" >/dev/full", {option});
        EXPECT_EQ(full.status, 3);
        EXPECT_EQ(full.err, "tovrel-batch: standard output can't be written: "
                            "No space left on device\n");
    }
}

TEST_F(BatchOnUnix, showsItsProgressOnATerminalUnlessItIsQuiet) {
    for (const std::string quiet : {"", "--quiet"}) {
        const BatchEnd end =
            runShell("p=$0; l=$1; f=$2; export p l f; exec script -qec '\"$p\" plot "
                     "\"$l\" --folder \"$f\" --report /dev/null " +
                         quiet + "' /dev/null",
                     {log, folder.path()});
        EXPECT_EQ(end.out.find(" %") != std::string::npos, quiet.empty()) << end.out;
    }
}

TEST_F(BatchOnUnix, drawsWithoutHelperThreadsAndNotWithoutFonts) {
    copySupplied(folder);
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
