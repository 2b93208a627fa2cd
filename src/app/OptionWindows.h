#pragma once

#include "app/QtFrame.h"
#include "platform/UserPrompt.h"
#include "run/RunData.h"

#include <array>
#include <functional>
#include <utility>

namespace tovrel {

class frmAbout;
class frmGoogleMapOptions;
class frmInfoInput;
class frmMapOptions;

/// The dialogs beside the main window. Each is a child of it, made when it is first shown: most
/// runs open few of them. One that is open comes to the front as it is.
class OptionWindows {
public:
    /// @param frame of the main window; all have to outlive this object
    /// @param apply called when the user applies the options of a map
    OptionWindows(const QtFrame& frame, RunData& data, UserPrompt& prompt,
                  std::function<void(Projection)> apply)
        : frame_(frame), data_(data), prompt_(prompt), apply_(std::move(apply)) {}

    /// The options of the map in force; each map has a window of its own, which stays with it.
    void showMapOptions();

    /// The options of the export.
    void showGoogleMapOptions();

    /// frmInfoInput beside the main window, its boxes filled from the settings as it opens.
    void showStationInfo();

    /// The program's name, version and folder, in the middle of the main window's screen.
    void showAbout();

    /// Shows frmInfoInput and waits until the user has closed it.
    void askStationInfo();

private:
    frmInfoInput& stationInfo();

    const QtFrame& frame_;
    RunData& data_;
    UserPrompt& prompt_;
    std::function<void(Projection)> apply_;
    std::array<frmMapOptions*, allProjections.size()> mapOptions_{};
    frmGoogleMapOptions* googleOptions_ = nullptr;
    frmInfoInput* infoInput_ = nullptr;
    frmAbout* about_ = nullptr;
};

} // namespace tovrel
