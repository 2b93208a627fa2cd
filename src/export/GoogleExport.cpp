#include "export/GoogleExport.h"

#include "export/ZipClass.h"
#include "log/QsoFilter.h"
#include "log/RecordReader.h"
#include "platform/Files.h"
#include "platform/Numbers.h"

#include <QFile>
#include <QFileInfo>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tovrel {

namespace {

constexpr int passes = 3;

/// Whether two paths lead to one file.
bool isSameFile(const std::string& a, const std::string& b) {
    const auto systemPath = [](const std::string& path) {
        return QFileInfo(QString::fromStdString(path)).filesystemFilePath();
    };
    std::error_code ignored;
    return std::filesystem::equivalent(systemPath(a), systemPath(b), ignored);
}

/// What could not be done, the file, and the reason.
std::string failure(std::string_view what, std::string_view path, std::string_view reason) {
    return std::string(what).append("\r\n").append(path).append("\r\n").append(reason);
}

} // namespace

struct GoogleExport::Folder {
    QsoStatus status;
    std::string_view statusText;
    float bar;      ///< where the bar is put before the pass
    double barBase; ///< from where it runs on during the pass
};

ExportFiles exportFilesFor(std::string_view LogFileName) {
    constexpr std::size_t extension = 3;
    std::string document = kmlFileNameFor(LogFileName);
    std::string archive = document.substr(0, document.size() - extension) + "kmz";
    return {.KmlFileName = std::move(document), .archive = std::move(archive)};
}

GoogleExport::GoogleExport(const iniFiles& ini, const GoogleMapOptions& options, RunState& run,
                           MapStats& stats, std::int32_t& QsosPlotted, PassListener& listener,
                           UserPrompt& prompt, OpenFile openFile)
    : ini_(ini), options_(options), run_(run), stats_(stats), QsosPlotted_(QsosPlotted),
      listener_(listener), prompt_(prompt), openFile_(std::move(openFile)) {}

ExportEnd GoogleExport::CreateGoogleFile(const ExportFiles& files) {
    constexpr float fullBar = 100.0F;
    LogFileName_ = run_.LogFileName;
    files_ = files;
    stats_.lists().clear();
    listener_.beginPass("Creating Google Map Plot File", {}, fullBar);

    const ExportEnd written = writeDocument();
    if (written != ExportEnd::Done) {
        return written;
    }
    if (book_.counters().GooglePlaced() == 0) {
        return tellNothingPlaced();
    }
    listener_.showStatus("Packaging Google Data ... Please QRX");
    const ExportEnd packed = packDocument();
    if (packed != ExportEnd::Done) {
        return packed;
    }
    if (!files_.keepDocument) {
        QFile::remove(QString::fromStdString(files_.KmlFileName));
    }
    listener_.showStatus("Deleting Temp File");
    listener_.showProgress(fullBar);
    listener_.endPass();
    writeSummary();
    offerToOpen();
    return ExportEnd::Done;
}

ExportEnd GoogleExport::writeDocument() {
    // Before the document is begun, which would replace that of an earlier export.
    if (const RecordReader log(LogFileName_); !log.error().empty()) {
        return failLog(log.error());
    }
    for (const std::string& path : {files_.KmlFileName, files_.archive}) {
        if (isSameFile(path, LogFileName_)) {
            return failArchive(ExportEnd::DocumentFailed, path, "it would replace the ADIF file");
        }
    }
    const std::string MyCall = ini_.ReadIniValue(section::globals, "MyCall");
    listener_.showStatus("Creating Header Records");
    const std::string Marker = ini_.ReadIniValue(section::google, "Marker");
    if (!book_.WriteKmlHead(files_.KmlFileName, MyCall, iconScaleOf(Marker))) {
        return failDocument();
    }
    // In the last pass the bar falls back by 5.
    static constexpr Folder folders[passes] = {
        {QsoStatus::Confirmed, "Processing Confirmed QSOs", 5.0F, 5.0},
        {QsoStatus::Worked, "Processing Worked QSOs", 35.0F, 35.0},
        {QsoStatus::Heard, "Processing Heard QSOs", 65.0F, 60.0}};
    for (const Folder& folder : folders) {
        const ExportEnd end = writeFolder(folder);
        if (end != ExportEnd::Done) {
            return end;
        }
    }
    listener_.showProgress(95.0F);
    book_.WriteKmlTail();
    return book_.close() ? ExportEnd::Done : failDocument();
}

ExportEnd GoogleExport::writeFolder(const Folder& folder) {
    listener_.showProgress(folder.bar);
    listener_.showStatus(folder.statusText);
    book_.WriteFolderHead(folder.status);
    const ExportEnd end = ReadLogForGoogle(folder);
    if (end == ExportEnd::Done || end == ExportEnd::Aborted) {
        book_.WriteFolderEnd();
    }
    if (end == ExportEnd::Aborted) {
        book_.close();
    }
    return end;
}

ExportEnd GoogleExport::ReadLogForGoogle(const Folder& folder) {
    RecordReader log(LogFileName_);
    bool dictionaryLoaded = false;
    std::int64_t LogBytesDone = 0;
    std::size_t records = 0;
    for (;;) {
        switch (log.next()) {
        case Cut::End:
            QsosPlotted_ = 0;
            return ExportEnd::Done;
        case Cut::Failed:
            return failLog(log.error());
        case Cut::Blank:
            break;
        case Cut::Record:
            if (!dictionaryLoaded && !loadDictionary()) {
                return fail(ExportEnd::DictionaryMissing, std::string(FieldTable::missingMessage),
                            MessageIcon::Critical);
            }
            dictionaryLoaded = true;
            takeRecord(log.line(), folder.status, records);
            ++records;
            LogBytesDone += static_cast<std::int64_t>(log.line().size());
            break;
        }
        if (book_.failed()) {
            return failDocument();
        }
        const double done = (static_cast<double>(LogBytesDone) / passes) /
                            (static_cast<double>(log.size()) / passes);
        listener_.showProgress(toSingle(done * 30.0 + folder.barBase));
        listener_.yield();
        if (run_.AbortRequested) {
            run_.AbortRequested = false;
            return ExportEnd::Aborted;
        }
    }
}

bool GoogleExport::loadDictionary() {
    if (!fields_.LoadFieldDictionary(ini_.programFolder(), ini_.isMemoryOnly())) {
        return false;
    }
    fields_.ResolveFieldRows();
    return true;
}

void GoogleExport::takeRecord(std::string_view line, QsoStatus folder, std::size_t record) {
    ++GoogleRecords_;
    // A record that the first pass saw in another folder needs no second look.
    const bool known = record < folderOfRecord_.size();
    if (known && folderOfRecord_[record] != folder) {
        return;
    }
    fields_.ParseRecordLine(line);
    if (!known) {
        folderOfRecord_.push_back(folderFor(fields_));
    }
    const FieldRows& rows = fields_.rows();
    if (PassesGoogleFilter(layout::google, options_.filter, fields_.trimmed(rows.RowBand),
                           fields_.trimmed(rows.RowMode), fields_.trimmed(rows.RowIota))) {
        book_.WritePlacemark(fields_, options_.chkCall);
    }
}

ExportEnd GoogleExport::tellNothingPlaced() {
    prompt_.tell(GoogleRecords_ > 0
                     ? "There were no QSOs matching your filter selections."
                     : "Tovrel could not plot any of your QSOs.\r\n"
                       "Your log file did not contain Latitude & Longitude coordinates.");
    return ExportEnd::NothingPlaced;
}

ExportEnd GoogleExport::packDocument() {
    ZipClass archive;
    bool packed = archive.AddFile(files_.KmlFileName);
    if (packed) {
        listener_.showProgress(98.0F);
        for (const std::string_view icon :
             {"Google_Confirmed.png", "Google_Worked.png", "Google_Heard.png"}) {
            // The document names the icons so, however they are spelt in the folder. The archive
            // does without one that is missing.
            archive.AddFile(findFile(ini_.programFolder(), icon), icon);
        }
        packed = archive.WriteZip(files_.archive, true);
    }
    if (!packed) {
        return failArchive(ExportEnd::ArchiveFailed, files_.archive, archive.error());
    }
    listener_.showProgress(99.0F);
    return ExportEnd::Done;
}

void GoogleExport::writeSummary() {
    const GoogleCounters& n = book_.counters();
    const std::int64_t read = GoogleRecords_ / passes;
    const auto count = [](std::int64_t value) { return std::to_string(value); };
    constexpr const char* rule = " --------------------";
    stats_.lists().lstStats = {"Google File:",
                               " ",
                               " " + count(read) + " QSOs Read",
                               rule,
                               " " + count(n.GooglePlaced()) + " QSOs Plotted",
                               "   " + count(n.GoogleWorked) + " Worked",
                               "   " + count(n.GoogleConfirmed) + " Confirmed",
                               "   " + count(n.GoogleHeard) + " Heard",
                               rule,
                               " " + count(read - n.GooglePlaced()) + " Not Plotted"};
}

void GoogleExport::offerToOpen() {
    const bool open = prompt_.ask({.title = "Tovrel - Display Google Earth",
                                   .text = "Google Earth File: " + files_.archive +
                                           "\r\nHas been created. \r\n\r\n"
                                           "Do you wish to launch Google Earth ?",
                                   .buttons = Question::Buttons::YesNo,
                                   .defaultYes = false});
    if (open && !openFile_(files_.archive)) {
        prompt_.tell(failure("The Google Earth file could not be opened.", files_.archive,
                             "no program is registered for it"),
                     MessageIcon::Exclamation);
    }
}

/// Ends the export with a message, and with nothing left that is only half-written.
ExportEnd GoogleExport::fail(ExportEnd end, const std::string& message, MessageIcon icon) {
    if (end != ExportEnd::ArchiveFailed) {
        book_.discard();
    }
    listener_.endPass();
    prompt_.tell(message, icon);
    return end;
}

ExportEnd GoogleExport::failLog(std::string_view reason) {
    return fail(ExportEnd::LogUnreadable,
                failure("The ADIF file could not be read.", LogFileName_, reason));
}

ExportEnd GoogleExport::failDocument() {
    return fail(ExportEnd::DocumentFailed,
                failure("The Google Earth document could not be written.", files_.KmlFileName,
                        book_.error()));
}

ExportEnd GoogleExport::failArchive(ExportEnd end, std::string_view path, std::string_view reason) {
    return fail(end, failure("The Google Earth file could not be created.", path, reason));
}

} // namespace tovrel
