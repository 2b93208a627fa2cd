#pragma once

namespace tovrel {

/// Exit statuses of the program.
enum class BatchResult {
    Done = 0,
    NothingPlotted = 1, ///< or placed
    WrongUse = 2,
    FileFailed = 3 ///< a file can't be read or written
};

} // namespace tovrel
