#pragma once

#include "run/MapCaption.h"
#include "state/PictureOptions.h"

#include <QDateTime>
#include <QImage>
#include <optional>
#include <string>
#include <string_view>

namespace tovrel {

/// Results of a run. A file stands whole or not at all; one that can't be written is told of on
/// standard error, and false comes back.

/// @param path of a file, or "-" for standard output
bool writeResult(const std::string& path, std::string_view bytes);

/// A file's bytes to standard output, a block at a time.
bool copyToStandardOutput(const std::string& file);

/// @param path of a file whose extension tells the format, or "-" for standard output
/// @param paper of a page
/// @param caption to be told below the map; nothing for a bare one
bool writeMap(const std::string& path, const QImage& map, Paper paper = Paper::A4,
              const std::optional<MapCaption>& caption = std::nullopt);

/// The time of the run: local time, or, where a build is to give the same bytes each time, that of
/// SOURCE_DATE_EPOCH, https://reproducible-builds.org/specs/source-date-epoch/.
QDateTime timeOfRun();

/// Why SOURCE_DATE_EPOCH can't tell the time of the run; empty where it can, or is not set.
std::string faultOfTime();

/// Tells of a file that can't be written.
/// @param reason short, UTF-8
/// @return false
bool cantWrite(const std::string& path, const std::string& reason);

/// Says on standard error, in one line after the program's name, what is wrong.
void printError(const std::string& line);

/// What is said of a file, in the one style that all such lines have.
/// @param done "read", "written" or "used"
std::string cantText(const std::string& path, const std::string& done, const std::string& reason);

/// Text of the log or a message, as UTF-8: bytes that are none are taken as Windows-1252.
std::string utf8Text(std::string_view bytes);

} // namespace tovrel
