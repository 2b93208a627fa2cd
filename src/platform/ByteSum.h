#pragma once

#include <cstdint>
#include <string_view>

namespace tovrel {

/// Length and checksum of a row of bytes, to tell whether it is the same when it comes by again.
struct ByteSum {
    std::int64_t length = 0; ///< bytes
    std::uint32_t crc = 0;   ///< CRC-32 as ZIP and zlib have it

    /// Takes the next bytes of the row.
    void add(std::string_view bytes);

    bool operator==(const ByteSum&) const = default;
};

} // namespace tovrel
