#include "app/OptionWindows.h"

#include "app/frmAbout.h"
#include "app/frmInfoInput.h"
#include "app/frmMapOptions.h"
#include "export/frmGoogleMapOptions.h"
#include "platform/ByteText.h"
#include "run/Commands.h"
#include "run/WindowPlaces.h"

#include <QScreen>
#include <utility>

namespace tovrel {

namespace {

/// The window that a member points at, made at its first use.
template <typename Window, typename... Arguments>
Window& made(Window*& window, Arguments&&... arguments) {
    if (window == nullptr) {
        window = new Window(std::forward<Arguments>(arguments)...);
    }
    return *window;
}

} // namespace

void OptionWindows::showMapOptions() {
    const Projection projection = data_.run.marks.projection;
    frmMapOptions*& window = mapOptions_[static_cast<std::size_t>(projection)];
    const auto apply = [this, projection, &window] {
        apply_(projection);
        window->hide();
    };
    made(window, projection, data_.maps, apply, &frame_.window).bringUp();
}

void OptionWindows::showGoogleMapOptions() {
    made(googleOptions_, data_.ini, data_.google, &frame_.window).bringUp();
}

frmInfoInput& OptionWindows::stationInfo() {
    frmInfoInput& window = made(infoInput_, data_.ini, prompt_, &frame_.window);
    window.loadForm();
    return window;
}

void OptionWindows::showStationInfo() { stationInfo().bringUp(); }

void OptionWindows::askStationInfo() { stationInfo().exec(); }

void OptionWindows::showAbout() {
    frmAbout& about = made(about_, prompt_, displayText(GetVersionString()),
                           displayText(data_.ini.programFolder()), &frame_.window);
    const QScreen& screen = *frame_.window.screen();
    // The frame of a dialog is taken to be as wide as that of the main window.
    about.move(centred(screen.geometry(), screen.availableGeometry(),
                       about.size().grownBy(frame_.margins)));
    about.bringUp();
}

} // namespace tovrel
