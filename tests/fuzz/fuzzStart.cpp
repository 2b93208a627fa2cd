#include "fuzz/Fuzz.h"
#include "platform/TestFolder.h"
#include "run/RunData.h"
#include "state/InitSettings.h"

namespace tovrel {

/// Two starts of the program with a settings file, and what reads its options and colours.
void tryInput(Input input) {
    static const TestFolder folder;
    folder.write("Tovrel.ini", input.rest());
    std::string settled;
    for (const bool again : {false, true}) {
        RunData data(folder.path(), "Tovrel.ini");
        InitSettings(data.ini, data.maps, data.google, data.run);
        data.run.marks.projection = again ? Projection::Miller : Projection::Azimuthal;
        data.maps.load(data.run.marks.projection);
        data.stats.load();
        const std::string before = std::exchange(settled, folder.read("Tovrel.ini"));
        require(!again || settled == before, "a second start changes no settings");
    }
}

} // namespace tovrel
