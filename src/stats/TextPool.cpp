#include "stats/TextPool.h"

#include <algorithm>
#include <cstring>

namespace tovrel {

std::string_view TextPool::add(std::string_view text) {
    if (text.empty())
        return {};
    if (text.size() > free_) {
        const std::size_t size = std::max(chunkSize, text.size());
        chunks_.push_back(std::make_unique_for_overwrite<char[]>(size));
        next_ = chunks_.back().get();
        free_ = size;
    }
    char* const copy = next_;
    std::memcpy(copy, text.data(), text.size());
    next_ += text.size();
    free_ -= text.size();
    return {copy, text.size()};
}

} // namespace tovrel
