#include "batch/BatchReport.h"

#include "batch/BatchOutput.h"
#include "platform/Numbers.h"

#include <cstdio>

namespace tovrel {

namespace {

std::string quoted(std::string_view bytes) {
    std::string json = "\"";
    for (const char c : utf8Text(bytes)) {
        if (c == '"' || c == '\\') {
            json += '\\';
            json += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
            json += escape;
        } else {
            json += c;
        }
    }
    return json + '"';
}

/// A member of an object, with the comma that the next one needs.
std::string member(const char* name, const std::string& value) {
    return quoted(name) + ":" + value + ",";
}

std::string count(std::int64_t value) { return std::to_string(value); }

template <typename Texts>
std::string list(const Texts& texts) {
    std::string json = "[";
    for (const auto& text : texts) {
        json.append(json.size() > 1 ? "," : "").append(quoted(text));
    }
    return json + "]";
}

std::string positionsFrom(const PositionCounts& counts) {
    const std::string members = member("coordinates", count(counts.coordinates)) +
                                member("locator", count(counts.locator)) + quoted("country") + ":" +
                                count(counts.country);
    return member("PositionsFrom", "{" + members + "}") + "\n ";
}

std::string plottedContacts(const PlotTables& tables) {
    std::string json = "[";
    for (const PlotRow& row : tables.plotTable.rows()) {
        json += json.size() > 1 ? ",\n{" : "\n{";
        json += member("call", quoted(row.call));
        json += member("status", quoted(std::string(1, static_cast<char>(row.status))));
        json += member("country", quoted(tables.plotTable.country(row)));
        json += member("latitude", decimalText(row.latitude));
        json += member("longitude", decimalText(row.longitude));
        if (tables.PositionsFrom) {
            json += member("from", quoted(wordOf(row.from)));
        }
        json += member("mapY", row.shown() ? decimalText(row.mapY) : "null");
        json += "\"mapX\":" + (row.shown() ? decimalText(row.mapX) : "null") + "}";
    }
    return json + "]";
}

std::string boolean(bool value) { return value ? "true" : "false"; }

std::string contactCounters(const PassCounters& counters) {
    return member("QsosRead", count(counters.QsosRead)) +
           member("QsosPlotted", count(counters.QsosPlotted)) +
           member("QsosConfirmed", count(counters.QsosConfirmed)) +
           member("QsosWorked", count(counters.QsosWorked)) +
           member("QsosHeard", count(counters.QsosHeard)) +
           member("QsosNotPlotted", count(counters.QsosNotPlotted));
}

} // namespace

std::string plotReport(RunData& data, const std::vector<std::string>& messages) {
    const PlotTables& tables = data.tables;
    const StatusLists& lists = data.stats.lists();
    std::string json = "{" + contactCounters(tables.counters) + "\n ";
    json += member("LogHasCoordinates", boolean(tables.LogHasCoordinates));
    json += member("FilterPassedAny", boolean(tables.FilterPassedAny)) + "\n ";
    if (tables.PositionsFrom) {
        json += positionsFrom(*tables.PositionsFrom);
    }
    json += member("messages", list(messages)) + "\n ";
    json += member("lstStats", list(lists.lstStats)) + "\n ";
    json += member("lstPfxNotPlotted", list(lists.lstPfxNotPlotted.sorted())) + "\n ";
    return json + "\"plotted\":" + plottedContacts(tables) + "}\n";
}

std::string kmzReport(const KmzCounters& counters, RunData& data,
                      const std::vector<std::string>& messages) {
    constexpr std::int64_t passes = 3;
    const auto read = static_cast<std::int32_t>(counters.GoogleRecords / passes);
    std::string json = "{" + contactCounters({.QsosRead = read,
                                              .QsosPlotted = counters.GooglePlaced,
                                              .QsosConfirmed = counters.GoogleConfirmed,
                                              .QsosWorked = counters.GoogleWorked,
                                              .QsosHeard = counters.GoogleHeard,
                                              .QsosNotPlotted = read - counters.GooglePlaced});
    json += "\n ";
    json += member("GoogleRecords", count(counters.GoogleRecords));
    json += member("GooglePlaced", count(counters.GooglePlaced));
    json += member("GoogleConfirmed", count(counters.GoogleConfirmed));
    json += member("GoogleWorked", count(counters.GoogleWorked));
    json += member("GoogleHeard", count(counters.GoogleHeard)) + "\n ";
    json += member("messages", list(messages)) + "\n ";
    return json + "\"lstStats\":" + list(data.stats.lists().lstStats) + "}\n";
}

} // namespace tovrel
