#include "map/BaseMap.h"

#include "map/Coastline.h"
#include "map/ColourFill.h"
#include "map/GreatCircle.h"
#include "map/TopoOverlay.h"
#include "platform/Files.h"

#include <optional>

namespace tovrel {

namespace {

constexpr double centrePixel = 333.0;
constexpr double unitsPerPixel = 66.0;
constexpr Colour white = 0xFFFFFF;
constexpr Colour outerGrey = 0xE0E0E0;

/// A data file of the program; when it can't be read, the user is told and nothing comes back.
std::optional<std::string> dataFile(const std::string& programFolder, std::string_view name,
                                    const char* missing, UserPrompt& prompt) {
    std::optional<std::string> bytes = readFile(findFile(programFolder, name));
    if (!bytes)
        prompt.tell(missing, MessageIcon::Exclamation);
    return bytes;
}

/// Whitens the land round the south pole.
void whitenAntarctica(PictureSurface& surface, Projection projection, GreatCircle& greatCircle) {
    if (projection == Projection::Miller) {
        FillRegion(centrePixel, 660.0, white, surface);
        return;
    }
    int mode = 0;
    greatCircle.ProjectAzimuthal(-80.0F, 40.0F, mode);
    FillRegion(centrePixel + greatCircle.ProjX / unitsPerPixel,
               centrePixel - greatCircle.ProjY / unitsPerPixel, white, surface);
}

} // namespace

std::string_view baseMapCacheName(Projection projection) {
    return projection == Projection::Azimuthal ? "GCBaseMap.map" : "MillerBaseMap.map";
}

bool drawBaseMap(PictureSurface& Picture1, const BaseMapStyle& style,
                 const std::string& programFolder, PassListener& listener, UserPrompt& prompt) {
    const bool azimuthal = style.projection == Projection::Azimuthal;
    Picture1.ForeColor = 0x000000;
    Picture1.BackColor = white;
    Picture1.Cls();
    if (azimuthal) {
        Picture1.Circle(0.0, 0.0, MapRadius * outerCircleFactor);
        Picture1.Circle(0.0, 0.0, MapRadius);
    }
    FillRegion(centrePixel, centrePixel, style.land, Picture1);

    GreatCircle greatCircle(
        homePosition(Projection::Azimuthal, style.HomeLatitude, style.HomeLongitude));
    const std::optional<std::string> coast =
        dataFile(programFolder, "mapper.pnt", "The databse file 'Mapper.pnt' not found.", prompt);
    if (coast) {
        Coastline coastline(Picture1, greatCircle, listener);
        coastline.DrawCoastline(readCoastRecords(*coast), style.projection);
        if (azimuthal)
            coastline.SealAntipodeRing();
    }
    const std::optional<std::string> seeds =
        dataFile(programFolder, "paintma.txt", "The databse file 'paintma.txt' not found.", prompt);
    if (seeds)
        PaintWater(*seeds, style.projection, style.water, greatCircle, Picture1);

    whitenAntarctica(Picture1, style.projection, greatCircle);
    const bool reliefDone =
        style.relief == nullptr ||
        TopoOverlay(Picture1, *style.relief, style.projection, greatCircle, listener, prompt);
    if (azimuthal)
        FillRegion(1.0, 1.0, outerGrey, Picture1);
    return reliefDone;
}

} // namespace tovrel
