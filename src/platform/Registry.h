#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// The registry of Windows, which other systems have not: there nothing is found. Texts are UTF-8.
namespace tovrel {

/// Branches of the registry, by their numbers in Windows.
enum class RegistryRoot : std::uint32_t {
    CurrentUser = 0x80000001, ///< HKEY_CURRENT_USER
    LocalMachine = 0x80000002 ///< HKEY_LOCAL_MACHINE
};

/// Text of a value. That of a number of 32 bits is "&h" and its hexadecimal digits; a value that is
/// neither text nor such a number has the empty text.
/// @param KeyName the parts of the key's name parted by "\"
/// @return nothing when the key or the value is missing or can't be read, or the value is longer
///         than 1024 bytes
std::optional<std::string> GetKeyValue(RegistryRoot KeyRoot, const std::string& KeyName,
                                       const std::string& SubKeyRef);

} // namespace tovrel
