#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Whole files and paths. Paths are UTF-8 bytes.
namespace tovrel {

/// The two parts of a path, cut behind the last separator ("/" or "\").
struct PathParts {
    std::string_view folder; ///< with its separator; empty when the path has none
    std::string_view name;
};

PathParts splitPath(std::string_view path);

/// Folder and name joined with the platform's separator, never two of them.
std::string joinPath(std::string_view folder, std::string_view name);

/// Whether `path` names a plain file (a folder, a pipe or a device is none).
bool fileExists(const std::string& path);

/// Path of the file in `folder` whose name equals `name`, case not counting; the exact name first.
/// @return empty when there is none
std::string findFile(const std::string& folder, std::string_view name);

/// Path at which a file of the program is read and written: that of findFile(), or of a new file.
std::string filePath(const std::string& folder, std::string_view name);

/// All bytes of a plain file; nothing when it can't be opened or read to its end.
std::optional<std::string> readFile(const std::string& path);

/// Writes a file beside its place and renames it over it when it is whole, so that a full disk, a
/// read-only folder or a kill leaves the old file.
/// @return whether the new file stands
bool writeFile(const std::string& path, std::string_view bytes);

} // namespace tovrel
