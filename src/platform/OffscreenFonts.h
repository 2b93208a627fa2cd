#pragma once

namespace tovrel {

/// Lets a program that draws without a display have the fonts of the system. To be called before
/// the application is made. A folder of fonts that the user has set for Qt stays.
void findFontsOffscreen();

} // namespace tovrel
