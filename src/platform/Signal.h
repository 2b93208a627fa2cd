#pragma once

#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace tovrel {

/// Keeps a listener connected for as long as it lives. Which of the two ends first, the signal or
/// the connection, does not matter.
class Connection {
public:
    Connection() = default;
    explicit Connection(std::function<void()> end) : end_(std::move(end)) {}
    Connection(Connection&& other) noexcept : end_(std::exchange(other.end_, nullptr)) {}
    Connection& operator=(Connection&& other) noexcept {
        std::swap(end_, other.end_);
        return *this;
    }
    ~Connection() {
        if (end_)
            end_();
    }

private:
    std::function<void()> end_;
};

/// Tells its listeners of a change, in the order in which they were connected. State that is copied
/// takes no listeners along: they listen to the one that they were connected to.
template <typename... Arguments>
class Signal {
public:
    using Listener = std::function<void(Arguments...)>;

    Signal() = default;
    Signal(const Signal&) {}
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): nothing is taken over, from nobody
    Signal& operator=(const Signal&) { return *this; }

    /// @return what the listener's life hangs on
    [[nodiscard]] Connection connect(Listener listener) {
        const int number = listeners_->empty() ? 0 : listeners_->rbegin()->first + 1;
        listeners_->emplace(number, std::move(listener));
        return Connection([listeners = std::weak_ptr(listeners_), number] {
            if (const auto alive = listeners.lock())
                alive->erase(number);
        });
    }

    /// Listeners may come and go meanwhile: one that has gone is not told.
    void operator()(const Arguments&... arguments) const {
        const std::map<int, Listener> told = *listeners_;
        for (const auto& [number, listener] : told) {
            if (listeners_->count(number) > 0)
                listener(arguments...);
        }
    }

private:
    std::shared_ptr<std::map<int, Listener>> listeners_ =
        std::make_shared<std::map<int, Listener>>();
};

} // namespace tovrel
