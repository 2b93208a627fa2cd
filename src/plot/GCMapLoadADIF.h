#pragma once

#include "log/LogPass.h"
#include "plot/MapLayers.h"
#include "plot/PlotTables.h"
#include "state/MapOptions.h"
#include "state/RunState.h"
#include "state/iniFiles.h"
#include "stats/MapStats.h"

#include <functional>

namespace tovrel {

/// The pass that plots a log: reads it once, keeps every QSO that passes the filter and has
/// coordinates, and draws them when the whole log was read.
///
/// It looks at AbortRequested once for each record and at the options at every record, live, since
/// the user may change either whenever events run.
class GCMapLoadADIF : private LogPass::Visitor {
public:
    /// All have to outlive the pass.
    /// @param run names the log and the map; its MapPlotted is set at the start of the pass
    /// @param stats, tables take what the pass finds
    /// @param Picture2 the map on show, which gets the marks as a layer
    GCMapLoadADIF(iniFiles& ini, MapOptionForms& maps, RunState& run, MapStats& stats,
                  PlotTables& tables, LayeredPicture& Picture2, PassListener& listener,
                  UserPrompt& prompt);

    /// Plots the log that the run names, on a map and with lists that were just cleared. When the
    /// log or its dictionary can't be read the user is told.
    /// @param beforeMarks called when the log was read, before anything is drawn
    PassEnd PlotLog(const std::function<void()>& beforeMarks = [] {});

private:
    void takeRecord(const Qso& qso) override;
    float progress(double done, double size) override;
    void dropResult();
    void writeSummary();

    iniFiles& ini_;
    MapOptionForms& maps_;
    RunState& run_;
    MapStats& stats_;
    PlotTables& tables_;
    LayeredPicture& Picture2_;
    PassListener& listener_;
    UserPrompt& prompt_;
    std::int64_t logSize_ = 0;
    float progress_ = 0.0F;
};

} // namespace tovrel
