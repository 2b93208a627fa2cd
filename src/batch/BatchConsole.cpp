#include "batch/BatchConsole.h"

#include "batch/Interruption.h"

#include <cstdio>
#include <unistd.h>

namespace tovrel {

BatchConsole::BatchConsole(bool quiet, bool& AbortRequested)
    : quiet_(quiet), progressVisible_(!quiet && isatty(STDERR_FILENO) != 0),
      AbortRequested_(AbortRequested) {}

void BatchConsole::tell(const std::string& text, MessageIcon /*icon*/) {
    messages_.push_back(text);
    if (!quiet_) {
        print(text);
    }
}

void BatchConsole::showFailure() {
    if (quiet_ && !messages_.empty()) {
        print(messages_.back());
    }
}

void BatchConsole::print(const std::string& text) {
    endLine();
    for (const char c : text) {
        if (c != '\r') {
            std::fputc(c, stderr);
        }
    }
    if (!text.ends_with('\n')) {
        std::fputc('\n', stderr);
    }
}

void BatchConsole::beginPass(std::string_view /*caption*/, std::string_view status, float maximum) {
    endLine();
    status_ = status;
    maximum_ = maximum;
}

void BatchConsole::showStatus(std::string_view status) {
    endLine();
    status_ = status;
}

void BatchConsole::showProgress(float value) {
    const int percent = static_cast<int>(value / maximum_ * 100.0F);
    if (progressVisible_ && percent != shownPercent_) {
        shownPercent_ = percent;
        std::fprintf(stderr, "\r%s %3d %%", status_.c_str(), percent);
    }
}

void BatchConsole::yield() {
    if (interrupted()) {
        AbortRequested_ = true;
    }
}

void BatchConsole::endLine() {
    if (shownPercent_ >= 0) {
        std::fputc('\n', stderr);
        shownPercent_ = -1;
    }
}

} // namespace tovrel
