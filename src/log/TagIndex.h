#pragma once

#include "platform/ByteText.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace tovrel {

/// Finds the row of a tag by its name, ASCII case not counting. A log asks some twenty times for
/// each of its records, so this is a flat table that compares numbers, and no node-based map.
class TagIndex {
public:
    /// Forgets all names, so that they need not live any longer.
    void clear() { *this = {}; }

    /// Adds a name; of two equal ones the first counts. An empty name is found by nobody.
    /// @param name has to live as long as the index
    /// @param row at least 1
    void add(std::string_view name, int row);

    /// Row of a name, 0 when it was not added.
    int find(std::string_view name) const {
        if (used_ == 0 || name.empty()) {
            return 0;
        }
        const Key key(name);
        for (std::size_t i = key.hash() & mask_;; i = (i + 1) & mask_) {
            const Slot& slot = slots_[i];
            if (slot.row == 0 || slot.key == key || slot.key.equalsIgnoringCase(key)) {
                return slot.row;
            }
        }
    }

private:
    /// A name with its first and last bytes as numbers, which are all there is of most names.
    struct Key {
        Key() = default;
        explicit Key(std::string_view text) : name(text) {
            const char* const end = text.data() + text.size();
            if (text.size() >= sizeof(std::uint64_t)) {
                first = bytesAt<std::uint64_t>(text.data());
                last = bytesAt<std::uint64_t>(end - sizeof(std::uint64_t));
            } else if (text.size() >= sizeof(std::uint32_t)) {
                first = bytesAt<std::uint32_t>(text.data());
                last = bytesAt<std::uint32_t>(end - sizeof(std::uint32_t));
            } else {
                for (const char c : text) {
                    first = first << 8U | static_cast<unsigned char>(c);
                }
            }
        }

        bool operator==(const Key& other) const {
            return first == other.first && last == other.last && name.size() == other.name.size() &&
                   (name.size() <= inNumbers || name == other.name);
        }

        bool equalsIgnoringCase(const Key& other) const {
            return name.size() == other.name.size() && equalIgnoringCase(name, other.name);
        }

        /// Letters count without their case bit. Of a long name only the ends do: a broken log may
        /// ask for a million names as long as itself.
        std::size_t hash() const {
            constexpr std::size_t longest = 64;
            std::uint64_t bytes = (first & caseless) + std::rotl(last & caseless, 29) + name.size();
            if (name.size() > inNumbers) {
                const std::size_t stop = std::min(name.size(), longest) - sizeof bytes;
                for (std::size_t at = sizeof bytes; at < stop; at += sizeof bytes) {
                    bytes = bytes * multiplier + (bytesAt<std::uint64_t>(&name[at]) & caseless);
                }
            }
            return bytes * multiplier >> 32U;
        }

        std::string_view name;
        std::uint64_t first = 0;
        std::uint64_t last = 0;

    private:
        static constexpr std::size_t inNumbers = 16; ///< the longest name that first and last hold
        static constexpr std::uint64_t caseless = 0xDFDFDFDFDFDFDFDF;
        static constexpr std::uint64_t multiplier = 0x9E3779B97F4A7C15; // 2^64 / golden ratio
    };

    struct Slot {
        Key key;
        int row = 0; ///< 0 for a slot that is free
    };

    template <typename Word>
    static Word bytesAt(const char* at) {
        Word word;
        std::memcpy(&word, at, sizeof word);
        return word;
    }

    void put(const Slot& slot);

    std::vector<Slot> slots_; ///< a power of two of them, at least half of them free
    std::size_t mask_ = 0;    ///< their number less 1
    std::size_t used_ = 0;
};

} // namespace tovrel
