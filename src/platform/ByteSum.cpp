#include "platform/ByteSum.h"

#include <zlib.h>

namespace tovrel {

void ByteSum::add(std::string_view bytes) {
    length += static_cast<std::int64_t>(bytes.size());
    crc = static_cast<std::uint32_t>(
        crc32_z(crc, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
}

} // namespace tovrel
