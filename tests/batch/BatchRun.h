#pragma once

#include "plot/PlotLog.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tovrel {

/// How a run of tovrel-batch ended.
struct BatchEnd {
    int status = -1; ///< -1 when a signal ended it
    std::string out;
    std::string err;
};

inline QStringList qtArguments(const std::vector<std::string>& arguments) {
    QStringList list;
    for (const std::string& argument : arguments)
        list << QString::fromStdString(argument);
    return list;
}

/// The arguments as a test's name tells them.
inline std::string joined(const std::vector<std::string>& arguments) {
    return qtArguments(arguments).join(QLatin1Char(' ')).toStdString();
}

/// The program on its way, with no display to draw on.
/// @param input file that is standard input
inline void startBatch(QProcess& program, const std::vector<std::string>& arguments,
                       const QString& input = QProcess::nullDevice()) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QString::fromLatin1(name));
    program.setProcessEnvironment(environment);
    program.setStandardInputFile(input);
    program.start(QStringLiteral(TOVREL_BATCH_PROGRAM), qtArguments(arguments));
}

inline BatchEnd endOf(QProcess& program) {
    program.waitForFinished(120000);
    return {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1,
            program.readAllStandardOutput().toStdString(),
            program.readAllStandardError().toStdString()};
}

inline BatchEnd runBatch(const std::vector<std::string>& arguments) {
    QProcess program;
    startBatch(program, arguments);
    return endOf(program);
}

/// All that a folder holds, hidden things and folders too, each followed by a blank.
inline std::string everythingIn(const std::string& folder) {
    std::string all;
    const QDir::Filters filters = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    for (const QString& name : QDir(QString::fromStdString(folder)).entryList(filters, QDir::Name))
        all += name.toStdString() + " ";
    return all;
}

/// A program folder with settings but no map data, and a folder with a log.
class BatchTest : public testing::Test {
protected:
    static constexpr const char* settings =
        "[Globals]\r\nMyCall=W1TVR\r\n"
        "Latitude=40\r\nLongitude=-74\r\n"
        "[GCMapOptions]\r\nBand0=0\r\nBand7=1\r\nCall=1\r\n"
        "[MCMapOptions]\r\nBand0=0\r\nBand7=1\r\n"
        "[GoogleMapOptions]\r\nBand0=0\r\nBand7=1\r\nCall=0\r\n";

    BatchTest() {
        folder.write("Tovrel.ini", settings);
        log = work.write("log.adi", contacts());
    }

    static std::string contacts() {
        return record({"A1A", "50", "-10", "20M", "CW", "EU-005"}) +
               record({"B1B", "30", "100", "40M", "SSB", "NA-001"}) +
               record({"C1C", "-30", "60", "20M", "SSB", "",
                       adif("COUNTRY", "\xC5land") + adif("QSL_RCVD", "Y")}) +
               record({"D1D"});
    }

    /// Runs a command on the log, quietly, with what data files there are.
    BatchEnd run(const std::string& command, std::vector<std::string> options) const {
        options.insert(options.begin(),
                       {command, log, "--folder", folder.path(), "--quiet", "--allow-incomplete"});
        return runBatch(options);
    }

    /// The report of a run that writes one to standard output.
    QJsonObject report(const std::string& command, std::vector<std::string> options,
                       int status = 0) const {
        options.insert(options.end(), {"--report", "-"});
        const BatchEnd end = run(command, std::move(options));
        EXPECT_EQ(end.status, status) << end.err;
        QJsonParseError error;
        const QJsonDocument document =
            QJsonDocument::fromJson(QByteArray::fromStdString(end.out), &error);
        EXPECT_EQ(error.error, QJsonParseError::NoError) << end.out;
        return document.object();
    }

    TestFolder folder;
    TestFolder work;
    std::string log;
};

} // namespace tovrel
