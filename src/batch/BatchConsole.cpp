#include "batch/BatchConsole.h"

#include <cstdio>
#include <unistd.h>

namespace tovrel {

void BatchPrompt::tell(const std::string& text, MessageIcon /*icon*/) {
    messages_.push_back(text);
    if (quiet_) {
        return;
    }
    for (const char c : text) {
        if (c != '\r') {
            std::fputc(c, stderr);
        }
    }
    if (!text.ends_with('\n')) {
        std::fputc('\n', stderr);
    }
}

BatchListener::BatchListener(bool quiet) : visible_(!quiet && isatty(STDERR_FILENO) != 0) {}

void BatchListener::beginPass(std::string_view /*caption*/, std::string_view status,
                              float maximum) {
    status_ = status;
    maximum_ = maximum;
    shownPercent_ = -1;
}

void BatchListener::showProgress(float value) {
    const int percent = static_cast<int>(value / maximum_ * 100.0F);
    if (!visible_ || percent == shownPercent_) {
        return;
    }
    shownPercent_ = percent;
    std::fprintf(stderr, "\r%s %d %%", status_.c_str(), percent);
}

void BatchListener::endPass() {
    if (visible_ && shownPercent_ >= 0) {
        std::fputc('\n', stderr);
    }
}

} // namespace tovrel
