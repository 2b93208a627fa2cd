#include "map/BaseMap.h"

#include "map/Coastline.h"
#include "map/ColourFill.h"
#include "map/TopoOverlay.h"
#include "platform/Files.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tovrel {

namespace {

constexpr double centrePixel = 333.0;
constexpr double unitsPerPixel = 66.0;
constexpr Colour white = 0xFFFFFF;
constexpr Colour outerGrey = 0xE0E0E0;

/// Reads the data files of a map. Of one that does not serve it tells the user, and keeps that.
class DataFiles {
public:
    DataFiles(const std::string& programFolder, UserPrompt& prompt, BaseMapEnd& end)
        : programFolder_(programFolder), prompt_(prompt), end_(end) {}

    /// @param shownName as messages spell it
    /// @return nothing when the file does not serve
    std::optional<std::string> read(std::string_view name, const std::string& shownName) {
        FileContent file = readFile(filePath(programFolder_, name));
        if (file)
            return std::move(file.bytes);
        if (file.isMissing()) {
            end_.dataMissing = true;
            prompt_.tell("The databse file '" + shownName + "' not found.",
                         MessageIcon::Exclamation);
        } else {
            tellUnreadable(name, shownName, file.reason);
        }
        return std::nullopt;
    }

    void tellUnreadable(std::string_view name, const std::string& shownName,
                        const std::string& reason) {
        end_.dataUnreadable = true;
        prompt_.tellFailure({FileFailure::Act::Read,
                             "The databse file '" + shownName + "' could not be read.",
                             filePath(programFolder_, name), reason});
    }

private:
    const std::string& programFolder_;
    UserPrompt& prompt_;
    BaseMapEnd& end_;
};

/// The coastline; empty when its file does not serve.
std::vector<CoastRecord> readCoastline(DataFiles& files) {
    constexpr std::string_view name = "mapper.pnt";
    const std::string shownName = "Mapper.pnt";
    const std::optional<std::string> bytes = files.read(name, shownName);
    if (!bytes)
        return {};
    std::vector<CoastRecord> records = readCoastRecords(*bytes);
    if (std::none_of(records.begin(), records.end(), startsStroke)) {
        files.tellUnreadable(name, shownName, "The file is damaged: no coastline begins in it");
        return {};
    }
    return records;
}

} // namespace

BaseMapEnd drawBaseMap(PictureSurface& Picture1, const BaseMapStyle& style,
                       const std::string& programFolder, PassListener& listener,
                       UserPrompt& prompt) {
    BaseMapEnd end;
    DataFiles files(programFolder, prompt, end);
    const WorldMap& map = *style.map;
    Picture1.ForeColor = 0x000000;
    Picture1.BackColor = white;
    Picture1.Cls();
    if (map.hasFrame()) {
        Picture1.Circle(0.0, 0.0, MapRadius * outerCircleFactor);
        Picture1.Circle(0.0, 0.0, MapRadius);
    }
    FillRegion(centrePixel, centrePixel, style.land, Picture1);

    Coastline coastline(Picture1, map, listener);
    coastline.DrawCoastline(readCoastline(files));
    coastline.SealAntipodeRing();
    MapPoint last = coastline.lastPoint();
    if (const std::optional<std::string> seeds = files.read("paintma.txt", "paintma.txt"))
        PaintWater(*seeds, map, style.water, last, Picture1);

    last = pointOr(map.antarctica(), last);
    FillRegion(centrePixel + last.x / unitsPerPixel, centrePixel - last.y / unitsPerPixel, white,
               Picture1);
    end.reliefRefused =
        style.relief != nullptr &&
        !TopoOverlay(Picture1, *style.relief, map, style.reliefLand, last, listener, prompt);
    if (map.hasFrame())
        FillRegion(1.0, 1.0, outerGrey, Picture1);
    return end;
}

} // namespace tovrel
