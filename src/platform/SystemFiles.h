#pragma once

#include <string>

/// What Files.h is made of where the systems differ. Paths are UTF-8, reasons as Files.h tells
/// them.
namespace tovrel {

/// What stands between a folder and a name.
char pathSeparator();

/// Why what stands at a path is no plain file.
/// @return empty when nothing stands there
std::string whyNoPlainFile(const std::string& path);

/// Brings an open file to the disk, as far as the file system knows of such a thing.
/// @param handle as the C library numbers open files
/// @return empty when that is done
std::string syncFile(int handle);

/// Renames a closed file in one step, over a file that has the name.
/// @return empty when that is done
std::string renameOver(const std::string& from, const std::string& to);

/// Path under which this process can open a file again that it has open, though its name may go.
/// @return empty where the system knows of no such thing
std::string pathOfHandle(int handle);

/// Where a path leads in the end, links followed. The last part need not exist.
std::string resolvedPlace(const std::string& path);

/// Whether two paths are spelt alike, as the system compares names.
bool equalPaths(const std::string& a, const std::string& b);

} // namespace tovrel
