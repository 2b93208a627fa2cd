#pragma once

#include "platform/Files.h"
#include "platform/PassListener.h"
#include "run/MapPictures.h"
#include "run/PictureWish.h"
#include "run/RunData.h"

#include <QDateTime>

namespace tovrel {

/// How an export of a picture ended.
struct PictureEnd {
    bool stopped = false; ///< by the user; nothing was written
    WriteEnd written;     ///< else
};

/// Draws the map on show anew in the size that is wanted, with marks and lines that have the share
/// of the map that they have on the screen, and writes it. Until all of it is there the file that
/// stood in its place stays.
///
/// Events run meanwhile; the run's AbortRequested stops it.
PictureEnd exportPicture(const PictureWish& wish, RunData& data, MapPictures& map,
                         const QDateTime& now, PassListener& listener);

} // namespace tovrel
