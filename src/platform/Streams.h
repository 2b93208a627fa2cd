#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

/// What a program gets from the shell that starts it. Texts are UTF-8.
namespace tovrel {

/// The arguments behind the program's name, as they were typed; on systems where they are bytes,
/// these need not be UTF-8.
std::vector<std::string> programArguments(int argc, char* argv[]);

/// From now on bytes pass through the standard streams as they are.
void setUpStreams();

/// Whether somebody reads what is written to a stream.
bool isTerminal(std::FILE* stream);

/// Opens a pipe or a device.
/// @param mode as std::fopen takes it
/// @return null when it can't be opened; errno tells why
std::FILE* openStream(const std::string& path, const char* mode);

/// Writes bytes and hands them on at once. A terminal shows them as UTF-8.
/// @return reason of a failure; empty when all went out
std::string writeStream(std::FILE* stream, std::string_view bytes);

} // namespace tovrel
