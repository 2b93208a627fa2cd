#pragma once

#include "state/RunState.h"

#include <QAction>
#include <QMenuBar>

namespace tovrel {

/// Makes the whole menu tree in a menu bar, the bar in the program's font. Every item carries its
/// name as object name, and a letter of its caption that no other item of its menu has picks it by
/// keyboard.
void buildMainMenu(QMenuBar& menuBar);

/// The item of that name; the menu's table has it, so it is never missing.
QAction& menuItem(const QMenuBar& menuBar, const char* name);

/// Shows the check marks of the run's state, and which items can be reached.
void showMarks(const QMenuBar& menuBar, const RunState& run);

} // namespace tovrel
