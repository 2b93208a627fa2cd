#pragma once

#include <string>
#include <string_view>

namespace tovrel {

/// What a long pass says of itself, and the point at which it lets the world go on. The passes call
/// it at every record or stroke; how often events really run and windows repaint is the listener's
/// affair. Progress and texts belong to the one progress window, which stays open after a pass that
/// was aborted, until the next one begins.
class PassListener {
public:
    virtual ~PassListener() = default;

    /// Opens the progress window, or takes over the one that stands, with its bar at 0.
    /// @param caption title of the window
    /// @param status line over the bar, bytes as the log has them
    /// @param maximum value of a full bar
    virtual void beginPass(std::string_view caption, std::string_view status, float maximum) = 0;

    /// Replaces the line over the bar.
    virtual void showStatus(std::string_view status) = 0;

    /// Moves the bar, to a value from 0 to the maximum.
    virtual void showProgress(float value) = 0;

    /// Closes the progress window.
    virtual void endPass() = 0;

    /// Lets pending events run. Any command of the user may arrive within this call.
    virtual void yield() = 0;
};

/// For passes that nobody watches.
class SilentListener : public PassListener {
public:
    void beginPass(std::string_view, std::string_view, float) override {}
    void showStatus(std::string_view) override {}
    void showProgress(float) override {}
    void endPass() override {}
    void yield() override {}
};

} // namespace tovrel
