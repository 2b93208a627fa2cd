#include "log/LogFile.h"

#include "platform/Files.h"

#include <algorithm>
#include <utility>

namespace tovrel {

LogFile::LogFile(const std::string& path, Check check)
    : file_(QString::fromStdString(path)), check_(check) {
    if (const FileContent none = readFile(path, 0); !none) {
        error_ = none.isMissing() ? "No such file or directory" : none.reason;
    } else {
        error_ = openForReading(file_);
        size_ = file_.size();
    }
}

std::int64_t LogFile::read(char* to, std::int64_t most) {
    if (!error_.empty()) {
        return -1;
    }
    const std::int64_t wanted = std::min(most, size_ - bytesRead_);
    if (wanted == 0) {
        return endPass();
    }
    const qint64 got = file_.read(to, wanted);
    if (got <= 0) {
        return fail(got < 0 ? reasonOf(file_) : "the file became shorter while it was read");
    }
    bytesRead_ += got;
    if (check_ == Check::SameBytes) {
        sum_.add({to, static_cast<std::size_t>(got)});
    }
    return got;
}

std::int64_t LogFile::endPass() {
    if (check_ == Check::SameBytes) {
        if (firstEnded_ && sum_ != firstSum_) {
            return fail("the file was changed while it was read");
        }
        firstSum_ = sum_;
        firstEnded_ = true;
    }
    return 0;
}

void LogFile::rewind() {
    bytesRead_ = 0;
    sum_ = {};
    if (error_.empty() && !file_.seek(0)) {
        fail(reasonOf(file_));
    }
}

std::int64_t LogFile::fail(std::string reason) {
    error_ = std::move(reason);
    return -1;
}

} // namespace tovrel
