#include "map/WorldImage.h"

#include <QString>

// A static library's resources are dropped by the linker unless somebody asks for them, and the
// macro that asks works in no namespace, not even one without a name.
static void initResource() { Q_INIT_RESOURCE(world); }

namespace tovrel {

QImage builtInWorld() {
    initResource();
    const QImage image(QStringLiteral(":/tovrel/world.jpg"), "JPG");
    return image.convertToFormat(QImage::Format_RGB32);
}

} // namespace tovrel
