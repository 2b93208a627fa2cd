#include "fuzz/Fuzz.h"
#include "log/RecordReader.h"
#include "platform/TestDoubles.h"
#include "platform/TestFolder.h"
#include "plot/GCMapLoadADIF.h"
#include "run/RunData.h"

namespace tovrel {

namespace {

/// The log's records, and an empty text for each blank line between them.
std::vector<std::string> recordsOf(LogFile& log, std::size_t blockSize) {
    std::vector<std::string> records;
    RecordReader reader(log, blockSize);
    for (Cut cut = reader.next(); cut != Cut::End; cut = reader.next()) {
        require(cut == (reader.line().empty() ? Cut::Blank : Cut::Record), "it can be read");
        records.emplace_back(reader.line());
    }
    return records;
}

template <typename List>
void checkList(const List& list, std::int32_t count) {
    require(static_cast<std::int32_t>(list.size()) == count, "a list holds what was counted");
    std::string before;
    for (const auto& item : list.sorted())
        require(std::exchange(before, itemText(item)) <= before, "a list is in order");
}

void checkPlot(const PlotTables& tables, const StatusLists& lists) {
    const PassCounters& n = tables.counters;
    require(n.QsosPlotted == n.QsosConfirmed + n.QsosWorked + n.QsosHeard, "the classes add up");
    checkList(lists.lstConfirmed, n.QsosConfirmed);
    checkList(lists.lstWorked, n.QsosWorked);
    checkList(lists.lstHeard, n.QsosHeard);
    checkList(lists.lstPfxNotPlotted, n.QsosNotPlotted);
    for (const PlotRow& row : tables.plotTable.rows()) {
        const std::string tip = tipText(tables, {true, true, true}, row.mapY, row.mapX, 100);
        require(!tip.empty() || !row.shown(), "a contact that is shown has a tip");
    }
}

} // namespace

void tryInput(Input input) {
    static const TestFolder folder;
    RunData data(folder.path(), "Tovrel.ini", PrivateProfile::Storage::Memory);
    data.run.LogFileName = folder.write("log.adi", input.rest());
    LogFile log(data.run.LogFileName, LogFile::Check::SameBytes);
    const auto records = recordsOf(log, ReadBlock::defaultSize);
    const auto blockSize = static_cast<std::size_t>(input.choice(64) + 1);
    require(records == recordsOf(log, blockSize), "all blocks give the same");

    data.run.marks.projection = input.choice(2) == 0 ? Projection::Azimuthal : Projection::Miller;
    data.maps.inForce().filter.band.set(input.choice(13), true);
    data.run.HomeLatitude = static_cast<float>(input.choice(181) - 90);
    LayeredPicture surface(600.0F, 450.0F);
    SilentListener listener;
    ScriptedPrompt prompt;
    GCMapLoadADIF pass(data.ini, data.maps, data.run, data.stats, data.tables, surface, listener,
                       prompt);
    require(pass.PlotLog() == PassEnd::Done, "any log can be plotted");
    const auto blanks = std::count(records.begin(), records.end(), std::string());
    require(data.tables.counters.QsosRead == std::ssize(records) - blanks, "all records count");
    checkPlot(data.tables, data.stats.lists());
}

} // namespace tovrel
