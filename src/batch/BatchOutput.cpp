#include "batch/BatchOutput.h"

#include "batch/BatchOptions.h"
#include "platform/ByteText.h"
#include "platform/Files.h"
#include "platform/Interruption.h"
#include "platform/Streams.h"
#include "run/MapSheet.h"

#include <QBuffer>
#include <QFile>
#include <cerrno>
#include <cstdio>

namespace tovrel {

namespace {

/// Writes into a device or a pipe, which no new file may replace.
WriteEnd writeIntoDevice(const std::string& path, std::string_view bytes) {
    std::FILE* const file = openStream(path, "wb");
    if (file == nullptr) {
        return {reasonOf(static_cast<std::errc>(errno))};
    }
    WriteEnd end{writeStream(file, bytes)};
    std::fclose(file);
    return end;
}

constexpr const char* epochName = "SOURCE_DATE_EPOCH";

/// The seconds that SOURCE_DATE_EPOCH tells, where it tells some.
std::optional<qint64> epochTold() {
    constexpr qint64 lastSecond = 253402300799; // of the year 9999: a PDF has no room for the next
    bool isNumber = false;
    const qint64 seconds = qgetenv(epochName).toLongLong(&isNumber);
    return isNumber && seconds >= 0 && seconds <= lastSecond ? std::optional(seconds)
                                                             : std::nullopt;
}

} // namespace

void printError(const std::string& line) { writeStream(stderr, "tovrel-batch: " + line + "\n"); }

std::string cantText(const std::string& path, const std::string& done, const std::string& reason) {
    return path + " can't be " + done + ": " + reason;
}

bool cantWrite(const std::string& path, const std::string& reason) {
    printError(cantText(path, "written", reason));
    return false;
}

bool writeResult(const std::string& path, std::string_view bytes) {
    if (path == "-") {
        const WriteEnd end{writeStream(stdout, bytes)};
        return end || cantWrite("standard output", end.reason);
    }
    const UnfinishedFile unfinished;
    const WriteEnd end = isDevice(path) ? writeIntoDevice(path, bytes) : writeFile(path, bytes);
    return end || cantWrite(path, end.reason);
}

bool copyToStandardOutput(const std::string& file) {
    constexpr qint64 blockSize = qint64{1} << 18U;
    QFile source(QString::fromStdString(file));
    bool good = source.open(QIODevice::ReadOnly);
    while (good && !source.atEnd()) {
        const QByteArray block = source.read(blockSize);
        good = !block.isEmpty();
        const WriteEnd end{
            writeStream(stdout, {block.constData(), static_cast<std::size_t>(block.size())})};
        if (!end) {
            return cantWrite("standard output", end.reason);
        }
    }
    return good || cantWrite("standard output", reasonOf(source));
}

bool writeMap(const std::string& path, const QImage& map, Paper paper,
              const std::optional<MapCaption>& caption) {
    // Encoded first: it may take seconds, in which the program can still be interrupted.
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const SheetKind kind{pictureFormat(path).value_or(PictureFormat::Png), paper};
    const std::optional<QDateTime> made = epochTold() ? std::optional(timeOfRun()) : std::nullopt;
    if (!encodeSheet(kind, map, caption, made, buffer)) {
        return cantWrite(path, "the picture could not be encoded");
    }
    const QByteArray& bytes = buffer.data();
    return writeResult(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

std::string faultOfTime() {
    return qgetenv(epochName).isEmpty() || epochTold()
               ? std::string()
               : std::string(epochName) + " tells no seconds of the years 1970 to 9999";
}

QDateTime timeOfRun() {
    const std::optional<qint64> seconds = epochTold();
    return seconds ? QDateTime::fromSecsSinceEpoch(*seconds, Qt::UTC)
                   : QDateTime::currentDateTime();
}

std::string utf8Text(std::string_view bytes) { return byteText(displayText(bytes)); }

} // namespace tovrel
