#pragma once

#include "platform/Signal.h"

#include <deque>
#include <functional>
#include <string>
#include <string_view>

namespace tovrel {

/// Keeps the user's commands from harming each other. A command lets events run midway, and with
/// them the next one may arrive: it waits until the running one has ended, with all its steps and
/// message boxes, and then runs once, however often it was asked for.
class CommandQueue {
public:
    /// The steps of a command, message boxes included, from its start to its end.
    using Command = std::function<void()>;

    /// Runs a command now, and after it those that arrived meanwhile; or lets it wait.
    /// @param name what makes two commands the same
    void submit(std::string_view name, Command command);

    /// Whether a command runs, be it that it lets events run at this moment.
    bool busy() const { return busy_; }

    /// Those that wait are dropped.
    void dropWaiting() { waiting_.clear(); }

    /// No command runs any more: those that wait are dropped and new ones are not taken.
    void close();

    /// Called after each command.
    Signal<> commandEnded;

private:
    struct Waiting {
        std::string name;
        Command command;
    };

    bool busy_ = false;
    bool closed_ = false;
    std::deque<Waiting> waiting_;
};

} // namespace tovrel
