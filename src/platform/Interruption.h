#pragma once

namespace tovrel {

/// From now on Ctrl-C, a polite request to end, a terminal that goes and a pipe that nobody reads
/// any more end the program at once, unless a file is being made: then as soon as that one is whole
/// or gone. What the caller told it not to heed stays so.
void watchForInterruption();

/// Whether somebody has asked for the end and what is being made should be given up.
bool interrupted();

/// While one lives, a file is being made. Its end is where a program that was interrupted
/// meanwhile ends.
class UnfinishedFile {
public:
    /// Several may live at once: the end of the last one counts.
    UnfinishedFile();
    ~UnfinishedFile();
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
};

} // namespace tovrel
