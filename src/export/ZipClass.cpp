#include "export/ZipClass.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace tovrel {

namespace {

constexpr std::uint32_t endSignature = 0x06054B50;
constexpr std::int64_t endRecordSize = 22;

} // namespace

bool ZipClass::fail(std::string_view reason) {
    error_ = reason;
    return false;
}

bool ZipClass::AddFile(const std::string& FilePath, std::string_view FileName) {
    if (entries_.size() == zipLimit::entries) {
        return fail("an archive holds no more files");
    }
    ZipFile entry;
    if (!entry.SetSource(FilePath)) {
        return fail(entry.error());
    }
    if (!FileName.empty()) {
        entry.setFileName(FileName);
    }
    if (!entry.nameFits()) {
        return fail("the name is too long for an archive");
    }
    entries_.push_back(std::move(entry));
    return true;
}

std::int64_t ZipClass::directoryOffset() const {
    return std::transform_reduce(entries_.begin(), entries_.end(), std::int64_t{0}, std::plus<>(),
                                 [](const ZipFile& entry) { return entry.localSize(); });
}

std::int64_t ZipClass::directorySize() const {
    return std::transform_reduce(entries_.begin(), entries_.end(), std::int64_t{0}, std::plus<>(),
                                 [](const ZipFile& entry) { return entry.centralSize(); });
}

bool ZipClass::WriteZip(const std::string& FilePath) {
    if (directoryOffset() + directorySize() + endRecordSize > zipLimit::bytes) {
        return fail("the files are too large for an archive");
    }
    FileReplacement file(FilePath);
    (void)writeTo(file); // the commit tells of a failure
    const WriteEnd end = file.commit();
    return end || fail(end.reason);
}

bool ZipClass::writeTo(FileReplacement& file) {
    const bool entriesWritten =
        std::all_of(entries_.begin(), entries_.end(),
                    [&file](ZipFile& entry) { return entry.WriteLocal(file); }) &&
        std::all_of(entries_.begin(), entries_.end(),
                    [&file](const ZipFile& entry) { return entry.WriteCentral(file); });
    const auto count = static_cast<std::uint32_t>(entries_.size());
    ZipRecord end;
    end.put32(endSignature)
        .put16(0)
        .put16(0)
        .put16(count)
        .put16(count)
        .put32(static_cast<std::uint32_t>(directorySize()))
        .put32(static_cast<std::uint32_t>(directoryOffset()))
        .put16(0); // no comment
    return entriesWritten && end.writeTo(file);
}

} // namespace tovrel
