// Draws base maps with the program's own code and compares every pixel with the world.

#include "check_map_compare.h"
#include "check_map_homes.h"

#include "map/BaseMap.h"
#include "state/MapColours.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <algorithm>
#include <cstdio>

namespace tovrel {

namespace {

/// Remembers that a data file was missing.
class MissingFiles : public UserPrompt {
public:
    void tell(const std::string& text, MessageIcon) override {
        std::fprintf(stderr, "check_map: %s\n", text.c_str());
        any = true;
    }
    bool ask(const Question&) override { return false; }

    bool any = false;
};

/// Sums over the maps of one set of homes.
struct Tally {
    int maps = 0;
    int flooded = 0;
    double sea = 0.0;
    double land = 0.0;
    double black = 0.0;
    double worstSea = 0.0;
    double worstLand = 0.0;

    void add(const MapResult& result) {
        ++maps;
        flooded += result.floods.empty() ? 0 : 1;
        sea += result.wrongSeaPercent();
        land += result.wrongLandPercent();
        black += result.blackPercent();
        worstSea = std::max(worstSea, result.wrongSeaPercent());
        worstLand = std::max(worstLand, result.wrongLandPercent());
    }
};

class Checker {
public:
    Checker(const TrueWorld& world, std::string dataFolder, double notable, double reach)
        : world_(world), dataFolder_(std::move(dataFolder)), notable_(notable), reach_(reach) {}

    /// Prints the notable maps of a set, then its sums.
    /// @return false when a data file is missing or a map is flooded
    bool check(const char* title, const std::vector<Home>& homes, Projection projection) {
        Tally tally;
        for (const Home& home : homes) {
            const std::unique_ptr<const WorldMap> map =
                worldMap(projection, static_cast<float>(home.place.latitude),
                         static_cast<float>(home.place.longitude));
            const BaseMapStyle style{.map = map.get(),
                                     .land = keyOf(MapColour::Land).byDefault,
                                     .water = keyOf(MapColour::Water).byDefault};
            drawBaseMap(surface_, style, dataFolder_, listener_, prompt_);
            if (prompt_.any)
                return false;
            const MapResult result = compareMap(surface_, style, home.place, world_, reach_);
            tally.add(result);
            report(home, result);
        }
        const double maps = std::max(tally.maps, 1);
        std::printf("%s: %d maps, %d flooded; wrong sea mean %.4f %% worst %.3f %%, "
                    "wrong land mean %.4f %% worst %.3f %%; black mean %.2f %%\n",
                    title, tally.maps, tally.flooded, tally.sea / maps, tally.worstSea,
                    tally.land / maps, tally.worstLand, tally.black / maps);
        std::fflush(stdout);
        return tally.flooded == 0;
    }

private:
    void report(const Home& home, const MapResult& result) const {
        const double wrong = std::max(result.wrongSeaPercent(), result.wrongLandPercent());
        if (result.floods.empty() && wrong < notable_)
            return;
        std::printf("  %s %.3f %.3f: wrong sea %.3f %%, wrong land %.3f %%\n", home.name.c_str(),
                    home.place.latitude, home.place.longitude, result.wrongSeaPercent(),
                    result.wrongLandPercent());
        for (const Flood& flood : result.floods) {
            std::printf("    %s, %d pixels, %.0f km2, at %.1f %.1f\n",
                        flood.isLand ? "flooded land" : "unpainted sea", flood.pixels,
                        flood.squareKilometres, flood.place.latitude, flood.place.longitude);
        }
    }

    const TrueWorld& world_;
    std::string dataFolder_;
    double notable_;
    double reach_;
    PictureSurface surface_{baseMapSize, baseMapSize};
    SilentListener listener_;
    MissingFiles prompt_;
};

int run(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Draws base maps with the program's own code and compares every pixel with the world.\n"
        "Ends with 1 if a map is flooded, with 2 if a file is missing.");
    parser.addHelpOption();
    parser.addPositionalArgument("land", "land-10m.json of the npm package world-atlas");
    parser.addPositionalArgument("data", "folder of mapper.pnt and paintma.txt");
    parser.addOptions({{"zones", "Homes of a table of time zones.", "file"},
                       {"land", "So many random homes on land.", "count", "0"},
                       {"anywhere", "So many random homes anywhere.", "count", "0"},
                       {"seed", "Seed of the random homes.", "number", "1"},
                       {"reach", "Count pixels up to so many kilometres from home.", "kilometres",
                        QString::number(shownReach)},
                       {"notable", "Print maps with this share wrong.", "percent", "0.4"}});
    parser.process(arguments);
    const QStringList files = parser.positionalArguments();
    if (files.size() != 2)
        parser.showHelp(2);
    const std::optional<TrueWorld> world = TrueWorld::read(files[0]);
    if (!world) {
        std::fprintf(stderr, "check_map: no land in %s\n", qUtf8Printable(files[0]));
        return 2;
    }

    Checker checker(*world, files[1].toStdString(), parser.value("notable").toDouble(),
                    parser.value("reach").toDouble());
    bool good = checker.check("cylindrical map", {{"the world", {}}}, Projection::Miller);
    const std::vector<Home> poles = {{"north pole", {90.0, 0.0}}, {"south pole", {-90.0, 0.0}}};
    good = checker.check("poles", poles, Projection::Azimuthal) && good;
    if (parser.isSet("zones")) {
        const auto homes = readZoneTable(parser.value("zones"));
        if (!homes) {
            std::fprintf(stderr, "check_map: no homes in %s\n",
                         qUtf8Printable(parser.value("zones")));
            return 2;
        }
        good = checker.check("time zones", *homes, Projection::Azimuthal) && good;
    }
    for (const bool onLand : {true, false}) {
        const char* option = onLand ? "land" : "anywhere";
        const int count = parser.value(option).toInt();
        if (count > 0) {
            const auto homes = randomHomes(count, onLand, parser.value("seed").toUInt(), *world);
            const char* title = onLand ? "random homes on land" : "random homes anywhere";
            good = checker.check(title, homes, Projection::Azimuthal) && good;
        }
    }
    return good ? 0 : 1;
}

} // namespace

} // namespace tovrel

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    return tovrel::run(QCoreApplication::arguments());
}
