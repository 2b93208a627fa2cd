#pragma once

#include "batch/BatchOptions.h"

#include <span>
#include <string>
#include <string_view>

namespace tovrel {

/// What an option is, for the reader of a command line and for the reader of the usage.
struct OptionRule {
    enum class Of { Both, Plot, Kmz };

    Of of; ///< the commands that have it
    std::string_view name;
    std::string_view value; ///< what stands for its value in the usage; empty for one without
    const char* wanted;     ///< what a good value is; null for an option without one
    bool (*take)(BatchOptions& options, const std::string& value);
    std::string_view help; ///< lines of the usage

    bool isOf(BatchOptions::Command command) const {
        return of == Of::Both || (of == Of::Plot) == (command == BatchOptions::Command::Plot);
    }
};

/// All options, in the order of the usage.
std::span<const OptionRule> optionRules();

} // namespace tovrel
