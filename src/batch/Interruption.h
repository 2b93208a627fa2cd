#pragma once

namespace tovrel {

/// From now on Ctrl-C (and a polite request to end) ends the program at once, unless a file is
/// being made: then as soon as that one is whole or gone.
void watchForInterruption();

/// Whether somebody has asked for the end and what is being made should be given up.
bool interrupted();

/// While one lives, a file is being made. Its end is where a program that was interrupted
/// meanwhile ends.
class UnfinishedFile {
public:
    UnfinishedFile();
    ~UnfinishedFile();
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
};

} // namespace tovrel
