#include "batch/BatchRun.h"
#include "export/Unpacked.h"

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
    std::filesystem::create_directory(systemPath(work.path("Größe Ж")));
    const struct {
        std::string log, archive, document;
    } cases[] = {{"./log.adi", "log.kmz", "log.kml"},
                 {"my.log.adi", "my.log.kmz", "mylog.kml"},
                 {"club.logs/log.adi", "club.logs/log.kmz", "log.kml"},
                 {".adi", ".adi.kmz", ".adi.kml"},
                 {"Größe Ж/Журнал 世.adi", "Größe Ж/Журнал 世.kmz", "Журнал 世.kml"},
                 {"in/../noext", "noext.kmz", "noext.kml"}};
    for (const auto& c : cases) {
        work.write(c.log, contacts());
        QProcess program;
        program.setWorkingDirectory(QString::fromStdString(work.path()));
        startBatch(program, {"kmz", c.log, "--folder", folder.path(), "--allow-incomplete"});
        EXPECT_EQ(endOf(program).status, 0) << c.log;
        EXPECT_EQ(entryNames(work.read(c.archive)), c.document + " ") << "there are no icons";
        std::filesystem::remove(systemPath(work.path(c.archive)));
        std::filesystem::remove(systemPath(work.path(c.log)));
    }
    EXPECT_EQ(everythingIn(work.path()), "Größe Ж club.logs in ");
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
              "Tovrel.ini Größe Ж club.logs in log.adi ");
}

TEST_F(BatchKmz, readsStandardInputAndWritesToStandardOutput) {
    QProcess program;
    startBatch(program,
               {"kmz", "-", "--folder", folder.path(), "--allow-incomplete", "--output",
                work.path("p.kmz"), "--report", "-"},
               QString::fromStdString(log));
    const BatchEnd read = endOf(program);
    EXPECT_EQ(read.status, 0) << read.err;
    EXPECT_EQ(entryNames(work.read("p.kmz")), "log.kml ");
    EXPECT_EQ(read.out, run("kmz", {"--report", "-"}).out);
    const BatchEnd out = run("kmz", {"--output", "-"});
    EXPECT_EQ(entryNames(out.out), "log.kml ");
    EXPECT_TRUE(firstEntryOf(out.out) == firstEntryOf(work.read("p.kmz")));
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

} // namespace

} // namespace tovrel
