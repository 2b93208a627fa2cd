#include "platform/Streams.h"

#include <cerrno>
#include <system_error>
#include <unistd.h>

namespace tovrel {

std::vector<std::string> programArguments(int argc, char* argv[]) {
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

void setUpStreams() {
    // They know no lines.
}

bool isTerminal(std::FILE* stream) { return isatty(fileno(stream)) != 0; }

std::FILE* openStream(const std::string& path, const char* mode) {
    return std::fopen(path.c_str(), mode);
}

std::string writeStream(std::FILE* stream, std::string_view bytes) {
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size() &&
                         std::fflush(stream) == 0;
    return written ? std::string() : std::generic_category().message(errno);
}

} // namespace tovrel
