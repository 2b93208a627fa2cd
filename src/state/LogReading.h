#pragma once

#include "state/iniFiles.h"

namespace tovrel {

/// How a log is read: as an export of Logger32, whose records tell their place in fields of their
/// own, or as an ADIF log of any logger.
enum class LogFormat { Logger32, Adif };

/// How the next pass reads its log. A pass takes a copy when it begins.
struct LogReading {
    LogFormat format = LogFormat::Logger32;
    bool placeByCountry = true; ///< with Adif: a contact without a better place gets its country's

    bool operator==(const LogReading&) const = default;
};

/// What the settings say; the defaults for what they don't.
LogReading readLogReading(const iniFiles& ini);

/// Stores the format that the user chose.
void writeLogFormat(iniFiles& ini, LogFormat format);

/// Stores whether the user wants places by country.
void writePlaceByCountry(iniFiles& ini, bool wanted);

} // namespace tovrel
