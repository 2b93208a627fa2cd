#pragma once

#include <string>

namespace tovrel {

/// The folder that holds the settings, the data files and all that the program writes: that of the
/// executable. When it can't be written to, as with an installed program, a folder of the user's
/// takes its place, and the data files that it lacks are copied there, as is a guide that differs.
/// @param executableFolder, userFolder UTF-8 paths; the user's is made if need be
std::string programFolder(const std::string& executableFolder, const std::string& userFolder);

/// The same folder as it stands, for a program that writes nothing: that of the executable, unless
/// it can't be written to and the user's exists.
std::string existingProgramFolder(const std::string& executableFolder,
                                  const std::string& userFolder);

} // namespace tovrel
