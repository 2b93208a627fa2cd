#include "plot/GCMapLoadADIF.h"

#include "log/QsoFilter.h"
#include "log/RecordReader.h"
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

PassEnd GCMapLoadADIF::PlotLog() {
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

    const PassEnd end = readLog();
    if (end != PassEnd::Done) {
        return end;
    }
    if (beforeMarks) {
        beforeMarks();
    }
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

PassEnd GCMapLoadADIF::readLog() {
    LogFile log(run_.LogFileName);
    RecordReader records(log);
    bool dictionaryLoaded = false;
    std::int64_t LogBytesDone = 0;
    for (;;) {
        switch (records.next()) {
        case Cut::End:
            return PassEnd::Done;
        case Cut::Failed:
            dropResult();
            prompt_.tellFailure({FileFailure::Act::Read, "The ADIF file could not be read.",
                                 run_.shownLog(), records.error()});
            return PassEnd::LogUnreadable;
        case Cut::Blank:
            break;
        case Cut::Record:
            if (!dictionaryLoaded) {
                if (const PassEnd end = loadDictionary(); end != PassEnd::Done) {
                    return end;
                }
                dictionaryLoaded = true;
            }
            takeRecord(records.line());
            // Before the yield: a request made behind this record stops the pass after the next.
            if (run_.AbortRequested) {
                run_.AbortRequested = false;
                return PassEnd::Aborted;
            }
            LogBytesDone += static_cast<std::int64_t>(records.line().size());
            progress_ = toSingle(static_cast<double>(LogBytesDone) /
                                 static_cast<double>(log.size()) * 100.0);
            listener_.showProgress(progress_);
            break;
        }
        listener_.yield();
    }
}

PassEnd GCMapLoadADIF::loadDictionary() {
    // A folder that must stay as it is was given no dictionary at the start.
    switch (fields_.LoadFieldDictionary(ini_.programFolder(), ini_.isMemoryOnly())) {
    case ReadEnd::Missing:
        dropResult();
        prompt_.tell(std::string(FieldTable::missingMessage), MessageIcon::Critical);
        return PassEnd::DictionaryMissing;
    case ReadEnd::Unreadable:
        dropResult();
        prompt_.tellFailure(fields_.failure());
        return PassEnd::DictionaryUnreadable;
    case ReadEnd::Content:
        break;
    }
    fields_.ResolveFieldRows();
    return PassEnd::Done;
}

void GCMapLoadADIF::takeRecord(std::string_view line) {
    ++tables_.counters.QsosRead;
    fields_.ParseRecordLine(line);
    const FieldRows& rows = fields_.rows();
    const double west = coordinateValue(field(rows.RowLongitude));
    if (west != 0.0) {
        tables_.LogHasCoordinates = true;
    }
    if (!passesFilter()) {
        return;
    }
    tables_.FilterPassedAny = true;
    plotRecord(field(rows.RowCall), coordinateValue(field(rows.RowLatitude)), west);
}

bool GCMapLoadADIF::passesFilter() {
    const FieldRows& rows = fields_.rows();
    return tovrel::passesFilter(maps_.inForce().filter, field(rows.RowBand), field(rows.RowMode),
                                field(rows.RowIota));
}

/// @param north, west degrees; 0 for a coordinate that can't place a QSO, since it begins with no
///        number or that number is zero
void GCMapLoadADIF::plotRecord(std::string_view call, double north, double west) {
    const FieldRows& rows = fields_.rows();
    if (north == 0.0 || west == 0.0) {
        ++tables_.counters.QsosNotPlotted;
        stats_.lists().addNotPlotted(call);
        return;
    }
    ++tables_.counters.QsosPlotted;
    const QsoStatus status =
        statusOf(call, field(rows.RowQslRcvd), field(rows.RowEqslRcvd), field(rows.RowLotwRcvd));
    tables_.plotTable.add(toSingle(north), -toSingle(west), status, call, field(rows.RowCountry));
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
