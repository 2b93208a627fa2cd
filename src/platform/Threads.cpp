#include "platform/Threads.h"

#include <QThreadPool>
#include <system_error>
#include <thread>
#include <vector>

namespace tovrel {

void limitThreadsToPossible() {
    QThreadPool* const pool = QThreadPool::globalInstance();
    std::vector<std::jthread> threads;
    try {
        // All at once, as the pool will have them; each waits for nothing but its end.
        while (static_cast<int>(threads.size()) < pool->maxThreadCount()) {
            threads.emplace_back([](const std::stop_token& stop) {
                while (!stop.stop_requested()) {
                    std::this_thread::yield();
                }
            });
        }
    } catch (const std::system_error&) {
        pool->setMaxThreadCount(static_cast<int>(threads.size()));
    }
}

bool hasHelperThreads() { return QThreadPool::globalInstance()->maxThreadCount() > 0; }

} // namespace tovrel
