#include "export/GoogleExport.h"

#include "export/ZipClass.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "state/StationInfo.h"

#include <utility>

namespace tovrel {

namespace {

constexpr int passes = 3;

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
    shownLog_ = run_.shownLog();
    reading_ = run_.reading;
    files_ = files;
    stats_.lists().clear();
    listener_.beginPass("Creating Google Map Plot File", {}, fullBar);

    LogFile log(LogFileName_, LogFile::Check::SameBytes);
    const ExportEnd written = writeDocument(log);
    if (written != ExportEnd::Done) {
        return written;
    }
    if (book_.counters().GooglePlaced() == 0) {
        return tellNothingPlaced();
    }
    listener_.showStatus("Packaging Google Data ... Please QRX");
    if (const std::string reason = packDocument(); !reason.empty()) {
        return failPacking(reason);
    }
    if (files_.document == ExportFiles::Document::Kept) {
        if (const WriteEnd kept = leaveDocument(); !kept) {
            return failDocument(kept.reason);
        }
    }
    work_.reset();
    listener_.showStatus("Deleting Temp File");
    listener_.showProgress(fullBar);
    listener_.endPass();
    writeSummary();
    offerToOpen();
    return ExportEnd::Done;
}

ExportEnd GoogleExport::writeDocument(LogFile& log) {
    if (!log.error().empty()) {
        return failLog(log.error());
    }
    for (const std::string& path : {files_.KmlFileName, files_.archive}) {
        if (isSameFile(path, LogFileName_)) {
            return failArchive(ExportEnd::DocumentFailed, path, "it would replace the ADIF file");
        }
    }
    const std::string MyCall = readStationInfo(ini_).MyCall;
    listener_.showStatus("Creating Header Records");
    const PathParts place = splitPath(files_.KmlFileName);
    work_.emplace(std::string(place.folder));
    if (!work_->isValid()) {
        return failDocument(work_->error());
    }
    document_ = work_->path(place.name);
    if (!book_.WriteKmlHead(document_, MyCall, iconScaleOf(GoogleMapOptions::storedMarker(ini_)))) {
        return failDocument(book_.error());
    }
    // In the last pass the bar falls back by 5.
    static constexpr Folder folders[passes] = {
        {QsoStatus::Confirmed, "Processing Confirmed QSOs", 5.0F, 5.0},
        {QsoStatus::Worked, "Processing Worked QSOs", 35.0F, 35.0},
        {QsoStatus::Heard, "Processing Heard QSOs", 65.0F, 60.0}};
    for (const Folder& folder : folders) {
        const ExportEnd end = writeFolder(folder, log);
        if (end != ExportEnd::Done) {
            return end;
        }
    }
    listener_.showProgress(95.0F);
    book_.WriteKmlTail();
    return book_.close() ? ExportEnd::Done : failDocument(book_.error());
}

ExportEnd GoogleExport::writeFolder(const Folder& folder, LogFile& log) {
    listener_.showProgress(folder.bar);
    listener_.showStatus(folder.statusText);
    book_.WriteFolderHead(folder.status);
    const ExportEnd end = ReadLogForGoogle(folder, log);
    if (end == ExportEnd::Done || end == ExportEnd::Aborted) {
        book_.WriteFolderEnd();
    }
    if (end == ExportEnd::Aborted) {
        book_.close();
        if (files_.document == ExportFiles::Document::Unpacked) {
            if (const WriteEnd left = leaveDocument(); !left) {
                return failDocument(left.reason);
            }
        }
    }
    return end;
}

/// Puts the records of one class into the document.
class GoogleExport::FolderPass : public LogPass::Visitor {
public:
    FolderPass(GoogleExport& owner, const Folder& folder) : owner_(owner), folder_(folder) {}

    bool wantsRecord() override {
        ++owner_.GoogleRecords_;
        // A record that the first pass saw in another folder needs no second look.
        const std::size_t record = record_++;
        return record >= owner_.folderOfRecord_.size() ||
               owner_.folderOfRecord_[record] == folder_.status;
    }

    void takeRecord(const Qso& qso) override {
        std::vector<std::optional<QsoStatus>>& folders = owner_.folderOfRecord_;
        if (record_ > folders.size()) {
            folders.push_back(qso.folder());
            owner_.LogHasCoordinates_ = owner_.LogHasCoordinates_ || qso.tellsPlace();
        }
        if (folders[record_ - 1] == folder_.status && qso.passes(owner_.options_.filter)) {
            owner_.book_.WritePlacemark(qso, owner_.options_.chkCall);
            if (owner_.PositionsFrom_) {
                owner_.PositionsFrom_->add(qso.place()->from);
            }
        }
    }

    bool failed() const override { return owner_.book_.failed(); }

    float progress(double done, double size) override {
        return toSingle((done / passes) / (size / passes) * 30.0 + folder_.barBase);
    }

private:
    GoogleExport& owner_;
    const Folder& folder_;
    std::size_t record_ = 0;
};

ExportEnd GoogleExport::ReadLogForGoogle(const Folder& folder, LogFile& log) {
    LogPass pass(log, reading_, ini_, run_, listener_, LogPass::Abort::AfterYield);
    if (pass.tellsSources() && !PositionsFrom_) {
        PositionsFrom_.emplace();
    }
    FolderPass records(*this, folder);
    const PassEnd end = pass.read(records);
    switch (end) {
    case PassEnd::Done:
        QsosPlotted_ = 0;
        return ExportEnd::Done;
    case PassEnd::Aborted:
        return ExportEnd::Aborted;
    case PassEnd::Stopped:
        return failDocument(book_.error());
    case PassEnd::LogUnreadable:
    case PassEnd::DictionaryMissing:
    case PassEnd::DictionaryUnreadable:
        break;
    }
    dropFiles();
    pass.tellEnd(end, shownLog_, prompt_);
    return end == PassEnd::LogUnreadable       ? ExportEnd::LogUnreadable
           : end == PassEnd::DictionaryMissing ? ExportEnd::DictionaryMissing
                                               : ExportEnd::DictionaryUnreadable;
}

ExportEnd GoogleExport::tellNothingPlaced() {
    const WriteEnd left = leaveDocument();
    prompt_.tell(GoogleRecords_ > 0
                     ? "There were no QSOs matching your filter selections."
                     : "Tovrel could not plot any of your QSOs.\r\n"
                       "Your log file did not contain Latitude & Longitude coordinates.");
    return left ? ExportEnd::NothingPlaced : failDocument(left.reason);
}

/// @return why there is no archive; empty when there is one
std::string GoogleExport::packDocument() {
    ZipClass archive;
    if (!archive.AddFile(document_)) {
        return archive.error();
    }
    if (archive.lastSource() != book_.written()) {
        return "the document was changed before it was packed";
    }
    listener_.showProgress(98.0F);
    for (const std::string_view icon : icons) {
        // The document names the icons so, however they are spelt in the folder. The archive
        // does without one that is missing.
        const std::string path = filePath(ini_.programFolder(), icon);
        if (!archive.AddFile(path, icon) && !readFile(path, 0).isMissing()) {
            return std::string(icon).append(": ").append(archive.error());
        }
    }
    if (!archive.WriteZip(files_.archive)) {
        return archive.error();
    }
    listener_.showProgress(99.0F);
    return {};
}

/// Brings the document to its place, if it is to stand there ever.
WriteEnd GoogleExport::leaveDocument() {
    WriteEnd end;
    if (files_.document != ExportFiles::Document::Never) {
        end = moveFile(document_, files_.KmlFileName);
    }
    work_.reset();
    return end;
}

void GoogleExport::writeSummary() {
    const GoogleCounters& n = book_.counters();
    const std::int64_t read = GoogleRecords_ / passes;
    const auto count = [](std::int64_t value) { return std::to_string(value); };
    constexpr const char* rule = " --------------------";
    std::vector<std::string>& lines = stats_.lists().lstStats;
    lines = {"Google File:", " ", " " + count(read) + " QSOs Read", rule,
             " " + count(n.GooglePlaced()) + " QSOs Plotted"};
    if (PositionsFrom_) {
        PositionsFrom_->addLines(lines);
    }
    lines.insert(lines.end(), {"   " + count(n.GoogleWorked) + " Worked",
                               "   " + count(n.GoogleConfirmed) + " Confirmed",
                               "   " + count(n.GoogleHeard) + " Heard", rule,
                               " " + count(read - n.GooglePlaced()) + " Not Plotted"});
}

void GoogleExport::offerToOpen() {
    const bool open = prompt_.ask({.title = "Tovrel - Display Google Earth",
                                   .text = "Google Earth File: " + files_.archive +
                                           "\r\nHas been created. \r\n\r\n"
                                           "Do you wish to launch Google Earth ?",
                                   .buttons = Question::Buttons::YesNo,
                                   .defaultYes = false});
    if (open && !openFile_(files_.archive)) {
        prompt_.tellFailure({FileFailure::Act::Use, "The Google Earth file could not be opened.",
                             files_.archive, "no program is registered for it"});
    }
}

/// Leaves nothing that is only half-written.
void GoogleExport::dropFiles() {
    book_.close();
    work_.reset();
    listener_.endPass();
}

ExportEnd GoogleExport::fail(ExportEnd end, const FileFailure& failure) {
    dropFiles();
    prompt_.tellFailure(failure);
    return end;
}

ExportEnd GoogleExport::failLog(const std::string& reason) {
    return fail(ExportEnd::LogUnreadable,
                {FileFailure::Act::Read, "The ADIF file could not be read.", shownLog_, reason});
}

ExportEnd GoogleExport::failDocument(const std::string& reason) {
    // A document that will never stand anywhere has no place that the user knows.
    if (files_.document == ExportFiles::Document::Never) {
        return failArchive(ExportEnd::DocumentFailed, shownArchive(), reason);
    }
    return fail(ExportEnd::DocumentFailed,
                {FileFailure::Act::Write, "The Google Earth document could not be written.",
                 files_.KmlFileName, reason});
}

ExportEnd GoogleExport::failPacking(const std::string& reason) {
    const WriteEnd left = leaveDocument();
    const ExportEnd end = failArchive(ExportEnd::ArchiveFailed, shownArchive(), reason);
    return left ? end : failDocument(left.reason);
}

ExportEnd GoogleExport::failArchive(ExportEnd end, const std::string& path,
                                    const std::string& reason) {
    return fail(end, {FileFailure::Act::Write, "The Google Earth file could not be created.", path,
                      reason});
}

} // namespace tovrel
