#include "run/PictureWish.h"

#include "map/MapImage.h"
#include "platform/ByteText.h"
#include "platform/Files.h"

#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>

namespace tovrel {

namespace {

/// The paper that lies in printers where the user lives.
Paper usualPaper() {
    return QLocale::system().measurementSystem() == QLocale::ImperialUSSystem ? Paper::Letter
                                                                              : Paper::A4;
}

} // namespace

std::string withExtensionOf(PictureFormat format, const std::string& path) {
    const std::optional<PictureFormat> told = formatOfExtension(path);
    if (told == format)
        return path;
    // A point of a name that tells no format is a part of it.
    const std::size_t stem = told ? path.rfind('.') : path.size();
    return path.substr(0, stem).append(extensionOf(format));
}

PictureWish firstWish(const iniFiles& ini, Projection projection, const QDateTime& now) {
    PictureWish wish{.options = readPictureOptions(ini, usualPaper()), .path = {}};
    std::string folder = wish.options.folder;
    for (const QStandardPaths::StandardLocation place :
         {QStandardPaths::PicturesLocation, QStandardPaths::HomeLocation}) {
        if (folder.empty() || !QFileInfo(QString::fromStdString(folder)).isDir())
            folder = byteText(QStandardPaths::writableLocation(place));
    }
    wish.path =
        withExtensionOf(wish.options.format, joinPath(folder, mapImageName(projection, now)));
    return wish;
}

} // namespace tovrel
