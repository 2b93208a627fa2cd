#pragma once

namespace tovrel {

/// The two maps of the program; exactly one is in force.
enum class Projection { Azimuthal, Miller };

} // namespace tovrel
