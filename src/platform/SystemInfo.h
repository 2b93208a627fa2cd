#pragma once

#include "platform/Registry.h"

#include <functional>
#include <optional>
#include <string>

namespace tovrel {

/// How a value of the registry is looked up; GetKeyValue() but for tests.
using KeyValues = std::function<std::optional<std::string>(RegistryRoot, const std::string& key,
                                                           const std::string& value)>;

/// Path of the tool that shows what a computer is made of, as Windows has one.
/// @return empty when the registry tells none
std::string systemInfoTool(const KeyValues& registry = GetKeyValue);

/// Starts the tool.
/// @return false where there is none or it can't be started
bool StartSysInfo();

} // namespace tovrel
