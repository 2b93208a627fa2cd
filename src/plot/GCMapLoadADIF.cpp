#include "plot/GCMapLoadADIF.h"

#include "map/WorldMap.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "plot/PlotRendering.h"
#include "state/StationInfo.h"

namespace tovrel {

GCMapLoadADIF::GCMapLoadADIF(iniFiles& ini, MapOptionForms& maps, RunState& run, MapStats& stats,
                             PlotTables& tables, LayeredPicture& Picture2, PassListener& listener,
                             UserPrompt& prompt)
    : ini_(ini), maps_(maps), run_(run), stats_(stats), tables_(tables), Picture2_(Picture2),
      listener_(listener), prompt_(prompt) {}

PassEnd GCMapLoadADIF::PlotLog(const std::function<void()>& beforeMarks) {
    constexpr float fullBar = 100.0F;
    run_.AbortRequested = false;
    const std::string logName(splitPath(run_.shownLog()).name);
    listener_.beginPass("Plotting ADIF File", "Processing: " + logName, fullBar);
    run_.MapPlotted = true;
    if (!worldMap(run_.marks.projection, run_.HomeLatitude, run_.HomeLongitude)->centredOnHome()) {
        readHome(ini_, run_);
    }
    tables_.clear();
    progress_ = 0.0F;

    LogFile log(run_.LogFileName);
    logSize_ = log.size();
    LogPass pass(log, run_.reading, ini_, run_, listener_, LogPass::Abort::BeforeYield);
    if (pass.tellsSources()) {
        tables_.PositionsFrom.emplace();
    }
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
    const MarkStyle style = markStyle(maps_.inForce().marker, legend);
    DrawPlottedQsos(tables_, *map, style, stats_.lists(), Picture2_, prompt_);
    Picture2_.layers.emplace_back(PlotLayer{style, logName, filterWords(maps_.inForce().filter)});
    if (run_.marks.mnuShowMe) {
        Picture2_.layers.emplace_back(
            HomeLayer{map->home(), style.widths, style.outline, legend.colour(MapColour::Home)});
        drawLayer(Picture2_.layers.back(), *map, tables_, Picture2_, listener_);
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

void GCMapLoadADIF::takeRecord(const Qso& qso) {
    // Records are about as long as the first one, some shorter. Room that is never used costs
    // nothing, and a table that grows is copied each time.
    if (tables_.counters.QsosRead++ == 0) {
        const std::size_t likely = static_cast<std::size_t>(logSize_) / qso.size();
        tables_.plotTable.reserve(likely + likely / 4);
    }
    tables_.LogHasCoordinates = tables_.LogHasCoordinates || qso.tellsPlace();
    if (!qso.passes(maps_.inForce().filter)) {
        return;
    }
    tables_.FilterPassedAny = true;
    const std::optional<ContactPlace> place = qso.place();
    if (!place) {
        ++tables_.counters.QsosNotPlotted;
        stats_.lists().lstPfxNotPlotted.add(qso.call());
        return;
    }
    ++tables_.counters.QsosPlotted;
    if (tables_.PositionsFrom) {
        tables_.PositionsFrom->add(place->from);
    }
    tables_.plotTable.add(*place, qso.status(), qso.call(), qso.country());
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
    std::vector<std::string>& lines = stats_.lists().lstStats;
    lines = {" " + count(n.QsosRead) + " QSOs Read", rule,
             " " + count(n.QsosPlotted) + " QSOs Plotted"};
    if (tables_.PositionsFrom) {
        tables_.PositionsFrom->addLines(lines);
    }
    lines.insert(lines.end(), {"   " + count(n.QsosWorked) + " Worked",
                               "   " + count(n.QsosConfirmed) + " Confirmed",
                               "   " + count(n.QsosHeard) + " Heard", rule,
                               " " + count(n.QsosNotPlotted) + " Not Plotted"});
}

} // namespace tovrel
