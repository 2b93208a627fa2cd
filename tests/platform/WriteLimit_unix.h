#pragma once

#include <csignal>
#include <sys/resource.h>

namespace tovrel {

/// While it lives, no file can grow past a size: writing more fails, as on a full disk.
class WriteLimit {
public:
    explicit WriteLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~WriteLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    WriteLimit(const WriteLimit&) = delete;
    WriteLimit& operator=(const WriteLimit&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int);
};

} // namespace tovrel
