#pragma once

#include "platform/Signal.h"
#include "state/MapColours.h"

#include <array>
#include <string_view>

namespace tovrel {

/// The colours of the key, in the order in which they stand there.
inline constexpr std::array<MapColour, 7> legendColours = {
    MapColour::Confirmed,   MapColour::Worked, MapColour::Heard,   MapColour::Home,
    MapColour::PlotOutline, MapColour::Line,   MapColour::Meridian};

/// The controls of a colour of the key.
struct LegendNames {
    std::string_view button;  ///< name of its colour button
    std::string_view label;   ///< name of the label beside it
    std::string_view caption; ///< of the label
};

/// @param entry one of legendColours
const LegendNames& namesOf(MapColour entry);

/// The working store of the plot colours: what the buttons of the colour key show is what the next
/// drawing uses. Each map's section of the settings remembers a palette of its own.
class Legend {
public:
    /// @param entry one of legendColours
    Colour colour(MapColour entry) const { return colours_[index(entry)]; }

    /// Takes a colour for the drawings to come, and tells; it is not stored.
    /// @param entry one of legendColours
    void set(MapColour entry, Colour colour);

    /// Takes the colour of each entry from its key in a map's section. An empty key, or one that is
    /// no number, leaves the colour as it is.
    void load(const iniFiles& ini, Projection projection);

    /// Same for one entry.
    void load(const iniFiles& ini, Projection projection, MapColour entry);

    /// Stores one entry's colour as decimal text in a map's section.
    void save(iniFiles& ini, Projection projection, MapColour entry) const;

    /// The colours that the window is made with, before it reads the settings.
    void resetToDesign();

    /// Called after every change of a colour.
    Signal<> changed;

private:
    static constexpr std::size_t index(MapColour entry) { return static_cast<std::size_t>(entry); }

    static constexpr std::array<Colour, legendColours.size()> design() {
        std::array<Colour, legendColours.size()> colours{};
        for (const MapColour entry : legendColours)
            colours[index(entry)] = keyOf(entry).byDefault;
        return colours;
    }

    std::array<Colour, legendColours.size()> colours_ = design();
};

} // namespace tovrel
