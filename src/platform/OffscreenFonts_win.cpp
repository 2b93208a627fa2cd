#include "platform/OffscreenFonts.h"

#include <QDir>
#include <QStandardPaths>

namespace tovrel {

void findFontsOffscreen() {
    // Without a display Qt looks for fonts beside its libraries alone.
    constexpr const char* folderOfFonts = "QT_QPA_FONTDIR";
    if (!qEnvironmentVariableIsSet(folderOfFonts)) {
        const QString fonts = QStandardPaths::writableLocation(QStandardPaths::FontsLocation);
        qputenv(folderOfFonts, QDir::toNativeSeparators(fonts).toLocal8Bit());
    }
}

} // namespace tovrel
