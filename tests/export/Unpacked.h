#pragma once

#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <zlib.h>

namespace tovrel {

/// Number at `offset` of an archive, little-endian.
inline std::uint32_t numberAt(const std::string& bytes, std::size_t offset, int size) {
    std::uint32_t value = 0;
    for (int i = size - 1; i >= 0; --i)
        value = value << 8U |
                static_cast<unsigned char>(bytes.at(offset + static_cast<std::size_t>(i)));
    return value;
}

/// What the first entry of an archive unpacks to.
inline std::string firstEntryOf(const std::string& archive) {
    std::string data = archive.substr(30 + numberAt(archive, 26, 2), numberAt(archive, 18, 4));
    std::string content(numberAt(archive, 22, 4) + 1, '\0');
    z_stream stream{};
    EXPECT_EQ(inflateInit2(&stream, -MAX_WBITS), Z_OK);
    stream.next_in = reinterpret_cast<Bytef*>(data.data());
    stream.avail_in = static_cast<uInt>(data.size());
    stream.next_out = reinterpret_cast<Bytef*>(content.data());
    stream.avail_out = static_cast<uInt>(content.size());
    EXPECT_EQ(inflate(&stream, Z_FINISH), Z_STREAM_END);
    EXPECT_EQ(stream.avail_in, 0U) << "bytes after the stream";
    content.resize(stream.total_out);
    inflateEnd(&stream);
    return content;
}

/// Names of the entries, in the order of their data, each followed by a blank.
inline std::string entryNames(const std::string& archive) {
    std::string names;
    for (std::size_t at = 0; archive.compare(at, 4, "PK\3\4") == 0;) {
        const std::size_t length = numberAt(archive, at + 26, 2);
        names += archive.substr(at + 30, length) + ' ';
        at += 30 + length + numberAt(archive, at + 18, 4);
    }
    return names;
}

} // namespace tovrel
