#pragma once

#include "map/BaseMap.h"
#include "map/CoastFile.h"
#include "map/GreatCircle.h"
#include "map/PictureFile.h"
#include "map/Pixels.h"
#include "platform/TestFolder.h"
#include "run/Commands.h"
#include "run/FakeWindow.h"
#include "run/TestDoubles.h"

#include <memory>

namespace tovrel {

constexpr Colour white = 0xFFFFFF;
constexpr Colour black = 0x000000;
constexpr Colour defaultLandColour = 0xC0FFC0;
constexpr Colour defaultWaterColour = 0xFECDA5;
constexpr Colour confirmedColour = 0x40FF00;
constexpr Colour homeColour = 0x00FFFF;
constexpr Colour meridianColour = 0x808080;

/// A run of the program in a folder of its own, without a window. Its world is one square island,
/// 30 to 50 degrees north and 10 degrees round the meridian, in a sea down to 60 degrees south.
class TestProgram {
public:
    /// @param settings text of the settings file; none is written when empty
    explicit TestProgram(const std::string& settings = {}, bool withWorld = true) {
        if (!settings.empty())
            folder.write("Tovrel.ini", settings);
        if (withWorld) {
            std::vector<CoastPoint> island;
            for (int i = -10; i <= 10; ++i)
                island.push_back({30 * 60, i * 60});
            for (int i = 30; i <= 50; ++i)
                island.push_back({i * 60, 10 * 60});
            for (int i = 10; i >= -10; --i)
                island.push_back({50 * 60, i * 60});
            for (int i = 50; i >= 30; --i)
                island.push_back({i * 60, -10 * 60});
            folder.write("mapper.pnt", coastAlong(-60, -180, 182) + coastStroke(island));
            folder.write("paintma.txt", "0,-40\r\n");
        }
        restart();
    }

    /// A new run in the same folder, not yet started.
    void restart() {
        commands.reset();
        map.reset();
        data = std::make_unique<RunData>(folder.path(), "Tovrel.ini");
        map = std::make_unique<MapRun>(*data, window, listener, prompt);
        commands = std::make_unique<Commands>(*data, *map, window, listener, prompt);
        window.onCloseStats = [this] { data->stats.unload(); };
    }
    void start() { commands->Form_Load(); }

    /// Chooses a log with one contact in Hawaii, confirmed.
    void chooseLog() {
        data->run.LogFileName = folder.write(
            "log.adi",
            "<CALL:4>KH6A<APP_LOGGER32_LAT:2>20<APP_LOGGER32_LNG:3>156<QSL_RCVD:1>Y<EOR>\n");
    }

    std::string setting(std::string_view section, std::string_view key) const {
        return data->ini.ReadIniValue(section, key);
    }

    /// Colour of Picture2 at a place in degrees, wherever the map in force has it.
    Colour mapAt(float latitude, float longitude) const {
        ContactProjector projector(data->run.marks.projection, data->run.HomeLatitude,
                                   data->run.HomeLongitude);
        MapPoint at;
        return projector.project(latitude, longitude, at) ? colourAt(map->Picture2, at.x, at.y) : 0;
    }
    int pixels(Colour colour) const { return inkOf(map->Picture2, colour).count; }
    bool plotShown() const { return pixels(confirmedColour) > 0; }
    bool homeShown() const { return pixels(homeColour) > 0; }
    bool graticuleShown() const { return pixels(meridianColour) > 100; }

    /// Whether the whole island and its sea are where they belong.
    testing::AssertionResult showsItsWorld(Colour land = defaultLandColour,
                                           Colour water = defaultWaterColour) const {
        for (const auto& [latitude, longitude] : {std::pair{40, 0}, {33, 7}, {47, -7}}) {
            if (mapAt(static_cast<float>(latitude), static_cast<float>(longitude)) != land)
                return testing::AssertionFailure() << "no land at " << latitude << "," << longitude;
        }
        for (const auto& [latitude, longitude] : {std::pair{25, 3}, {3, -37}, {55, -7}, {44, 16}}) {
            if (mapAt(static_cast<float>(latitude), static_cast<float>(longitude)) != water)
                return testing::AssertionFailure() << "no sea at " << latitude << "," << longitude;
        }
        return testing::AssertionSuccess();
    }

    TestFolder folder;
    FakeWindow window;
    ScriptedListener listener;
    ScriptedPrompt prompt;
    std::unique_ptr<RunData> data;
    std::unique_ptr<MapRun> map;
    std::unique_ptr<Commands> commands;
};

inline const std::string home = "[Globals]\r\nLatitude=50\r\nLongitude=-20\r\n";

/// A started program with a log on its map.
struct PlottedProgram : TestProgram {
    explicit PlottedProgram(const std::string& settings = home, bool plotted = true)
        : TestProgram(settings) {
        start();
        chooseLog();
        if (plotted)
            commands->mnuLoadADIF();
        window.takeCalls();
    }
};

/// Settings with one of the two maps on show.
inline std::string settingsOf(bool azimuthal) {
    return home + "Display=" + (azimuthal ? "Azimuthal" : "Miller") + "\r\n";
}

} // namespace tovrel
