#include "run/CommandQueue.h"

#include <algorithm>
#include <utility>

namespace tovrel {

void CommandQueue::submit(std::string_view name, Command command) {
    const bool known = std::any_of(waiting_.begin(), waiting_.end(),
                                   [name](const Waiting& other) { return other.name == name; });
    if (closed_ || known) {
        return;
    }
    waiting_.push_back({std::string(name), std::move(command)});
    if (busy_) {
        return;
    }
    busy_ = true;
    while (!waiting_.empty()) {
        const Command next = std::move(waiting_.front().command);
        waiting_.pop_front();
        next();
        commandEnded();
    }
    busy_ = false;
}

void CommandQueue::close() {
    closed_ = true;
    waiting_.clear();
}

} // namespace tovrel
