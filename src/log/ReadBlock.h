#pragma once

#include <cstddef>
#include <memory>
#include <new>

namespace tovrel {

/// Memory that begins at a page, since a system copies several times faster into whole pages.
struct ReadBlock {
    static constexpr std::align_val_t pageSize{4096};

    /// Small enough to stay in a processor's cache from the read to the last look.
    static constexpr std::size_t defaultSize = std::size_t{1} << 18U;

    struct Free {
        void operator()(char* block) const { ::operator delete[](block, pageSize); }
    };
    using Pointer = std::unique_ptr<char[], Free>;

    /// @throws std::bad_alloc where there is no such room
    static Pointer make(std::size_t size) {
        return Pointer(static_cast<char*>(::operator new[](size, pageSize)));
    }
};

} // namespace tovrel
