#pragma once

#include "log/LogFile.h"
#include "log/QsoFields.h"
#include "log/ReadBlock.h"
#include "log/RecordReader.h"
#include "log/TagIndex.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace tovrel {

/// Reads the records of an ADI file of ADIF 3, whatever logger wrote it: any line ends, any number
/// of records on a line, a header or none, several logs joined.
///
/// A field is `<NAME:LENGTH>` or `<NAME:LENGTH:TYPE>` and as many bytes of value; what else stands
/// between two tags is passed over. Logs exist whose lengths are too long, too short or counted in
/// characters: a length that leads over an `<EOR>`, beyond the file or into the middle of
/// something is not believed, and its value ends at the next `<`. So a fault in a record costs no
/// more than that record.
///
/// The time is linear in the file's length, whatever its bytes. The memory is one block, or the
/// reach of the longest value that is looked at.
class AdifReader {
public:
    /// Number of the fields that the program looks at.
    static constexpr std::size_t wantedCount = 15;

    /// Begins a pass over the log.
    /// @param log has to outlive the reader
    /// @param blockSize bytes read at a time, at least 1
    explicit AdifReader(LogFile& log, std::size_t blockSize = ReadBlock::defaultSize);

    /// Goes on to the next record that has any field at all; what stands behind the last `<EOR>`
    /// is dropped.
    /// @return Record, End or Failed, of which the last two are final; a file of XML fails
    Cut next();

    /// The fields of the last next() that gave Record, without white space at their ends. Of two
    /// fields of a name the last counts. Good until the next call.
    const QsoFields& fields() const { return fields_; }

    /// Bytes of that record, with what stands between it and the one before.
    std::size_t size() const { return static_cast<std::size_t>(at_ - recordStart_); }

    /// Short reason of a failure, UTF-8; empty when there was none.
    const std::string& error() const { return error_; }

private:
    /// A place in the file, in bytes from its start.
    using Place = std::int64_t;

    struct Tag {
        enum class Kind { Nothing, Field, RecordEnd, HeaderEnd };
        Kind kind = Kind::Nothing;
        Place end = 0;           ///< behind its `>`
        int field = 0;           ///< number among the wanted ones, from 1; 0 for another
        std::int64_t length = 0; ///< as declared, at most a little more than the file's
    };

    bool toRecordEnd();
    void forgetFields();
    bool isXml();
    bool isUtf16();
    bool skipHeader();
    bool goBackTo(Place place);
    bool toNextMark();
    Tag readTag();
    Place behindTag(std::string_view inside) const {
        return at_ + static_cast<Place>(inside.size()) + 2;
    }
    bool readPlainField(Tag& tag, std::string_view inside) const;
    void readField(Tag& tag, std::string_view inside) const;
    void takeValue(const Tag& tag);
    void setField(int field, Place start, Place end);
    bool isPlainValue(Place start, Place end) const;
    bool isTrueLength(Place start, Place end);
    bool reaches(Place start, Place end);
    bool holdsRecordEnd(Place start, Place end);
    Place behindWhite(Place from);
    Place findMark(Place from, Place end) const;

    bool has(Place place);
    bool readMore();
    void keepFields();
    const char* pointer(Place place) const { return data_ + (place - dataStart_); }
    std::string_view text(Place from, Place to) const {
        return {pointer(from), static_cast<std::size_t>(to - from)};
    }

    LogFile& log_;
    std::string error_;
    bool started_ = false;
    bool finished_ = false;
    TagIndex names_;

    std::size_t blockSize_;
    std::size_t capacity_ = 0;
    ReadBlock::Pointer block_;
    char* data_ = nullptr; ///< in the block: the byte at dataStart_
    Place dataStart_ = 0;
    Place dataEnd_ = 0;

    Place at_ = 0; ///< of the first byte not yet taken
    Place recordStart_ = 0;
    bool hasFields_ = false;
    QsoFields fields_;
    std::array<std::string, wantedCount>
        kept_; ///< values of the record in hand that left the block

    Place recordEndFrom_ = 0;       ///< no `<EOR>` begins between at_ and here
    std::map<Place, Place> whites_; ///< long runs of white space ahead, from where to where
};

} // namespace tovrel
