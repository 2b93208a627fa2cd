#pragma once

#include "platform/Projection.h"
#include "state/PictureOptions.h"

#include <QDateTime>
#include <string>

namespace tovrel {

/// A file of the map that the user wants.
struct PictureWish {
    PictureOptions options;
    std::string path; ///< UTF-8, with the extension of the format
};

/// The path with the extension of a format, in the place of that of another.
std::string withExtensionOf(PictureFormat format, const std::string& path);

/// What the dialog starts with: the options of the last time, and a file called after map and time
/// in the folder of the last time, or in that of the user's pictures.
PictureWish firstWish(const iniFiles& ini, Projection projection, const QDateTime& now);

} // namespace tovrel
