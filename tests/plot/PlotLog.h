#pragma once

#include "map/Pixels.h"
#include "platform/TestDoubles.h"
#include "platform/TestFolder.h"
#include "plot/GCMapLoadADIF.h"
#include "run/RunData.h"

namespace tovrel {

/// What a record of a test log says; an empty text leaves its field out.
struct Contact {
    std::string call = "K1ABC";
    std::string latitude{};
    std::string longitude{}; ///< west positive, as the log has it
    std::string band = "20M";
    std::string mode = "CW";
    std::string iota{};
    std::string more{}; ///< further fields, whole
};

inline std::string adif(std::string_view tag, std::string_view value) {
    if (value.empty())
        return {};
    return "<" + std::string(tag) + ":" + std::to_string(value.size()) + ">" + std::string(value) +
           " ";
}

inline std::string record(const Contact& c) {
    return adif("CALL", c.call) + adif("BAND", c.band) + adif("MODE", c.mode) +
           adif("IOTA", c.iota) + adif("APP_LOGGER32_LAT", c.latitude) +
           adif("APP_LOGGER32_LNG", c.longitude) + c.more + "<EOR>\r\n";
}

/// A run in a folder with a dictionary, home and a log; its passes draw on a white surface.
struct PlotRun {
    explicit PlotRun(const std::string& log, Projection projection = Projection::Azimuthal) {
        (void)FieldTable::CreateFieldDictionary(folder.path());
        folder.write("t.ini", "[Globals]\nLatitude=40\nLongitude=-74\n"
                              "[GCMapOptions]\nShowMe=False\nMarker=Large\n"
                              "[MCMapOptions]\nShowMe=False\nMarker=Small\n");
        data.run.LogFileName = folder.write("log.adi", log);
        data.run.marks.projection = projection;
        data.maps.load(projection);
        data.run.HomeLatitude = 40.0F;
        data.run.HomeLongitude = -74.0F;
        data.stats.load();
    }

    PassEnd plot() {
        surface.Cls();
        data.stats.lists().clear();
        GCMapLoadADIF pass(data.ini, data.maps, data.run, data.stats, data.tables, surface,
                           listener, prompt);
        return pass.PlotLog();
    }

    /// "read plotted confirmed worked heard not-plotted".
    std::string counters() const {
        const PassCounters& n = data.tables.counters;
        std::string all;
        for (const std::int32_t count : {n.QsosRead, n.QsosPlotted, n.QsosConfirmed, n.QsosWorked,
                                         n.QsosHeard, n.QsosNotPlotted})
            all += (all.empty() ? "" : " ") + std::to_string(count);
        return all;
    }
    /// What was drawn, and what of it in a colour of the key.
    Ink ink() const { return inkOver(surface, surface.BackColor); }
    Ink ink(MapColour entry) const { return inkOf(surface, colour(entry)); }
    Colour colour(MapColour entry) const { return data.stats.legend().colour(entry); }

    template <typename List>
    static std::string calls(const List& list) {
        std::string all;
        for (const auto& item : list.sorted()) {
            const std::string text = itemText(item);
            all += text.substr(0, text.find("  ")) + " ";
        }
        return all;
    }

    TestFolder folder;
    RunData data{folder.path(), "t.ini"};
    LayeredPicture surface{twipsFromPixels(667), twipsFromPixels(667)};
    ScriptedListener listener;
    ScriptedPrompt prompt;
};

} // namespace tovrel
