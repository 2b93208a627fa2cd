#include "batch/BatchOutput.h"

#include "batch/BatchOptions.h"
#include "batch/Interruption.h"
#include "platform/ByteText.h"
#include "platform/Files.h"

#include <QBuffer>
#include <QFileInfo>
#include <cstdio>

namespace tovrel {

namespace {

bool writeStandardOutput(std::string_view bytes) {
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size();
    return written && std::fflush(stdout) == 0;
}

/// Writes into a device or a pipe, which no new file may replace.
bool writeInto(const std::string& path, std::string_view bytes) {
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) {
        return false;
    }
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return (std::fclose(file) == 0) && written;
}

} // namespace

bool cantWrite(const std::string& path) {
    std::fprintf(stderr, "tovrel-batch: %s can't be written\n", path.c_str());
    return false;
}

bool writeResult(const std::string& path, std::string_view bytes) {
    if (path == "-") {
        return writeStandardOutput(bytes) || cantWrite("standard output");
    }
    const QFileInfo place(QString::fromStdString(path));
    if (place.exists() && !place.isFile()) {
        return writeInto(path, bytes) || cantWrite(path);
    }
    const UnfinishedFile unfinished;
    return writeFile(path, bytes) || cantWrite(path);
}

bool writePicture(const std::string& path, const QImage& picture) {
    // Encoded first: it may take seconds, in which the program can still be interrupted.
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!picture.save(&buffer, imageFormat(path))) {
        return cantWrite(path);
    }
    const QByteArray& bytes = buffer.data();
    return writeResult(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

std::string utf8Text(std::string_view bytes) { return byteText(displayText(bytes)); }

} // namespace tovrel
