#pragma once

#include "platform/Colour.h"
#include "platform/Projection.h"
#include "state/iniFiles.h"

#include <array>
#include <functional>
#include <string_view>

namespace tovrel {

/// The seven entries of the colour key, in the order in which they stand.
enum class LegendEntry { Confirmed, Worked, Heard, Home, PlotOutline, Line, Meridian };
inline constexpr std::array<LegendEntry, 7> allLegendEntries = {
    LegendEntry::Confirmed,   LegendEntry::Worked, LegendEntry::Heard,   LegendEntry::Home,
    LegendEntry::PlotOutline, LegendEntry::Line,   LegendEntry::Meridian};

struct LegendNames {
    std::string_view button;  ///< name of its colour button
    std::string_view label;   ///< name of the label beside it
    std::string_view caption; ///< of the label
    std::string_view key;     ///< settings key
};

const LegendNames& namesOf(LegendEntry entry);

/// The working store of the plot colours: what the buttons of the colour key show is what the next
/// drawing uses. Each map's section of the settings remembers a palette of its own.
class Legend {
public:
    Colour colour(LegendEntry entry) const { return colours_[index(entry)]; }
    void set(LegendEntry entry, Colour colour);

    /// Takes the colour of each entry from its key in a map's section. An empty key, or one that is
    /// no number, leaves the colour as it is.
    void load(const iniFiles& ini, Projection projection);

    /// Same for one entry.
    void load(const iniFiles& ini, Projection projection, LegendEntry entry);

    /// Stores one entry's colour as decimal text in a map's section.
    void save(iniFiles& ini, Projection projection, LegendEntry entry) const;

    /// The colours that the window is made with, before it reads the settings.
    void resetToDesign();

    /// Called behind every change of a colour.
    std::function<void()> changed;

private:
    static std::size_t index(LegendEntry entry) { return static_cast<std::size_t>(entry); }

    std::array<Colour, 7> colours_ = design;
    static constexpr std::array<Colour, 7> design = {0x40FF00, 0x0000FF, 0xFF0000, 0x00FFFF,
                                                     0x000000, 0x0000FF, 0x808080};
};

} // namespace tovrel
