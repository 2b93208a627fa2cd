#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace tovrel {

/// Ends the run, as a crash does, when something that has to hold does not.
void require(bool holds, const char* what);

/// Takes the bytes of an input apart so that a text file serves as a seed: choices from its last
/// bytes, short texts from its first lines.
class Input {
public:
    explicit Input(std::string_view bytes) : rest_(bytes) {}

    /// A number below `count`, from the last byte that is left.
    int choice(int count) {
        const int byte = rest_.empty() ? 0 : static_cast<std::uint8_t>(rest_.back());
        rest_.remove_suffix(rest_.empty() ? 0 : 1);
        return byte % count;
    }

    /// The first line that is left, which ends in LF or with the input.
    std::string_view line() {
        const std::string_view taken = rest_.substr(0, rest_.find('\n'));
        rest_.remove_prefix(std::min(taken.size() + 1, rest_.size()));
        return taken;
    }

    std::string_view rest() const { return rest_; }

private:
    std::string_view rest_;
};

/// What a target does with any bytes. Its files go to a temporary folder, which scripts/fuzz puts
/// into memory.
void tryInput(Input input);

} // namespace tovrel
