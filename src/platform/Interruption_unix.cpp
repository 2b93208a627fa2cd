#include "platform/Interruption.h"

#include <csignal>
#include <initializer_list>

namespace tovrel {

namespace {

volatile std::sig_atomic_t unfinishedFiles = 0;
volatile std::sig_atomic_t pendingSignal = 0;

/// Ends the program as the signal would have, so that the caller sees by what it ended.
void endBy(int number) {
    std::signal(number, SIG_DFL);
    std::raise(number);
}

extern "C" void takeSignal(int number) {
    if (unfinishedFiles > 0) {
        pendingSignal = number;
    } else {
        endBy(number);
    }
}

} // namespace

void watchForInterruption() {
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
        if (std::signal(number, takeSignal) == SIG_IGN) {
            std::signal(number, SIG_IGN);
        }
    }
}

bool interrupted() { return pendingSignal != 0; }

UnfinishedFile::UnfinishedFile() { unfinishedFiles = unfinishedFiles + 1; }

UnfinishedFile::~UnfinishedFile() {
    unfinishedFiles = unfinishedFiles - 1;
    if (unfinishedFiles == 0 && interrupted()) {
        endBy(static_cast<int>(pendingSignal));
    }
}

} // namespace tovrel
