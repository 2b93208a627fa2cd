#include "platform/SpooledInput.h"

#include "platform/ByteText.h"
#include "platform/Files.h"

#include <QDir>
#include <QFile>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace tovrel {

SpooledInput::SpooledInput(const std::string& pipe)
    : file_(QDir::temp().filePath(QStringLiteral("tovrel-XXXXXX"))) {
    if (!file_.open()) {
        error_ = byteText(file_.errorString());
        return;
    }
    const std::string handle = "/dev/fd/" + std::to_string(file_.handle());
    const QString name = file_.fileName();
    const bool namelessServes = fileExists(handle) && QFile::remove(name);
    path_ = namelessServes ? handle : byteText(name);
    if (pipe.empty()) {
        copyFrom(stdin);
        return;
    }
    if (std::FILE* const input = std::fopen(pipe.c_str(), "rb")) {
        copyFrom(input);
        std::fclose(input);
    } else {
        error_ = std::generic_category().message(errno);
    }
}

void SpooledInput::copyFrom(std::FILE* input) {
    constexpr std::size_t blockSize = std::size_t{1} << 18U;
    const auto block = std::make_unique_for_overwrite<char[]>(blockSize);
    while (error_.empty() && std::feof(input) == 0) {
        const std::size_t got = std::fread(block.get(), 1, blockSize, input);
        if (std::ferror(input) != 0) {
            error_ = std::generic_category().message(errno);
        } else {
            error_ = writeAll(file_, {block.get(), got});
        }
    }
    if (error_.empty() && !file_.flush()) {
        error_ = byteText(file_.errorString());
    }
}

} // namespace tovrel
