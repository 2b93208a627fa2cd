#pragma once

#include <string>

/// What the sources for Windows share. Paths are UTF-8.
namespace tovrel {

/// A path from the drive or server on, its parts joined by "\". That of a device begins with
/// "\\.\".
std::wstring fullPath(const std::string& path);

/// The same as the calls of Windows take it: a long one in the form that knows no limit of 260
/// characters.
std::wstring widePath(const std::string& path);

/// An error of Windows in its own words, in the user's language.
std::string windowsReason(unsigned long error);

} // namespace tovrel
