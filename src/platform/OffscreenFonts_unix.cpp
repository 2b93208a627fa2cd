#include "platform/OffscreenFonts.h"

namespace tovrel {

void findFontsOffscreen() {} // Qt asks fontconfig, with a display or without

} // namespace tovrel
