#pragma once

#include "platform/PassListener.h"
#include "platform/UserPrompt.h"

#include <cstdio>
#include <string>
#include <vector>

namespace tovrel {

/// Messages on standard error, kept for the report. Questions are answered with their first button,
/// since nobody is there to ask.
class BatchPrompt : public UserPrompt {
public:
    explicit BatchPrompt(bool quiet) : quiet_(quiet) {}

    void tell(const std::string& text, MessageIcon icon) override;
    bool ask(const Question& /*question*/) override { return true; }

    const std::vector<std::string>& messages() const { return messages_; }

private:
    bool quiet_;
    std::vector<std::string> messages_;
};

/// Progress of a pass in a line on standard error, when that is a terminal.
class BatchListener : public PassListener {
public:
    explicit BatchListener(bool quiet);

    void beginPass(std::string_view caption, std::string_view status, float maximum) override;
    void showStatus(std::string_view status) override { status_ = status; }
    void showProgress(float value) override;
    void endPass() override;
    void yield() override {}

private:
    bool visible_;
    std::string status_;
    float maximum_ = 100.0F;
    int shownPercent_ = -1;
};

} // namespace tovrel
