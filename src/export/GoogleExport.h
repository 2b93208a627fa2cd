#pragma once

#include "export/LogBook.h"
#include "log/FieldTable.h"
#include "platform/PassListener.h"
#include "platform/UserPrompt.h"
#include "state/GoogleMapOptions.h"
#include "state/RunState.h"
#include "state/iniFiles.h"
#include "stats/MapStats.h"

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
    std::string KmlFileName; ///< the document, a working file that is packed and then deleted
    std::string archive;
    bool keepDocument = false; ///< the document stays when it has been packed
};

/// The files of a log's export: beside the log, unless its folder has a dot in its name.
ExportFiles exportFilesFor(std::string_view LogFileName);

/// How an export came to its end. But for Done there is no archive of it.
enum class ExportEnd {
    Done,
    NothingPlaced,     ///< no record got a placemark; the user was told, the document stays
    Aborted,           ///< the user asked for it; the document stays as far as it was written
    LogUnreadable,     ///< the log could not be opened or read to its end; the user was told
    DictionaryMissing, ///< the field dictionary has gone; the user was told, the program must end
    DocumentFailed,    ///< the document could not be written; the user was told
    ArchiveFailed      ///< the archive could not be written; the user was told, the document stays
};

/// The export of a log to Google Earth: reads it three times, once for each folder of the document,
/// and packs the document and the icons of the program's folder into an archive.
///
/// It looks at AbortRequested behind each record and blank line, and at the options at every
/// record, live, since the user may change either whenever events run.
class GoogleExport {
public:
    /// Opens a file with the program that the system has for it.
    using OpenFile = std::function<bool(const std::string& path)>;

    /// @param QsosPlotted rows of the plot pass's table; a pass over the log makes them void
    GoogleExport(const iniFiles& ini, const GoogleMapOptions& options, RunState& run,
                 MapStats& stats, std::int32_t& QsosPlotted, PassListener& listener,
                 UserPrompt& prompt, OpenFile openFile);

    /// Exports the log that the run names, and offers to open the archive. An object does this
    /// once.
    ExportEnd CreateGoogleFile(const ExportFiles& files);

    /// Placemarks of the document.
    const GoogleCounters& counters() const { return book_.counters(); }

    /// Records read, over the three passes.
    std::int64_t GoogleRecords() const { return GoogleRecords_; }

private:
    struct Folder;

    ExportEnd writeDocument();
    ExportEnd writeFolder(const Folder& folder);
    ExportEnd ReadLogForGoogle(const Folder& folder);
    bool loadDictionary();
    void takeRecord(std::string_view line, QsoStatus folder, std::size_t record);
    ExportEnd tellNothingPlaced();
    ExportEnd packDocument();
    void writeSummary();
    void offerToOpen();

    ExportEnd fail(ExportEnd end, const std::string& message,
                   MessageIcon icon = MessageIcon::Exclamation);
    ExportEnd failLog(std::string_view reason);
    ExportEnd failDocument();
    ExportEnd failArchive(ExportEnd end, std::string_view path, std::string_view reason);

    const iniFiles& ini_;
    const GoogleMapOptions& options_;
    RunState& run_;
    MapStats& stats_;
    std::int32_t& QsosPlotted_;
    PassListener& listener_;
    UserPrompt& prompt_;
    OpenFile openFile_;

    std::string LogFileName_; ///< the user may choose another log while this one is read
    ExportFiles files_;
    LogBook book_;
    FieldTable fields_;
    std::int64_t GoogleRecords_ = 0;
    /// Of each record, as the first pass saw it.
    std::vector<std::optional<QsoStatus>> folderOfRecord_;
};

} // namespace tovrel
