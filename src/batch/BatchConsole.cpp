#include "batch/BatchConsole.h"

#include "batch/BatchOutput.h"
#include "platform/ByteText.h"
#include "platform/Interruption.h"
#include "platform/Streams.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace tovrel {

namespace {

/// A message's lines as one, as programs read standard error.
std::string oneLine(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find("\r\n"), text.size());
        const std::string_view part = trimBlanks(text.substr(0, end));
        if (!line.empty() && !part.empty())
            line += ' ';
        line += part;
        text.remove_prefix(std::min(end + 2, text.size()));
    }
    return line;
}

} // namespace

BatchConsole::BatchConsole(bool quiet, bool& AbortRequested)
    : quiet_(quiet), progressVisible_(!quiet && isTerminal(stderr)),
      AbortRequested_(AbortRequested) {}

void BatchConsole::tell(const std::string& text, MessageIcon /*icon*/) {
    keep(text, oneLine(text));
}

void BatchConsole::tellFailure(const FileFailure& failure) {
    static constexpr std::array<const char*, 3> acts = {"read", "written", "used"};
    keep(messageOf(failure),
         cantText(failure.path, acts[static_cast<std::size_t>(failure.act)], failure.reason));
}

void BatchConsole::keep(const std::string& message, const std::string& line) {
    messages_.push_back(message);
    lastLine_ = line;
    if (!quiet_) {
        print(line);
    }
}

void BatchConsole::hint(const std::string& line) {
    if (!quiet_) {
        print(line);
    }
}

void BatchConsole::showFailure() {
    if (quiet_ && !lastLine_.empty()) {
        print(lastLine_);
    }
}

void BatchConsole::print(const std::string& line) {
    endLine();
    printError(line);
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
        const QString number = QString::number(percent).rightJustified(3);
        writeStream(stderr, "\r" + status_ + " " + byteText(number) + " %");
    }
}

void BatchConsole::yield() {
    if (interrupted()) {
        AbortRequested_ = true;
    }
}

void BatchConsole::endLine() {
    if (shownPercent_ >= 0) {
        writeStream(stderr, "\n");
        shownPercent_ = -1;
    }
}

} // namespace tovrel
