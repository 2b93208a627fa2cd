#pragma once

#include "platform/PassListener.h"
#include "platform/UserPrompt.h"

#include <functional>
#include <string>
#include <vector>

namespace tovrel {

/// Keeps what a pass tells of itself, and lets a test act in its yields.
class ScriptedListener : public PassListener {
public:
    void beginPass(std::string_view /*caption*/, std::string_view newStatus,
                   float newMaximum) override {
        ++begun;
        open = true;
        status = newStatus;
        maximum = newMaximum;
        progress = {0.0F};
        yields = 0;
    }
    void showStatus(std::string_view newStatus) override { status = newStatus; }
    void showProgress(float value) override { progress.push_back(value); }
    void endPass() override { open = false; }
    void yield() override {
        ++yields;
        if (onYield)
            onYield(yields);
    }

    /// Called within each yield with its number since the pass began, from 1.
    std::function<void(int)> onYield;

    bool open = false; ///< the progress window
    int begun = 0;
    int yields = 0;
    std::string status;
    float maximum = 0.0F;
    std::vector<float> progress;
};

/// Keeps the messages and answers every question alike.
class ScriptedPrompt : public UserPrompt {
public:
    void tell(const std::string& text, MessageIcon icon) override {
        told.push_back(text);
        icons.push_back(icon);
        if (onTell)
            onTell();
    }
    bool ask(const Question& question) override {
        asked.push_back(question);
        return answer;
    }

    std::function<void()> onTell;
    bool answer = true;
    std::vector<std::string> told;
    std::vector<MessageIcon> icons;
    std::vector<Question> asked;
};

} // namespace tovrel
