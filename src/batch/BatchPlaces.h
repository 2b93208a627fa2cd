#pragma once

#include "batch/BatchOptions.h"
#include "batch/BatchResult.h"

#include <string>

namespace tovrel {

/// What is wrong with the places of a run's files.
struct PlaceFault {
    BatchResult status = BatchResult::Done; ///< Done: nothing is
    std::string line;                       ///< for standard error

    /// Whether anything is wrong.
    explicit operator bool() const { return status != BatchResult::Done; }
};

/// Whether a log is read from standard input ("-") or from a pipe, and so has no place.
bool isPiped(const std::string& log);

/// Gives the KMZ file and its document, where no option names them, their places beside the log:
/// `my.log.adi` has the archive `my.log.kmz`, `noext` has `noext.kmz`.
void completePlaces(BatchOptions& options);

/// Judges all that a run would read and write before it does either: that each output has a place
/// of its own, by whatever spelling or link, and none of them the place of a file that is read;
/// that there is a log; and that each place can take a file.
PlaceFault faultOfPlaces(const BatchOptions& options);

} // namespace tovrel
