#pragma once

#include "export/ZipFile.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tovrel {

/// A ZIP archive under construction. Entries are compressed into memory as they are added, and
/// written with the directory in one go.
class ZipClass {
public:
    /// Adds a file. Names are not compared: the same name twice makes two entries.
    /// @param FilePath of a plain file, UTF-8
    /// @param FileName to be stored; if empty, the last part of the path
    /// @return false when the file is missing or can't be read, or when the archive can't hold one
    ///         like it; then nothing has changed and error() says why
    bool AddFile(const std::string& FilePath, std::string_view FileName = {});

    /// What the file that was added last was read to hold; there has to be one.
    const ByteSum& lastSource() const { return entries_.back().source(); }

    /// Writes the archive beside its place and renames it over whatever stands there when it is
    /// whole.
    /// @return false when the archive's form can't hold the entries, or when the file can't be
    ///         written; then what stands there is untouched and error() says why
    bool WriteZip(const std::string& FilePath);

    /// Short reason of the last failure, UTF-8.
    const std::string& error() const { return error_; }

private:
    bool fail(std::string_view reason);
    std::int64_t directoryOffset() const;
    std::int64_t directorySize() const;
    bool writeTo(FileReplacement& file);

    std::vector<ZipFile> entries_;
    std::string error_;
};

} // namespace tovrel
