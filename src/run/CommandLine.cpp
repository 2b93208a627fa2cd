#include "run/CommandLine.h"

namespace tovrel {

CommandLine readCommandLine(std::string_view line) {
    constexpr std::string_view option = "--log ";
    CommandLine read;
    if (line.starts_with(option)) {
        read.LogFileName = line.substr(option.size());
    } else if (!line.empty() && line != "--log") {
        // A desktop's menu starts the program with the option, and with a log behind it or none.
        read.IniFileName = line;
    }
    return read;
}

} // namespace tovrel
