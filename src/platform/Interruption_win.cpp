#include "platform/Interruption.h"

#include <mutex>
#include <windows.h>

namespace tovrel {

namespace {

/// What the console's thread and that of the program share.
struct Watch {
    std::mutex mutex; ///< never given back by who ends the process
    int unfinishedFiles = 0;
    bool interrupted = false;
};

Watch& watch() {
    static Watch shared;
    return shared;
}

/// Ends the program as Ctrl+C does where nobody heeds it, so that the caller sees by what it ended.
[[noreturn]] void endProcess() {
    TerminateProcess(GetCurrentProcess(), STATUS_CONTROL_C_EXIT);
    Sleep(INFINITE);
    __builtin_unreachable();
}

/// Called by the system in a thread of its own.
BOOL WINAPI takeEvent(DWORD event) {
    Watch& shared = watch();
    shared.mutex.lock();
    if (shared.unfinishedFiles == 0)
        endProcess();
    shared.interrupted = true;
    shared.mutex.unlock();
    // Where the console has gone or the user leaves, the process ends with the return from here,
    // and in some seconds in any case: time for the file that is being made to be given up.
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT)
        Sleep(INFINITE);
    return TRUE;
}

} // namespace

void watchForInterruption() { SetConsoleCtrlHandler(takeEvent, TRUE); }

bool interrupted() {
    const std::scoped_lock lock(watch().mutex);
    return watch().interrupted;
}

UnfinishedFile::UnfinishedFile() {
    const std::scoped_lock lock(watch().mutex);
    ++watch().unfinishedFiles;
}

UnfinishedFile::~UnfinishedFile() {
    const std::scoped_lock lock(watch().mutex);
    if (--watch().unfinishedFiles == 0 && watch().interrupted)
        endProcess();
}

} // namespace tovrel
