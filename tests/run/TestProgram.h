#pragma once

#include "map/BaseMap.h"
#include "map/CoastFile.h"
#include "map/MapColours.h"
#include "map/PictureFile.h"
#include "plot/PlotLog.h"
#include "run/Commands.h"
#include "run/FakeWindow.h"

#include <QDateTime>
#include <map>
#include <memory>
#include <sstream>

namespace tovrel {

constexpr Colour confirmedColour = 0x40FF00;
constexpr Colour homeColour = 0x00FFFF;
constexpr Colour meridianColour = 0x808080;
constexpr Colour reliefColour = 0x224466;

/// A run of the program in a folder of its own, without a window. Its world is one square island,
/// 30 to 50 degrees north and 10 degrees round the meridian, in a sea down to 60 degrees south.
class TestProgram {
public:
    /// @param settings text of the settings file; none is written when empty
    explicit TestProgram(const std::string& settings = {}, bool withWorld = true) {
        if (!settings.empty())
            folder.write("Tovrel.ini", settings);
        if (withWorld) {
            const std::string island =
                coastStroke({{1800, -600}, {1800, 600}, {3000, 600}, {3000, -600}, {1800, -600}});
            folder.write("mapper.pnt", coastAlong(-60, -180, 182) + island);
            folder.write("paintma.txt", "0,-40\r\n");
        }
        restart();
    }

    /// A new run in the same folder, not yet started.
    void restart() {
        commands.reset();
        map.reset();
        data = std::make_unique<RunData>(folder.path(), "Tovrel.ini");
        map = std::make_unique<MapPictures>(*data, window, listener, prompt);
        // The clock stands, since a map takes its name from the second.
        commands = std::make_unique<Commands>(*data, *map, window.faces(), listener, prompt, [] {
            return QDateTime(QDate(2011, 3, 2), QTime(7, 5, 9));
        });
        window.onCloseStats = [this] { data->stats.unload(); };
    }
    void start() {
        commands->Form_Load();
        commands->loadLegendAtStart();
    }

    /// Chooses a log with one contact in Hawaii, confirmed.
    void chooseLog() {
        data->run.LogFileName = folder.write(
            "log.adi", record({"KH6A", "20", "156", "", "", "", adif("QSL_RCVD", "Y")}));
    }

    std::string setting(std::string_view section, std::string_view key) const {
        return data->ini.ReadIniValue(section, key);
    }

    /// Colour of Picture2 at a place in degrees, wherever the map in force has it.
    Colour mapAt(float latitude, float longitude) const {
        const MapPoint at = std::get<MapPoint>(data->map()->position(latitude, longitude));
        return colourAt(map->Picture2, at.x, at.y);
    }
    /// What the map shows: "world", the island and its sea where they belong and in their colours,
    /// "home", "graticule" and "plot", each followed by a blank.
    std::string look(Colour landColour = land, Colour waterColour = water) const {
        bool world = true;
        for (const auto& [north, east] : {std::pair{40.0F, 4.0F}, {33, 7}, {47, -7}})
            world &= mapAt(north, east) == landColour;
        for (const auto& [north, east] : {std::pair{25.0F, 3.0F}, {3, -37}, {55, -7}, {44, 16}})
            world &= mapAt(north, east) == waterColour;
        const auto shows = [this](Colour colour, int above, const char* name) {
            return inkOf(map->Picture2, colour).count > above ? name : "";
        };
        return std::string(world ? "world " : "") + shows(homeColour, 0, "home ") +
               shows(meridianColour, 100, "graticule ") + shows(confirmedColour, 0, "plot ");
    }

    /// Settings that have changed since the last call, "key=value" in the section of the map in
    /// force and "section.key=value" elsewhere, each followed by a blank.
    std::string takeChanges() {
        std::istringstream file(folder.read("Tovrel.ini"));
        std::map<std::string, std::string> now;
        std::string line, section, changes;
        while (std::getline(file, line)) {
            if (line.starts_with('['))
                section = line.substr(1, line.find(']') - 1);
            const std::size_t equals = line.find('=');
            if (equals == std::string::npos)
                continue;
            const std::string key = section + '.' + line.substr(0, equals);
            const std::string value = line.substr(equals + 1, line.find('\r') - equals - 1);
            now.emplace(key, value); // of two equal keys the first counts
            const bool inForce = section == data->mapNames().section;
            if (now[key] == value && (!settings_.count(key) || settings_[key] != value))
                changes += (inForce ? line.substr(0, equals) : key) + '=' + value + ' ';
        }
        settings_ = std::move(now);
        return changes;
    }

    TestFolder folder;
    FakeWindow window;
    ScriptedListener listener;
    ScriptedPrompt prompt;
    std::unique_ptr<RunData> data;
    std::unique_ptr<MapPictures> map;
    std::unique_ptr<Commands> commands;

private:
    std::map<std::string, std::string> settings_;
};

/// A plain world picture for the relief.
inline std::string writeWorld(const TestFolder& folder, int height = 54) {
    const std::string path = folder.path("world.bmp");
    EXPECT_TRUE(SavePicture(plainImage(2 * height, height, reliefColour), path));
    return path;
}

inline const std::string home = "[Globals]\r\nLatitude=50\r\nLongitude=-20\r\n";

/// A started program with a log on its map.
struct PlottedProgram : TestProgram {
    explicit PlottedProgram(const std::string& settings = home, bool plotted = true)
        : TestProgram(settings) {
        start();
        chooseLog();
        if (plotted)
            commands->mnuLoadADIF();
        data->maps.saveInForce(); // with all its keys
        takeChanges();
        window.takeCalls();
        listener.begun = 0;
    }
};

/// Settings with one of the two maps on show.
inline std::string settingsOf(Projection map) {
    return home + "Display=" + std::string(namesOf(map).display) + "\r\n";
}

} // namespace tovrel
