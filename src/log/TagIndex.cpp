#include "log/TagIndex.h"

#include <utility>

namespace tovrel {

void TagIndex::add(std::string_view name, int row) {
    if (name.empty() || find(name) != 0) {
        return;
    }
    constexpr std::size_t fewest = 64;
    if ((used_ + 1) * 2 > slots_.size()) {
        const std::vector<Slot> old =
            std::exchange(slots_, std::vector<Slot>(slots_.empty() ? fewest : slots_.size() * 2));
        mask_ = slots_.size() - 1;
        for (const Slot& slot : old) {
            if (slot.row != 0) {
                put(slot);
            }
        }
    }
    put({.key = Key(name), .row = row});
    ++used_;
}

void TagIndex::put(const Slot& slot) {
    std::size_t i = slot.key.hash() & mask_;
    while (slots_[i].row != 0) {
        i = (i + 1) & mask_;
    }
    slots_[i] = slot;
}

} // namespace tovrel
