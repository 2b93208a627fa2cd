#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace tovrel {

/// Keeps copies of many short texts without an allocation for each. The views stay good as long as
/// the pool lives.
class TextPool {
public:
    std::string_view add(std::string_view text);

private:
    static constexpr std::size_t chunkSize = 65536;

    std::vector<std::unique_ptr<char[]>> chunks_;
    char* next_ = nullptr;
    std::size_t free_ = 0;
};

} // namespace tovrel
