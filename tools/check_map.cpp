// Draws base maps with the program's own code and compares every pixel with the world.

#include "check_map_coast.h"
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

/// What the shares of one kind come to over some maps.
struct Tally {
    double sum = 0.0;
    double worst = 0.0;

    void add(const Share& share) {
        sum += share.percent();
        worst = std::max(worst, share.percent());
    }

    void add(const Tally& other) {
        sum += other.sum;
        worst = std::max(worst, other.worst);
    }
};

/// What no maps may exceed: percentages of wrong sea or land, in the mean and for any home.
struct Limits {
    double mean;
    double worst;
};
constexpr Limits shownLimits = {0.005, 0.8};
constexpr Limits toCircleLimits = {0.02, 1.0};

/// The shares of some maps: what is wrong of their seas and land, and what is black of all.
struct Sums {
    std::size_t maps = 0;
    Tally sea;
    Tally land;
    Tally circleSea;
    Tally circleLand;
    Tally black;
    int flooded = 0;

    void add(const MapResult& result) {
        ++maps;
        sea.add(result.shown.sea);
        land.add(result.shown.land);
        circleSea.add(result.toCircle.sea);
        circleLand.add(result.toCircle.land);
        black.add(result.black);
        flooded += result.floods.empty() ? 0 : 1;
    }

    void add(const Sums& other) {
        maps += other.maps;
        sea.add(other.sea);
        land.add(other.land);
        circleSea.add(other.circleSea);
        circleLand.add(other.circleLand);
        black.add(other.black);
        flooded += other.flooded;
    }

    /// @param meanCounts whether the limits of the mean hold too
    bool print(const char* title, double resolution, bool meanCounts) const {
        const auto count = static_cast<double>(maps);
        std::printf("%s at resolution %g: %zu maps, %d flooded; black mean %.3f %%\n", title,
                    resolution, maps, flooded, black.sum / count);
        const bool shownGood =
            printWrong("as far as points are shown", sea, land, count, meanCounts, shownLimits);
        const bool circleGood = printWrong("up to the inner circle", circleSea, circleLand, count,
                                           meanCounts, toCircleLimits);
        std::fflush(stdout);
        return flooded == 0 && shownGood && circleGood;
    }

private:
    static bool printWrong(const char* where, const Tally& sea, const Tally& land, double maps,
                           bool meanCounts, Limits limits) {
        const bool good = (!meanCounts || std::max(sea.sum, land.sum) / maps <= limits.mean) &&
                          std::max(sea.worst, land.worst) <= limits.worst;
        std::printf("  %s: wrong sea mean %.4f %% worst %.3f %%, wrong land mean %.4f %% worst "
                    "%.3f %%%s\n",
                    where, sea.sum / maps, sea.worst, land.sum / maps, land.worst,
                    good ? "" : ": TOO MUCH");
        return good;
    }
};

class Checker {
public:
    Checker(const TrueWorld& world, std::string dataFolder, double notable, double resolution)
        : world_(world), dataFolder_(std::move(dataFolder)), notable_(notable),
          surface_(baseMapSize, baseMapSize, resolution) {}

    /// Prints the notable maps of a set, then its sums.
    /// @return false when a data file is missing, a map is flooded or too much of one is wrong
    /// @param isSample whether the set counts for the means over all homes
    bool check(const char* title, const std::vector<Home>& homes, Projection projection,
               bool isSample = true) {
        Sums sums;
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
            const MapResult result = compareMap(surface_, style, home.place, world_);
            sums.add(result);
            report(home, result);
        }
        if (isSample)
            sample_.add(sums);
        return sums.print(title, surface_.resolution(), false);
    }

    /// Prints the sums over all homes that are a sample of those there are.
    /// @return false when the means are more than they may be
    bool checkMeans() const {
        return sample_.maps == 0 || sample_.print("all homes", surface_.resolution(), true);
    }

private:
    void report(const Home& home, const MapResult& result) const {
        const double wrong =
            std::max(result.toCircle.sea.percent(), result.toCircle.land.percent());
        if (result.floods.empty() && wrong < notable_)
            return;
        std::printf("  %s %.3f %.3f: wrong sea %.3f %%, wrong land %.3f %%; to the circle %.3f %%, "
                    "%.3f %%\n",
                    home.name.c_str(), home.place.latitude, home.place.longitude,
                    result.shown.sea.percent(), result.shown.land.percent(),
                    result.toCircle.sea.percent(), result.toCircle.land.percent());
        for (const Flood& flood : result.floods) {
            std::printf("    %s, %d pixels, %.0f km2, at %.1f %.1f\n",
                        flood.isLand ? "flooded land" : "unpainted sea", flood.pixels,
                        flood.squareKilometres, flood.place.latitude, flood.place.longitude);
        }
    }

    const TrueWorld& world_;
    std::string dataFolder_;
    double notable_;
    PictureSurface surface_;
    SilentListener listener_;
    MissingFiles prompt_;
    Sums sample_;
};

/// Prints how true the coast is that a resolution is drawn from.
/// @return false when it is less so than a fine one has to be
bool checkCoast(const TrueWorld& world, const std::string& dataFolder, double resolution) {
    constexpr double leastNear = 99.0;
    constexpr double leastIslands = 95.0;
    MissingFiles prompt;
    DataFilesEnd end;
    const CoastData data = readCoastData(dataFolder, resolution, prompt, end);
    const CoastResult coast = compareCoast(data.coastline, world);
    std::printf(
        "coast for resolution %g: %zu records, %.0f km; %.2f %% of its points within 25 km of "
        "the true one; %d of %d true islands over 2,000 km2 (%.1f %%)\n",
        resolution, data.coastline.size(), coast.kilometres, coast.nearPercent, coast.islandsFound,
        coast.islands, 100.0 * coast.islandsFound / coast.islands);
    return resolution <= 1.0 || (coast.nearPercent >= leastNear &&
                                 100.0 * coast.islandsFound >= leastIslands * coast.islands);
}

int run(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Draws base maps with the program's own code and compares every pixel with the world.\n"
        "Ends with 1 if a map is flooded or more is wrong than may be, with 2 if a file is "
        "missing.");
    parser.addHelpOption();
    parser.addPositionalArgument("land", "land-10m.json of the npm package world-atlas");
    parser.addPositionalArgument("data", "folder of the coastlines and their seeds");
    parser.addOptions({{"zones", "Homes of a table of time zones.", "file"},
                       {"every", "Of these, one in so many.", "count", "1"},
                       {"land", "So many random homes on land.", "count", "0"},
                       {"anywhere", "So many random homes anywhere.", "count", "0"},
                       {"seed", "Seed of the random homes.", "number", "1"},
                       {"resolution", "Draw at this resolution.", "number", "1"},
                       {"notable", "Print maps with this share wrong.", "percent", "0.4"}});
    parser.process(arguments);
    const QStringList files = parser.positionalArguments();
    const double resolution = parser.value("resolution").toInt();
    if (files.size() != 2 || resolution < 1.0)
        parser.showHelp(2);
    const std::optional<TrueWorld> world = TrueWorld::read(files[0]);
    if (!world) {
        std::fprintf(stderr, "check_map: no land in %s\n", qUtf8Printable(files[0]));
        return 2;
    }

    const std::string dataFolder = files[1].toStdString();
    bool good = checkCoast(*world, dataFolder, resolution);
    Checker checker(*world, dataFolder, parser.value("notable").toDouble(), resolution);
    good = checker.check("cylindrical map", {{"the world", {}}}, Projection::Miller, false) && good;
    const std::vector<Home> poles = {{"north pole", {90.0, 0.0}}, {"south pole", {-90.0, 0.0}}};
    good = checker.check("poles", poles, Projection::Azimuthal, false) && good;
    if (parser.isSet("zones")) {
        const auto homes = readZoneTable(parser.value("zones"));
        if (!homes) {
            std::fprintf(stderr, "check_map: no homes in %s\n",
                         qUtf8Printable(parser.value("zones")));
            return 2;
        }
        const auto every = static_cast<std::size_t>(std::max(parser.value("every").toInt(), 1));
        std::vector<Home> taken;
        for (std::size_t i = 0; i < homes->size(); i += every)
            taken.push_back((*homes)[i]);
        good = checker.check("time zones", taken, Projection::Azimuthal) && good;
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
    good = checker.checkMeans() && good;
    return good ? 0 : 1;
}

} // namespace

} // namespace tovrel

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    return tovrel::run(QCoreApplication::arguments());
}
