#include "log/RecordReader.h"

#include "platform/ByteText.h"

#include <algorithm>
#include <cstring>

namespace tovrel {

namespace {

/// Whether `line`, blanks at its end apart, ends in a five-letter mark, case not counting.
bool endsInMark(std::string_view line, std::string_view mark) {
    line = trimBlanksRight(line);
    return line.ends_with('>') && line.size() >= mark.size() &&
           equalIgnoringCase(line.substr(line.size() - mark.size()), mark);
}

bool isHeaderLine(std::string_view line) {
    const std::size_t first = line.find_first_not_of(' ');
    return first == std::string_view::npos || line[first] != '<' || endsInMark(line, "<EOH>");
}

} // namespace

RecordReader::RecordReader(LogFile& log, std::size_t blockSize)
    : log_(log), blockSize_(std::max<std::size_t>(blockSize, 1)) {
    log_.rewind();
    error_ = log_.error();
    if (error_.empty()) {
        block_ = ReadBlock::make(blockSize_);
    }
}

Cut RecordReader::next() {
    line_ = {};
    if (finished_ || !error_.empty()) {
        return finish();
    }
    try {
        return cut();
    } catch (const std::bad_alloc&) {
        error_ = "a record is too long for the memory";
        return finish();
    }
}

Cut RecordReader::cut() {
    if (!(headerPending_ ? skipHeader() : readLine())) {
        return finish();
    }
    headerPending_ = false;
    if (!line_.empty() && !endsInMark(line_, "<EOR>") && !joinUpToRecordEnd()) {
        return finish();
    }
    return line_.empty() ? Cut::Blank : Cut::Record;
}

Cut RecordReader::finish() {
    finished_ = true;
    line_ = {};
    return error_.empty() ? Cut::End : Cut::Failed;
}

/// Leaves the first line of the first record in hand.
bool RecordReader::skipHeader() {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (!readLine()) {
        return false;
    }
    if (line_.starts_with(byteOrderMark)) {
        line_.remove_prefix(byteOrderMark.size());
    }
    while (isHeaderLine(line_)) {
        if (!readLine()) {
            return false;
        }
    }
    return true;
}

/// Joins lines to the one in hand until it ends a record or is empty, which it may become when it
/// was all blanks. Each join trims the whole; since the front is trimmed once and for all, only
/// the end needs a look, at bytes that go or stay for good.
bool RecordReader::joinUpToRecordEnd() {
    joined_.assign(line_.substr(std::min(line_.find_first_not_of(' '), line_.size())));
    do {
        if (!readLine()) {
            return false;
        }
        if (joined_.empty()) {
            joined_.assign(trimBlanks(line_));
        } else {
            joined_.append(1, ' ').append(line_);
            joined_.resize(trimBlanksRight(joined_).size());
        }
    } while (!joined_.empty() && !endsInMark(joined_, "<EOR>"));
    line_ = joined_;
    return true;
}

/// Takes the next physical line in hand, without its line end.
/// @return false at the end of the file and on failure
bool RecordReader::readLine() {
    if (position_ == blockEnd_ && !readBlock()) {
        return false;
    }
    const std::size_t start = position_;
    std::size_t end = findLineEnd();
    if (end < blockEnd_) {
        line_ = std::string_view(block_.get() + start, end - start);
    } else {
        split_.assign(block_.get() + start, end - start);
        while (end == blockEnd_ && readBlock()) {
            end = findLineEnd();
            split_.append(block_.get() + position_, end - position_);
        }
        if (!error_.empty()) {
            return false;
        }
        line_ = split_;
        if (end == blockEnd_) { // the last line needs no line end
            position_ = blockEnd_;
            return true;
        }
    }
    position_ = end + 1;
    if (block_[end] == '\r') {
        skipLineFeed_ = position_ == blockEnd_;
        if (!skipLineFeed_ && block_[position_] == '\n') {
            ++position_;
        }
    }
    return true;
}

/// Position of the first CR or LF at or after position_, blockEnd_ when there is none. A CR is
/// sought only up to the next LF, and that is kept, so that no byte is looked at more than twice.
std::size_t RecordReader::findLineEnd() {
    if (nextLineFeed_ < position_) {
        nextLineFeed_ = findByte('\n', blockEnd_);
    }
    return findByte('\r', nextLineFeed_);
}

/// Position of the first `byte` at or after position_, `end` when there is none before it.
std::size_t RecordReader::findByte(char byte, std::size_t end) const {
    const void* found = std::memchr(block_.get() + position_, byte, end - position_);
    return found == nullptr
               ? end
               : static_cast<std::size_t>(static_cast<const char*>(found) - block_.get());
}

/// Replaces the block by the next one that holds a byte of a line.
/// @return false at the end of the file and on failure
bool RecordReader::readBlock() {
    do {
        const std::int64_t got = log_.read(block_.get(), static_cast<std::int64_t>(blockSize_));
        if (got <= 0) {
            error_ = log_.error();
            return false;
        }
        blockEnd_ = static_cast<std::size_t>(got);
        position_ = skipLineFeed_ && block_[0] == '\n' ? 1 : 0;
        skipLineFeed_ = false;
        nextLineFeed_ = findByte('\n', blockEnd_);
    } while (position_ == blockEnd_);
    return true;
}

} // namespace tovrel
