#pragma once

#include "platform/ByteSum.h"

#include <QFile>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tovrel {

/// A log that was opened once. Passes read it one after another, each from the start and as far as
/// it reached when it was opened: a logger may go on appending meanwhile, and another file may take
/// its name.
class LogFile {
public:
    /// Whether a later pass has to find what the first one read.
    enum class Check { None, SameBytes };

    /// Opens the log; a failure shows in error().
    /// @param path of a plain file, UTF-8
    explicit LogFile(const std::string& path, Check check = Check::None);

    /// Length of the log in bytes when it was opened; 0 when it could not be.
    std::int64_t size() const { return size_; }

    /// Next bytes of the pass.
    /// @param to room for `most` bytes
    /// @return how many there are, 0 at the end of the pass; -1 on failure, which is final
    std::int64_t read(char* to, std::int64_t most);

    /// Begins the next pass.
    void rewind();

    /// Short reason of a failure, UTF-8; empty when there was none.
    const std::string& error() const { return error_; }

private:
    std::int64_t endPass();
    std::int64_t fail(std::string reason);

    QFile file_;
    Check check_;
    std::int64_t size_ = 0;
    std::int64_t bytesRead_ = 0; ///< in this pass
    ByteSum sum_;                ///< of this pass
    ByteSum firstSum_;           ///< of the first whole one
    bool firstEnded_ = false;
    std::string error_;
};

} // namespace tovrel
