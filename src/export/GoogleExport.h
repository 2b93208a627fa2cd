#pragma once

#include "export/LogBook.h"
#include "log/LogPass.h"
#include "log/PositionCounts.h"
#include "platform/WorkFolder.h"
#include "state/GoogleMapOptions.h"
#include "state/RunState.h"
#include "state/iniFiles.h"
#include "stats/MapStats.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tovrel {

/// What an export writes. Paths are UTF-8.
struct ExportFiles {
    /// When the document stands at its place in the end. It is written in a work folder beside
    /// that.
    enum class Document {
        Unpacked, ///< when no archive was made of it
        Kept,     ///< when it is whole, packed or not
        Never
    };

    std::string KmlFileName; ///< place of the document; the archive has its name
    std::string archive;     ///< path of the KMZ file; a file that stands there is replaced
    Document document = Document::Unpacked; ///< when KmlFileName gets it
    std::string archiveTitle{}; ///< how to name the archive when its path means nothing to the user
};

/// The files of a log's export, beside the log.
ExportFiles exportFilesFor(std::string_view LogFileName);

/// How an export came to its end. But for Done there is no archive of it.
enum class ExportEnd {
    Done,
    NothingPlaced,     ///< no record got a placemark; the user was told, the document stays
    Aborted,           ///< the user asked for it; the document stays as far as it was written
    LogUnreadable,     ///< the log could not be read, or changed meanwhile; the user was told
    DictionaryMissing, ///< the field dictionary has gone; the user was told, the program must end
    DictionaryUnreadable, ///< the field dictionary can't be read; the user was told
    DocumentFailed,       ///< the document could not be written; the user was told
    ArchiveFailed ///< the archive could not be written; the user was told, the document stays
};

/// The export of a log to Google Earth: reads it three times, once for each folder of the document,
/// and packs the document and the icons of the program's folder into an archive.
///
/// The log is opened once, and all three passes have to find the same bytes, so that the document
/// has each contact once. An archive that stands there is replaced by a whole one or stays; exports
/// of one log may run side by side.
///
/// It looks at AbortRequested after each record and blank line, and at the options at every
/// record, live, since the user may change either whenever events run.
class GoogleExport {
public:
    /// Opens a file with the program that the system has for it.
    using OpenFile = std::function<bool(const std::string& path)>;

    /// The icons of the archive, as the document names them, found in the program's folder.
    static constexpr std::array<std::string_view, 3> icons = {
        "Google_Confirmed.png", "Google_Worked.png", "Google_Heard.png"};

    /// @param QsosPlotted rows of the plot pass's table; a pass over the log makes them void
    GoogleExport(const iniFiles& ini, const GoogleMapOptions& options, RunState& run,
                 MapStats& stats, std::int32_t& QsosPlotted, PassListener& listener,
                 UserPrompt& prompt, OpenFile openFile);

    /// Exports the log that the run names, and offers to open the archive. An object does this
    /// once.
    ExportEnd CreateGoogleFile(const ExportFiles& files);

    /// Placemarks of the document.
    const GoogleCounters& counters() const { return book_.counters(); }

    /// Whether some record tells a place, filter or no filter.
    bool LogHasCoordinates() const { return LogHasCoordinates_; }

    /// Records read, over the three passes.
    std::int64_t GoogleRecords() const { return GoogleRecords_; }

private:
    struct Folder;
    class FolderPass;

    ExportEnd writeDocument(LogFile& log);
    ExportEnd writeFolder(const Folder& folder, LogFile& log);
    ExportEnd ReadLogForGoogle(const Folder& folder, LogFile& log);
    ExportEnd tellNothingPlaced();
    std::string packDocument();
    WriteEnd leaveDocument();
    void writeSummary();
    void offerToOpen();

    void dropFiles();
    const std::string& shownArchive() const {
        return files_.archiveTitle.empty() ? files_.archive : files_.archiveTitle;
    }
    ExportEnd fail(ExportEnd end, const FileFailure& failure);
    ExportEnd failLog(const std::string& reason);
    ExportEnd failDocument(const std::string& reason);
    ExportEnd failPacking(const std::string& reason);
    ExportEnd failArchive(ExportEnd end, const std::string& path, const std::string& reason);

    const iniFiles& ini_;
    const GoogleMapOptions& options_;
    RunState& run_;
    MapStats& stats_;
    std::int32_t& QsosPlotted_;
    PassListener& listener_;
    UserPrompt& prompt_;
    OpenFile openFile_;

    std::string shownLog_;
    std::string LogFileName_; ///< the user may choose another log while this one is read
    LogReading reading_;      ///< or another way to read it
    ExportFiles files_;
    std::optional<WorkFolder> work_;
    std::string document_; ///< path in the work folder
    LogBook book_;
    std::int64_t GoogleRecords_ = 0;
    bool LogHasCoordinates_ = false;
    std::optional<PositionCounts> PositionsFrom_; ///< of the placed, in a log of any logger only
    /// Of each record, as the first pass saw it.
    std::vector<std::optional<QsoStatus>> folderOfRecord_;
};

} // namespace tovrel
