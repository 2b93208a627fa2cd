#pragma once

#include "log/LogFile.h"
#include "log/ReadBlock.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tovrel {

/// What RecordReader::next() came upon.
enum class Cut {
    Record, ///< a record line stands in line()
    Blank,  ///< an empty line between two records; it counts as nothing, but a pass yields here
    End,    ///< the end of the log; text after the last `<EOR>` is dropped
    Failed  ///< the log could not be opened or read; its error() says why
};

/// Cuts an ADIF log into record lines: the whole text of a record, its physical lines joined with
/// one blank, up to a line that ends in `<EOR>`. Lines end at CR, LF or CR LF; a UTF-8 byte order
/// mark at the start of the file is passed over. The header ends before the first line that begins
/// with `<` and does not end in `<EOH>`; a log needs none.
///
/// The file is read in blocks, from its start.
class RecordReader {
public:
    /// Begins a pass over the log.
    /// @param log has to outlive the reader
    /// @param blockSize bytes read at a time, at least 1
    explicit RecordReader(LogFile& log, std::size_t blockSize = ReadBlock::defaultSize);

    /// Goes on to the next record or blank line. End and Failed are final.
    Cut next();

    /// The record line of the last next() that gave Record, blanks at its ends included unless it
    /// was joined; valid until the next call.
    std::string_view line() const { return line_; }

    /// Short reason of a failure, UTF-8; empty when there was none.
    const std::string& error() const { return error_; }

private:
    Cut cut();
    Cut finish();
    bool skipHeader();
    bool joinUpToRecordEnd();
    bool readLine();
    bool readBlock();
    std::size_t findLineEnd();
    std::size_t findByte(char byte, std::size_t end) const;

    LogFile& log_;
    std::string error_;

    std::size_t blockSize_;
    ReadBlock::Pointer block_;
    std::size_t blockEnd_ = 0;
    std::size_t position_ = 0;     ///< in the block, of the first byte not yet taken
    std::size_t nextLineFeed_ = 0; ///< in the block, at or after position_; blockEnd_ for none
    bool skipLineFeed_ = false;    ///< the last line ended in a CR that was the block's last byte

    bool headerPending_ = true;
    bool finished_ = false;
    std::string_view line_;
    std::string split_;  ///< a physical line that goes over the end of a block
    std::string joined_; ///< a record that goes over several lines
};

} // namespace tovrel
