#pragma once

#include "batch/BatchOptions.h"

#include <span>
#include <string>
#include <string_view>

namespace tovrel {

/// What an option is, for the reader of a command line and for the reader of the usage.
struct OptionRule {
    /// Whether the option is one of both commands, or of one alone.
    enum class Of { Both, Plot, Kmz };

    Of of;                  ///< the commands that have it
    std::string_view name;  ///< with its two dashes
    std::string_view value; ///< what stands for its value in the usage; empty for one without
    const char* wanted;     ///< what a good value is; null for an option without one
    /// Puts the value into the options, an empty one for an option without.
    /// @return whether it is good; what was put there counts only then
    bool (*take)(BatchOptions& options, const std::string& value);
    std::string_view help; ///< lines of the usage

    /// @param command Plot or Kmz
    bool isOf(BatchOptions::Command command) const {
        return of == Of::Both || (of == Of::Plot) == (command == BatchOptions::Command::Plot);
    }
};

/// All options, in the order of the usage.
std::span<const OptionRule> optionRules();

} // namespace tovrel
