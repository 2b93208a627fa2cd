#pragma once

namespace tovrel {

/// Tells Qt's helper threads how many of them this process may make, as far as Qt wants that many.
/// Qt waits for ever for one that could not be made, as on an account with a limit of processes.
void limitThreadsToPossible();

/// Whether Qt may be asked for what it spreads over helper threads.
bool hasHelperThreads();

} // namespace tovrel
