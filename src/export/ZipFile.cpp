#include "export/ZipFile.h"

#include "platform/ByteText.h"
#include "platform/Files.h"
#include "platform/Numbers.h"

#include <QFile>
#include <new>
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

// What zlib puts round the deflate stream.
constexpr std::size_t zlibHeader = 2;
constexpr std::size_t zlibTrailer = 4;

std::uint32_t lengthOf(std::string_view text) { return static_cast<std::uint32_t>(text.size()); }

bool writeBytes(QIODevice& file, std::string_view bytes) {
    const auto size = static_cast<qint64>(bytes.size());
    return file.write(bytes.data(), size) == size;
}

} // namespace

ZipRecord& ZipRecord::put(std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i) {
        bytes_ += static_cast<char>(value & 0xFFU);
        value >>= 8U;
    }
    return *this;
}

bool ZipRecord::writeTo(QIODevice& file) const { return writeBytes(file, bytes_); }

bool ZipFile::SetSource(const std::string& path) {
    FileName_ = NameFromPath(path);
    return ReadAndCompress(path);
}

bool ZipFile::textsFit() const {
    return FileName_.size() <= zipLimit::textLength && Comment_.size() <= zipLimit::textLength;
}

std::string_view ZipFile::NameFromPath(std::string_view path) { return splitPath(path).name; }

bool ZipFile::ReadAndCompress(const std::string& path) {
    QFile file(QString::fromStdString(path));
    if (!fileExists(path)) {
        error_ = "file not found";
        return false;
    }
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        error_ = byteText(file.errorString());
        return false;
    }
    const QDateTime modified = file.fileTime(QFileDevice::FileModificationTime).toLocalTime();
    date_ = DosDate(modified);
    time_ = DosTime(modified);
    uncompressedSize_ = file.size();
    if (uncompressedSize_ > zipLimit::bytes) {
        error_ = "the file is too large for an archive";
        return false;
    }
    const auto length = static_cast<std::size_t>(uncompressedSize_);
    // A map of an empty file fails, and some file systems know none at all.
    if (const uchar* mapped = file.map(0, uncompressedSize_)) {
        return compressBytes(mapped, length);
    }
    const std::unique_ptr<char[]> copy(new (std::nothrow) char[length]);
    if (copy == nullptr) {
        error_ = "the memory is too small for the file";
        return false;
    }
    if (file.read(copy.get(), uncompressedSize_) != uncompressedSize_) {
        error_ = byteText(file.errorString());
        return false;
    }
    return compressBytes(reinterpret_cast<const unsigned char*>(copy.get()), length);
}

bool ZipFile::compressBytes(const unsigned char* source, std::size_t length) {
    const auto bound =
        static_cast<std::size_t>(roundHalfEven(static_cast<double>(length) * 1.01 + 12.0));
    // Not cleared: of this buffer only as much is ever touched as the result is long.
    stream_.reset(static_cast<unsigned char*>(std::malloc(bound + 1)));
    if (stream_ == nullptr) {
        error_ = "the memory is too small for the file";
        return false;
    }
    uLongf streamLength = static_cast<uLongf>(bound);
    const int result = compress(stream_.get(), &streamLength, source, static_cast<uLong>(length));
    if (result != Z_OK || streamLength < zlibHeader + zlibTrailer) {
        error_ = "the file could not be compressed";
        return false;
    }
    const std::size_t dataLength = streamLength - zlibHeader - zlibTrailer;
    if (dataLength > static_cast<std::size_t>(zipLimit::bytes)) {
        error_ = "the file is too large for an archive";
        return false;
    }
    crc_ = static_cast<std::uint32_t>(crc32(0, source, static_cast<uInt>(length)));
    if (void* shrunk = std::realloc(stream_.get(), zlibHeader + dataLength)) {
        (void)stream_.release();
        stream_.reset(static_cast<unsigned char*>(shrunk));
    }
    data_ = {reinterpret_cast<const char*>(stream_.get()) + zlibHeader, dataLength};
    return true;
}

std::uint16_t ZipFile::DosDate(const QDateTime& time) {
    const QDate date = time.date();
    const int year = (date.year() - 1980) & 0x7F;
    return static_cast<std::uint16_t>(date.day() | date.month() << 5 | year << 9);
}

std::uint16_t ZipFile::DosTime(const QDateTime& time) {
    const QTime clock = time.time();
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
        .put32(crc_)
        .put32(lengthOf(data_))
        .put32(static_cast<std::uint32_t>(uncompressedSize_))
        .put16(lengthOf(FileName_))
        .put16(0);
}

bool ZipFile::WriteLocal(QIODevice& file) {
    localOffset_ = file.pos();
    ZipRecord header;
    header.put32(localSignature);
    return putCommonFields(header).putText(FileName_).writeTo(file) && writeBytes(file, data_);
}

bool ZipFile::WriteCentral(QIODevice& file) const {
    ZipRecord header;
    header.put32(centralSignature).put16(version);
    return putCommonFields(header)
        .put16(lengthOf(Comment_))
        .put16(0)
        .put16(internalAttributes)
        .put32(0)
        .put32(static_cast<std::uint32_t>(localOffset_))
        .putText(FileName_)
        .putText(Comment_)
        .writeTo(file);
}

std::int64_t ZipFile::localSize() const {
    return localHeaderSize + static_cast<std::int64_t>(FileName_.size() + data_.size());
}

std::int64_t ZipFile::centralSize() const {
    return centralHeaderSize + static_cast<std::int64_t>(FileName_.size() + Comment_.size());
}

} // namespace tovrel
