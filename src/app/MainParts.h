#pragma once

#include "app/OptionWindows.h"
#include "app/QtFrame.h"
#include "app/QtListener.h"
#include "app/QtMapWindow.h"
#include "app/QtPrompt.h"
#include "map/WindowShape.h"
#include "run/Commands.h"
#include "run/MapFrame.h"
#include "run/MapPictures.h"
#include "run/RunData.h"

#include <functional>
#include <utility>

namespace tovrel {

/// What the main window works with. Each part is handed those above it.
struct MainParts {
    /// @param main, Timer1, data have to outlive the parts
    /// @param pickColour called when the user clicks a colour of the key
    MainParts(QMainWindow& main, QTimer& Timer1, RunData& data,
              std::function<void(MapColour)> pickColour)
        : prompt(&main), outer(main),
          frame(outer,
                [this, &data](const QRect& before, const QRect& after) {
                    return shapedWindow(before, after, data.map()->shape(), outer.chrome());
                }),
          windows(outer, data, prompt,
                  [this](Projection applied) { commands.applyMapOptions(applied); }),
          window(outer, frame, data.stats, Timer1,
                 {[this] { windows.askStationInfo(); }, std::move(pickColour)}),
          listener(main, [this] { return outer.outer(); }), map(data, window, listener, prompt),
          commands(data, map, {window, window, window, window}, listener, prompt) {}

    QtPrompt prompt;       ///< message boxes over the main window
    QtFrame outer;         ///< the main window with its frame
    MapFrame frame;        ///< gives it the shape of the map
    OptionWindows windows; ///< the dialogs beside it
    QtMapWindow window;    ///< all windows as the map and the commands see them
    QtListener listener;   ///< progress and event loop of the passes
    MapPictures map;       ///< shown by the main window's MapView
    Commands commands;     ///< run by the main window's queue
};

} // namespace tovrel
