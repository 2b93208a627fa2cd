#include "export/ZipFile.h"

#include "platform/ByteText.h"

#include <algorithm>
#include <memory>
#include <zlib.h>

namespace tovrel {

namespace {

constexpr std::uint32_t localSignature = 0x04034B50;
constexpr std::uint32_t centralSignature = 0x02014B50;
constexpr std::uint32_t version = 20;
constexpr std::uint32_t flags = 2;
constexpr std::uint32_t methodDeflate = 8;
constexpr std::uint32_t internalAttributes = 0x0020;

constexpr std::int64_t localHeaderSize = 30;
constexpr std::int64_t centralHeaderSize = 46;

// Whole windows of the deflate algorithm (32 KiB): then it finds the same matches, and writes the
// same bytes, as if it had the file in one piece.
constexpr std::int64_t blockSize = std::int64_t{1} << 18U;
constexpr std::size_t pieceSize = std::size_t{1} << 16U;

/// zlib's deflate at its default level, without its header and trailer.
class RawDeflate {
public:
    RawDeflate() {
        constexpr int memoryLevel = 8; // zlib's own default
        ready_ = deflateInit2(&stream_, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, memoryLevel,
                              Z_DEFAULT_STRATEGY) == Z_OK;
    }
    ~RawDeflate() { deflateEnd(&stream_); }
    RawDeflate(const RawDeflate&) = delete;
    RawDeflate& operator=(const RawDeflate&) = delete;

    /// Takes a block and hands what comes of it to `store`, in pieces.
    /// @return false when there is no memory for it
    template <typename Store>
    bool take(std::string_view block, bool last, Store store) {
        stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(block.data()));
        stream_.avail_in = static_cast<uInt>(block.size());
        do {
            stream_.next_out = reinterpret_cast<Bytef*>(piece_.get());
            stream_.avail_out = static_cast<uInt>(pieceSize);
            if (!ready_ || deflate(&stream_, last ? Z_FINISH : Z_NO_FLUSH) == Z_STREAM_ERROR)
                return false;
            store(std::string_view(piece_.get(), pieceSize - stream_.avail_out));
        } while (stream_.avail_out == 0);
        return true;
    }

private:
    z_stream stream_{};
    bool ready_ = false;
    std::unique_ptr<char[]> piece_ = std::make_unique_for_overwrite<char[]>(pieceSize);
};

/// Reads up to `most` bytes, fewer only at the end of the file.
/// @return -1 on failure
std::int64_t readBlock(QFile& file, char* to, std::int64_t most) {
    std::int64_t length = 0;
    while (length < most) {
        const qint64 got = file.read(to + length, most - length);
        if (got < 0)
            return -1;
        if (got == 0)
            break;
        length += got;
    }
    return length;
}

/// A time that the DOS form knows.
QDateTime withinDosYears(const QDateTime& time) {
    static const QDateTime first({1980, 1, 1}, {0, 0, 0});
    static const QDateTime last({2107, 12, 31}, {23, 59, 59});
    if (!time.isValid() || time.date() < first.date())
        return first;
    return time.date() > last.date() ? last : time;
}

std::uint32_t lengthOf(std::string_view text) { return static_cast<std::uint32_t>(text.size()); }

} // namespace

ZipRecord& ZipRecord::put(std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i) {
        bytes_ += static_cast<char>(value & 0xFFU);
        value >>= 8U;
    }
    return *this;
}

bool ZipRecord::writeTo(FileReplacement& file) const { return file.write(bytes_); }

bool ZipFile::SetSource(const std::string& path) {
    FileName_ = NameFromPath(path);
    return ReadAndCompress(path);
}

std::string_view ZipFile::NameFromPath(std::string_view path) { return splitPath(path).name; }

bool ZipFile::fail(std::string_view reason) {
    error_ = reason;
    return false;
}

bool ZipFile::ReadAndCompress(const std::string& path) {
    QFile file(QString::fromStdString(path));
    if (!fileExists(path))
        return fail("file not found");
    if (const std::string reason = openForReading(file); !reason.empty())
        return fail(reason);
    const QDateTime modified = file.fileTime(QFileDevice::FileModificationTime).toLocalTime();
    date_ = DosDate(modified);
    time_ = DosTime(modified);
    if (file.size() > zipLimit::bytes)
        return fail("the file is too large for an archive");
    return deflateFile(file);
}

bool ZipFile::deflateFile(QFile& file) {
    RawDeflate deflater;
    const auto block = std::make_unique_for_overwrite<char[]>(blockSize);
    std::int64_t got = blockSize;
    while (got == blockSize) {
        got = readBlock(file, block.get(), blockSize);
        if (got < 0)
            return fail(reasonOf(file));
        const std::string_view bytes(block.get(), static_cast<std::size_t>(got));
        source_.add(bytes);
        const bool deflated = deflater.take(bytes, got < blockSize, [this](std::string_view piece) {
            if (!piece.empty())
                data_.emplace_back(piece);
            dataSize_ += static_cast<std::int64_t>(piece.size());
        });
        if (!deflated)
            return fail("the memory is too small for the file");
        if (std::max(source_.length, dataSize_) > zipLimit::bytes)
            return fail("the file is too large for an archive");
    }
    return true;
}

std::uint16_t ZipFile::DosDate(const QDateTime& time) {
    const QDate date = withinDosYears(time).date();
    return static_cast<std::uint16_t>(date.day() | date.month() << 5 | (date.year() - 1980) << 9);
}

std::uint16_t ZipFile::DosTime(const QDateTime& time) {
    const QTime clock = withinDosYears(time).time();
    return static_cast<std::uint16_t>(clock.second() / 2 | clock.minute() << 5 |
                                      clock.hour() << 11);
}

/// The fields from the version to the length of the extra field, which both headers have alike.
ZipRecord& ZipFile::putCommonFields(ZipRecord& header) const {
    return header.put16(version)
        .put16(flags)
        .put16(methodDeflate)
        .put16(time_)
        .put16(date_)
        .put32(source_.crc)
        .put32(static_cast<std::uint32_t>(dataSize_))
        .put32(static_cast<std::uint32_t>(source_.length))
        .put16(lengthOf(FileName_))
        .put16(0);
}

bool ZipFile::WriteLocal(FileReplacement& file) {
    localOffset_ = file.size();
    ZipRecord header;
    header.put32(localSignature);
    return putCommonFields(header).putText(FileName_).writeTo(file) &&
           std::all_of(data_.begin(), data_.end(),
                       [&file](const std::string& piece) { return file.write(piece); });
}

bool ZipFile::WriteCentral(FileReplacement& file) const {
    ZipRecord header;
    header.put32(centralSignature).put16(version);
    return putCommonFields(header)
        .put16(0) // no comment
        .put16(0)
        .put16(internalAttributes)
        .put32(0)
        .put32(static_cast<std::uint32_t>(localOffset_))
        .putText(FileName_)
        .writeTo(file);
}

std::int64_t ZipFile::localSize() const {
    return localHeaderSize + static_cast<std::int64_t>(FileName_.size()) + dataSize_;
}

std::int64_t ZipFile::centralSize() const {
    return centralHeaderSize + static_cast<std::int64_t>(FileName_.size());
}

} // namespace tovrel
