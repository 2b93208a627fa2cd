#pragma once

#include "platform/ByteSum.h"
#include "platform/Files.h"

#include <QDateTime>
#include <QFile>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tovrel {

/// Limits of the archive's form. It has no 64-bit fields, and its readers may take a number as
/// signed.
namespace zipLimit {
inline constexpr std::int64_t bytes = 0x7FFFFFFF; ///< of a size or an offset
inline constexpr std::size_t entries = 0x7FFF;    ///< in an archive
inline constexpr std::size_t textLength = 0x7FFF; ///< of a name, in bytes
} // namespace zipLimit

/// A record of the archive under construction: numbers little-endian, nothing between them.
class ZipRecord {
public:
    /// Append a number of so many bits, or bytes as they are; what does not fit is cut off.
    ZipRecord& put16(std::uint32_t value) { return put(value, 2); }
    ZipRecord& put32(std::uint32_t value) { return put(value, 4); }
    ZipRecord& putText(std::string_view text) {
        bytes_.append(text);
        return *this;
    }

    /// @return whether all of it was written
    bool writeTo(FileReplacement& file) const;

private:
    ZipRecord& put(std::uint32_t value, int size);

    std::string bytes_;
};

/// One entry of an archive: a source file, compressed in memory, with its name and stamps.
/// Method 8 (deflate) always; names are bytes and stored as they are.
class ZipFile {
public:
    /// Takes stamps and name from a plain file and compresses its content, block by block as it is
    /// read. The file is not needed any more afterwards.
    /// @param path UTF-8
    /// @return false when it is missing, can't be read, or is too large; error() says why then, and
    ///         the entry is of no use
    bool SetSource(const std::string& path);

    /// What the source was read to hold.
    const ByteSum& source() const { return source_; }

    /// Replaces the stored name.
    void setFileName(std::string_view FileName) { FileName_ = FileName; }

    /// Whether the name is short enough for the archive.
    bool nameFits() const { return FileName_.size() <= zipLimit::textLength; }

    /// Writes the local header and the data where `file` stands, and notes that place.
    bool WriteLocal(FileReplacement& file);

    /// Writes the entry's header of the central directory.
    bool WriteCentral(FileReplacement& file) const;

    /// Bytes that WriteLocal and WriteCentral write.
    std::int64_t localSize() const;
    std::int64_t centralSize() const;

    /// Short reason of a failure, UTF-8.
    const std::string& error() const { return error_; }

    /// The text after the last separator of a path, "/" or "\"; all of it when there is none.
    static std::string_view NameFromPath(std::string_view path);

    /// Stamps of a local time in DOS form: day, month, year; and seconds halved, minutes, hours.
    /// The form knows the years 1980 to 2107; a time before or after them has the first or last
    /// stamp.
    static std::uint16_t DosDate(const QDateTime& time);
    static std::uint16_t DosTime(const QDateTime& time);

private:
    bool ReadAndCompress(const std::string& path);
    bool deflateFile(QFile& file);
    bool fail(std::string_view reason);
    ZipRecord& putCommonFields(ZipRecord& header) const;

    std::string FileName_;
    std::uint16_t time_ = 0;
    std::uint16_t date_ = 0;
    ByteSum source_;
    std::int64_t localOffset_ = 0;
    std::vector<std::string> data_; ///< the raw deflate stream, in pieces
    std::int64_t dataSize_ = 0;
    std::string error_;
};

} // namespace tovrel
