#pragma once

#include "run/RunData.h"

#include <string>
#include <vector>

namespace tovrel {

/// What a plot pass found, as a JSON object in UTF-8 with a line end behind it: counters, message
/// texts, the lists lstStats and lstPfxNotPlotted, and the plotted contacts in log order. Bytes of
/// the log that are no UTF-8 are taken as Windows-1252; numbers are the shortest text that reads
/// back the same.
std::string plotReport(RunData& data, const std::vector<std::string>& messages);

} // namespace tovrel
