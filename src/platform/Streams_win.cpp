#include "platform/Files.h"
#include "platform/Streams.h"
#include "platform/WindowsPaths.h"

#include <QString>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <windows.h>
// After windows.h, which it needs.
#include <shellapi.h>

namespace tovrel {

namespace {

HANDLE handleOf(std::FILE* stream) {
    return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
}

/// To a console, which takes other bytes than UTF-8 but any letter.
std::string writeConsole(HANDLE console, std::string_view bytes) {
    constexpr std::size_t most = 8000; // letters; a console has little room for one call
    const std::wstring text =
        QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())).toStdWString();
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t size = std::min(most, text.size() - at);
        DWORD written = 0;
        if (WriteConsoleW(console, text.data() + at, static_cast<DWORD>(size), &written, nullptr) ==
            0)
            return windowsReason(GetLastError());
        at += written;
    }
    return {};
}

} // namespace

std::vector<std::string> programArguments(int /*argc*/, char* /*argv*/[]) {
    // Those of main have lost all letters that the code page of the system lacks.
    int count = 0;
    LPWSTR* const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i)
        arguments.push_back(QString::fromWCharArray(wide[i]).toStdString());
    LocalFree(wide);
    return arguments;
}

void setUpStreams() {
    for (std::FILE* const stream : {stdin, stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);
}

bool isTerminal(std::FILE* stream) {
    DWORD mode = 0;
    return GetConsoleMode(handleOf(stream), &mode) != 0;
}

std::FILE* openStream(const std::string& path, const char* mode) {
    return _wfopen(widePath(path).c_str(), std::wstring(mode, mode + std::strlen(mode)).c_str());
}

std::string writeStream(std::FILE* stream, std::string_view bytes) {
    if (isTerminal(stream))
        return writeConsole(handleOf(stream), bytes);
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size() &&
                         std::fflush(stream) == 0;
    return written ? std::string() : reasonOf(static_cast<std::errc>(errno));
}

} // namespace tovrel
