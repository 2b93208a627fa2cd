#include "platform/Registry.h"

namespace tovrel {

std::optional<std::string> GetKeyValue(RegistryRoot /*KeyRoot*/, const std::string& /*KeyName*/,
                                       const std::string& /*SubKeyRef*/) {
    return std::nullopt;
}

} // namespace tovrel
