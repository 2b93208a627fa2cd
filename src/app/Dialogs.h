#pragma once

#include "platform/Colour.h"

#include <QWidget>
#include <optional>
#include <string>

namespace tovrel {

/// The open dialog. Filters have the form "ADIF Files (*.ADI)|*.ADI" and match in any case.
/// @return UTF-8 path of the chosen file; nothing on cancel
std::optional<std::string> openFileDialog(QWidget& parent, const std::string& title,
                                          const std::string& folder, const std::string& filter);

/// The colour dialog, fully open.
/// @return nothing on cancel
std::optional<Colour> colourDialog(QWidget& parent, Colour start);

/// Opens a file with the program that the system has registered for it.
/// @return false when that is known to have failed
bool openWithItsProgram(const std::string& path);

} // namespace tovrel
