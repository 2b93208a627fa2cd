#pragma once

#include "run/RunData.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tovrel {

// Reports are a JSON object in UTF-8 with a line end after it. Bytes of the log that are no UTF-8
// are taken as Windows-1252; numbers are the shortest text that reads back the same.

/// What a plot pass found: counters, message texts, the lists lstStats and lstPfxNotPlotted, and
/// the plotted contacts in log order.
std::string plotReport(RunData& data, const std::vector<std::string>& messages);

/// Counters of an export.
struct KmzCounters {
    std::int64_t GoogleRecords = 0;   ///< records read by its three passes
    std::int32_t GooglePlaced = 0;    ///< placemarks in all three folders
    std::int32_t GoogleConfirmed = 0; ///< placemarks in each folder
    std::int32_t GoogleWorked = 0;    ///< likewise
    std::int32_t GoogleHeard = 0;     ///< likewise
};

/// What an export found: the counters as the summary shows them and under their own names, message
/// texts, and the list lstStats.
std::string kmzReport(const KmzCounters& counters, RunData& data,
                      const std::vector<std::string>& messages);

} // namespace tovrel
