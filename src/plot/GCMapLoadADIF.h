#pragma once

#include "log/FieldTable.h"
#include "map/PictureSurface.h"
#include "platform/PassListener.h"
#include "platform/UserPrompt.h"
#include "plot/PlotTables.h"
#include "state/MapOptions.h"
#include "state/RunState.h"
#include "state/iniFiles.h"
#include "stats/MapStats.h"

#include <functional>
#include <string>
#include <string_view>

namespace tovrel {

/// How a plot pass came to its end.
enum class PassEnd {
    Done,
    Aborted,           ///< the user asked for it
    LogUnreadable,     ///< the log could not be opened or read to its end; the user was told
    DictionaryMissing, ///< the field dictionary has gone; the user was told, the program must end
    DictionaryUnreadable, ///< the field dictionary can't be read; the user was told
};

/// The pass that plots a log: reads it once, keeps every QSO that passes the filter and has
/// coordinates, and draws them when the whole log was read.
///
/// It looks at AbortRequested once for each record and at the options at every record, live, since
/// the user may change either whenever events run.
class GCMapLoadADIF {
public:
    GCMapLoadADIF(iniFiles& ini, MapOptionForms& maps, RunState& run, MapStats& stats,
                  PlotTables& tables, PictureSurface& Picture2, PassListener& listener,
                  UserPrompt& prompt);

    /// Called when the log was read, before anything is drawn.
    std::function<void()> beforeMarks;

    /// Plots the log that the run names, on a map and with lists that were just cleared.
    PassEnd PlotLog();

private:
    PassEnd readLog();
    void takeRecord(std::string_view line);
    void plotRecord(std::string_view call, double north, double west);
    PassEnd loadDictionary();
    bool passesFilter();
    void dropResult();
    void writeSummary();
    std::string_view field(int row) const { return fields_.trimmed(row); }

    iniFiles& ini_;
    MapOptionForms& maps_;
    RunState& run_;
    MapStats& stats_;
    PlotTables& tables_;
    PictureSurface& Picture2_;
    PassListener& listener_;
    UserPrompt& prompt_;
    FieldTable fields_;
    float progress_ = 0.0F;
};

} // namespace tovrel
