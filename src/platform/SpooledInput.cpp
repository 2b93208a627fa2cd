#include "platform/SpooledInput.h"

#include "platform/ByteText.h"
#include "platform/Files.h"
#include "platform/Streams.h"
#include "platform/SystemFiles.h"

#include <QDir>
#include <QTemporaryFile>
#include <cerrno>

namespace tovrel {

SpooledInput::SpooledInput(const std::string& pipe) {
    openNameless();
    if (path_.empty())
        openNamed();
    if (!error_.empty())
        return;
    if (pipe.empty()) {
        copyFrom(stdin);
        return;
    }
    if (std::FILE* const input = openStream(pipe, "rb")) {
        copyFrom(input);
        std::fclose(input);
    } else {
        error_ = reasonOf(static_cast<std::errc>(errno));
    }
}

/// Leaves no path where it can't be done.
void SpooledInput::openNameless() {
    auto file =
        std::make_unique<QTemporaryFile>(QDir::temp().filePath(QStringLiteral("tovrel-XXXXXX")));
    if (!file->open())
        return;
    const std::string handle = pathOfHandle(file->handle());
    if (fileExists(handle) && QFile::remove(file->fileName())) {
        path_ = handle;
        file_ = std::move(file);
    }
}

void SpooledInput::openNamed() {
    folder_ = std::make_unique<WorkFolder>(byteText(QDir::tempPath()));
    if (!folder_->isValid()) {
        error_ = folder_->error();
        return;
    }
    path_ = folder_->path("log");
    file_ = std::make_unique<QFile>(QString::fromStdString(path_));
    if (!file_->open(QIODevice::WriteOnly))
        error_ = reasonOf(*file_);
}

void SpooledInput::copyFrom(std::FILE* input) {
    constexpr std::size_t blockSize = std::size_t{1} << 18U;
    const auto block = std::make_unique_for_overwrite<char[]>(blockSize);
    while (error_.empty() && std::feof(input) == 0) {
        const std::size_t got = std::fread(block.get(), 1, blockSize, input);
        if (std::ferror(input) != 0) {
            error_ = reasonOf(static_cast<std::errc>(errno));
        } else {
            error_ = writeAll(*file_, {block.get(), got});
        }
    }
    if (error_.empty() && !file_->flush())
        error_ = reasonOf(*file_);
}

} // namespace tovrel
