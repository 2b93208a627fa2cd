// Drawing: each beside a loop that does nothing but the work that can't be spared.

#include "map/AzimuthalMap.h"
#include "map/BaseMap.h"
#include "map/BaseMapCache.h"
#include "map/Overlays.h"
#include "map/PictureSurface.h"
#include "map/TopoOverlay.h"
#include "map/WorldImage.h"
#include "platform/Numbers.h"
#include "platform/Twips.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <cmath>
#include <random>
#include <vector>

namespace tovrel {
namespace {

constexpr int contacts = 1'000'000;
constexpr int mapPixels = 533;

struct Place {
    float latitude;
    float longitude;
};

const std::vector<Place>& places() {
    static const std::vector<Place> all = [] {
        std::mt19937 random{1};
        std::uniform_real_distribution<float> latitude(-85.0F, 85.0F);
        std::uniform_real_distribution<float> longitude(-180.0F, 180.0F);
        std::vector<Place> made;
        for (int i = 0; i < contacts; ++i)
            made.push_back({latitude(random), longitude(random)});
        return made;
    }();
    return all;
}

const AzimuthalMap map(41.7F, -72.7F);
const HomePosition home = map.home();

/// Where the contacts lie on the azimuthal map.
std::vector<MapPoint> positions() {
    std::vector<MapPoint> points;
    for (const Place& place : places())
        points.push_back(pointOr(map.position(place.latitude, place.longitude), {}));
    return points;
}

void marks(benchmark::State& state) {
    const std::vector<MapPoint> points = positions();
    PictureSurface surface(twipsFromPixels(mapPixels), twipsFromPixels(mapPixels));
    for (auto _ : state) {
        for (const MapPoint& at : points)
            drawMark(surface, at, {.outer = 9, .inner = 7}, 0x000000, 0x0000FF);
        benchmark::DoNotOptimize(surface.Image().constBits());
    }
}
BENCHMARK(marks)->Unit(benchmark::kMillisecond);

/// The spans of the same marks, their positions known beforehand.
void marksYardstick(benchmark::State& state) {
    struct Pixel {
        int x;
        int y;
    };
    PictureSurface surface(twipsFromPixels(mapPixels), twipsFromPixels(mapPixels));
    std::vector<Pixel> pixels;
    for (const MapPoint& at : positions())
        pixels.push_back({roundToInt(surface.pixelX(at.x)), roundToInt(surface.pixelY(at.y))});
    std::vector<std::uint32_t> picture(static_cast<std::size_t>(mapPixels) * mapPixels);
    const auto dot = [&picture](const Pixel& at, const auto& reaches, std::uint32_t colour) {
        const int rows = static_cast<int>(reaches.size()) / 2;
        for (int dy = -rows; dy <= rows; ++dy) {
            const int reach = reaches[static_cast<std::size_t>(dy + rows)];
            std::uint32_t* const row = picture.data() + (at.y + dy) * mapPixels + at.x;
            std::fill(row - reach, row + reach + 1, colour);
        }
    };
    constexpr std::array<int, 9> outer = {2, 3, 4, 4, 4, 4, 4, 3, 2};
    constexpr std::array<int, 7> inner = {1, 2, 3, 3, 3, 2, 1};
    for (auto _ : state) {
        for (const Pixel& at : pixels) {
            dot(at, outer, 0xFF000000);
            dot(at, inner, 0xFFFF0000);
        }
        benchmark::DoNotOptimize(picture.data());
    }
}
BENCHMARK(marksYardstick)->Unit(benchmark::kMillisecond);

void projection(benchmark::State& state) {
    for (auto _ : state) {
        double sum = 0.0;
        for (const Place& place : places()) {
            const MapPoint at = pointOr(map.position(place.latitude, place.longitude), {});
            sum += at.x + at.y;
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(projection)->Unit(benchmark::kMillisecond);

/// The formula with its roundings, and no care for points that can't be shown.
MapPoint plainProjection(float latitude, float longitude, double sinHome, double cosHome) {
    constexpr double pi = 3.141599265;
    constexpr double twoPi = 6.28319853;
    constexpr double earthRadius = 6371.29;
    const double p = static_cast<float>(latitude * radiansPerDegree);
    const double d = static_cast<float>(longitude * radiansPerDegree) - home.HomeX;
    const double c =
        static_cast<float>(sinHome * std::sin(p) + cosHome * std::cos(p) * std::cos(d));
    const double a = pi / 2 - std::atan(c / std::sqrt(1.0 - c * c));
    const float r = static_cast<float>(a * earthRadius);
    const double t =
        static_cast<float>((std::sin(p) - sinHome * std::cos(a)) / (cosHome * std::sin(a)));
    float bearing = static_cast<float>(pi / 2 - std::atan(t / std::sqrt(1.0 - t * t)));
    if (std::sin(d) < 0.0)
        bearing = static_cast<float>(twoPi - bearing);
    return {std::sin(static_cast<double>(bearing)) * r, std::cos(static_cast<double>(bearing)) * r};
}

void projectionYardstick(benchmark::State& state) {
    const double sinHome = std::sin(static_cast<double>(home.HomeY));
    const double cosHome = std::cos(static_cast<double>(home.HomeY));
    for (auto _ : state) {
        double sum = 0.0;
        for (const Place& place : places()) {
            const MapPoint at = plainProjection(place.latitude, place.longitude, sinHome, cosHome);
            sum += at.x + at.y;
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(projectionYardstick)->Unit(benchmark::kMillisecond);

class AgreeingPrompt : public UserPrompt {
public:
    void tell(const std::string&, MessageIcon) override {}
    bool ask(const Question&) override { return true; }
};

/// A base map with nothing on it but land, so that every source pixel has the most to do.
PictureSurface bareLand() {
    PictureSurface surface(10000.0F, 10000.0F);
    surface.BackColor = 0xC0FFC0;
    surface.Cls();
    return surface;
}

void relief(benchmark::State& state) {
    const QImage world = builtInWorld();
    SilentListener listener;
    AgreeingPrompt prompt;
    for (auto _ : state) {
        PictureSurface surface = bareLand();
        TopoOverlay(surface, world, map, 0xC0FFC0, {}, listener, prompt);
        benchmark::DoNotOptimize(surface.Image().constBits());
    }
}
BENCHMARK(relief)->Unit(benchmark::kMillisecond);

/// As many projections, each with a look at the pixel that it hits.
void reliefYardstick(benchmark::State& state) {
    constexpr int width = 1800;
    constexpr int height = 900;
    const double sinHome = std::sin(static_cast<double>(home.HomeY));
    const double cosHome = std::cos(static_cast<double>(home.HomeY));
    for (auto _ : state) {
        const PictureSurface surface = bareLand();
        const QImage& image = surface.Image();
        int land = 0;
        for (int x = 0; x < width; ++x) {
            for (int y = 0; y < height; ++y) {
                const MapPoint at =
                    plainProjection(static_cast<float>(90.0 - y / 5.0),
                                    static_cast<float>(x / 5.0 - 180.0), sinHome, cosHome);
                const double px = surface.pixelX(at.x);
                const double py = surface.pixelY(at.y);
                // The pole and the antipode are no numbers here.
                const bool hit =
                    px >= 0.0 && py >= 0.0 && px < image.width() && py < image.height();
                land += hit && image.pixel(static_cast<int>(px), static_cast<int>(py)) ==
                                    imageColour(0xC0FFC0)
                            ? 1
                            : 0;
            }
        }
        benchmark::DoNotOptimize(land);
    }
}
BENCHMARK(reliefYardstick)->Unit(benchmark::kMillisecond);

PictureSurface baseMapAt(int resolution, const QImage* relief = nullptr) {
    PictureSurface Picture1(baseMapSize, baseMapSize, resolution);
    SilentListener listener;
    AgreeingPrompt prompt;
    drawBaseMap(Picture1,
                {.map = &map,
                 .land = 0xC0FFC0,
                 .water = 0xFECDA5,
                 .relief = relief,
                 .reliefLand = 0xC0FFC0},
                TOVREL_DATA_DIR, listener, prompt);
    return Picture1;
}

void baseMap(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(baseMapAt(static_cast<int>(state.range(0))).Image().constBits());
}
BENCHMARK(baseMap)->Arg(1)->Arg(3)->Unit(benchmark::kMillisecond);

/// A base map at resolution 3, with relief or without, out of its file and onto a surface.
void cachedBaseMap(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("map"));
    const std::string path = file.toStdString();
    const QImage world = builtInWorld();
    const PictureSurface drawn = baseMapAt(3, state.range(0) != 0 ? &world : nullptr);
    if (!saveBaseMap({PackedPicture(drawn.Image()), 3, {}}, path))
        state.SkipWithError("the base map could not be stored");
    state.counters["bytes"] = static_cast<double>(QFileInfo(file).size());
    for (auto _ : state) {
        PictureSurface Picture1(baseMapSize, baseMapSize);
        Picture1.setPicture(loadBaseMap(path).map.picture, 3);
        benchmark::DoNotOptimize(Picture1.Image().constBits());
    }
}
BENCHMARK(cachedBaseMap)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// What a new size of the window costs on a screen of 1080 lines, whose base map has resolution 2.
void resizeStep(benchmark::State& state) {
    const PictureSurface Picture1 = baseMapAt(2);
    SilentListener listener;
    int pixels = 1000;
    for (auto _ : state) {
        pixels = pixels == 1000 ? 1004 : 1000;
        PictureSurface Picture2(twipsFromPixels(pixels), twipsFromPixels(pixels));
        Picture2.StretchBlt(Picture1);
        DrawGraticule(Picture2, map, 0x808080, listener);
        benchmark::DoNotOptimize(Picture2.Image().constBits());
    }
}
BENCHMARK(resizeStep)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tovrel
