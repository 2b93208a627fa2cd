#include "plot/GCMapLoadADIF.h"

#include "log/QsoFilter.h"
#include "map/Overlays.h"
#include "map/WorldMap.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "plot/PlotRendering.h"
#include "state/StationInfo.h"

namespace tovrel {

GCMapLoadADIF::GCMapLoadADIF(iniFiles& ini, MapOptionForms& maps, RunState& run, MapStats& stats,
                             PlotTables& tables, PictureSurface& Picture2, PassListener& listener,
                             UserPrompt& prompt)
    : ini_(ini), maps_(maps), run_(run), stats_(stats), tables_(tables), Picture2_(Picture2),
      listener_(listener), prompt_(prompt) {}

PassEnd GCMapLoadADIF::PlotLog(const std::function<void()>& beforeMarks) {
    constexpr float fullBar = 100.0F;
    run_.AbortRequested = false;
    const std::string status = std::string("Processing: ").append(splitPath(run_.shownLog()).name);
    listener_.beginPass("Plotting ADIF File", status, fullBar);
    run_.MapPlotted = true;
    if (!worldMap(run_.marks.projection, run_.HomeLatitude, run_.HomeLongitude)->centredOnHome()) {
        readHome(ini_, run_);
    }
    tables_.clear();
    progress_ = 0.0F;

    LogFile log(run_.LogFileName);
    logSize_ = log.size();
    LogPass pass(log, ini_, run_, listener_, LogPass::Abort::BeforeYield);
    const PassEnd end = pass.read(*this);
    if (end != PassEnd::Done && end != PassEnd::Aborted) {
        dropResult();
        pass.tellEnd(end, run_.shownLog(), prompt_);
    }
    if (end != PassEnd::Done) {
        return end;
    }
    beforeMarks();
    stats_.load(); // its window may have been closed meanwhile
    const Legend& legend = stats_.legend();
    const std::unique_ptr<const WorldMap> map =
        worldMap(run_.marks.projection, run_.HomeLatitude, run_.HomeLongitude);
    const DotWidths widths = dotWidths(maps_.inForce().marker);
    DrawPlottedQsos(tables_, *map, widths, legend, stats_.lists(), Picture2_, prompt_);
    if (run_.marks.mnuShowMe) {
        DrawHomeMarker(Picture2_, map->home(), widths, legend.colour(MapColour::PlotOutline),
                       legend.colour(MapColour::Home));
    }
    listener_.showProgress(progress_);
    listener_.endPass();
    writeSummary();
    run_.AbortRequested = false;
    return PassEnd::Done;
}

float GCMapLoadADIF::progress(double done, double size) {
    return progress_ = toSingle(done / size * 100.0);
}

void GCMapLoadADIF::takeRecord(FieldTable& fields, std::string_view line) {
    // Records are about as long as the first one, some shorter. Room that is never used costs
    // nothing, and a table that grows is copied each time.
    if (tables_.counters.QsosRead++ == 0) {
        const std::size_t likely = static_cast<std::size_t>(logSize_) / line.size();
        tables_.plotTable.reserve(likely + likely / 4);
    }
    fields.ParseRecordLine(line);
    const FieldRows& rows = fields.rows();
    const double west = coordinateValue(fields.trimmed(rows.RowLongitude));
    if (west != 0.0) {
        tables_.LogHasCoordinates = true;
    }
    if (!passesFilter(fields)) {
        return;
    }
    tables_.FilterPassedAny = true;
    plotRecord(fields, coordinateValue(fields.trimmed(rows.RowLatitude)), west);
}

bool GCMapLoadADIF::passesFilter(const FieldTable& fields) const {
    const FieldRows& rows = fields.rows();
    return tovrel::passesFilter(maps_.inForce().filter, fields.trimmed(rows.RowBand),
                                fields.trimmed(rows.RowMode), fields.trimmed(rows.RowIota));
}

/// @param north, west degrees; 0 for a coordinate that can't place a QSO, since it begins with no
///        number or that number is zero
void GCMapLoadADIF::plotRecord(const FieldTable& fields, double north, double west) {
    const FieldRows& rows = fields.rows();
    const std::string_view call = fields.trimmed(rows.RowCall);
    if (north == 0.0 || west == 0.0) {
        ++tables_.counters.QsosNotPlotted;
        stats_.lists().lstPfxNotPlotted.add(call);
        return;
    }
    ++tables_.counters.QsosPlotted;
    const QsoStatus status =
        statusOf(call, fields.trimmed(rows.RowQslRcvd), fields.trimmed(rows.RowEqslRcvd),
                 fields.trimmed(rows.RowLotwRcvd));
    tables_.plotTable.add(toSingle(north), -toSingle(west), status, call,
                          fields.trimmed(rows.RowCountry));
}

/// What was read is no result: the lists and tables stay as a map without a plot has them.
void GCMapLoadADIF::dropResult() {
    tables_.clear();
    stats_.lists().clear();
    run_.MapPlotted = false;
    listener_.endPass();
}

void GCMapLoadADIF::writeSummary() {
    const PassCounters& n = tables_.counters;
    const auto count = [](std::int32_t value) { return std::to_string(value); };
    constexpr const char* rule = " --------------------";
    stats_.lists().lstStats = {" " + count(n.QsosRead) + " QSOs Read",
                               rule,
                               " " + count(n.QsosPlotted) + " QSOs Plotted",
                               "   " + count(n.QsosWorked) + " Worked",
                               "   " + count(n.QsosConfirmed) + " Confirmed",
                               "   " + count(n.QsosHeard) + " Heard",
                               rule,
                               " " + count(n.QsosNotPlotted) + " Not Plotted"};
}

} // namespace tovrel
