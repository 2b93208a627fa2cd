#pragma once

#include <string>

namespace tovrel {

/// A file beside the executable that an installer writes where the program's folder is the user's
/// own, and so can be written to: with it the folder is left as it was installed.
inline constexpr const char* installedMark = "tovrel.installed";

/// The folder that holds the settings, the data files and all that the program writes: that of the
/// executable. When it can't be written to or has the mark, as with an installed program, a folder
/// of the user's takes its place, and the data files that it lacks are copied there, as is a guide
/// that differs.
/// @param executableFolder, userFolder UTF-8 paths; the user's is made if need be
std::string programFolder(const std::string& executableFolder, const std::string& userFolder);

/// The same folder as it stands, for a program that writes nothing: that of the executable, unless
/// it can't be written to or has the mark, and the user's exists.
std::string existingProgramFolder(const std::string& executableFolder,
                                  const std::string& userFolder);

} // namespace tovrel
