// The tool tip's look-up, beside a scan of the whole table.

#include "platform/Numbers.h"
#include "plot/HoverTip.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <random>
#include <vector>

namespace tovrel {
namespace {

constexpr int contacts = 1'000'000;

struct MapPlace {
    double mapY;
    double mapX;
};

/// Contacts all over the map, or 5,000 of them on one spot.
std::vector<MapPlace> hoverTable(bool spot) {
    constexpr int onSpot = 5000;
    std::mt19937 random{1};
    std::uniform_real_distribution<double> units(-19000.0, 19000.0);
    std::vector<MapPlace> rows;
    for (int i = 0; i < contacts; ++i)
        rows.push_back({units(random), units(random)});
    for (int i = 0; spot && i < onSpot; ++i)
        rows[static_cast<std::size_t>(i) * (contacts / onSpot)] = {20.0, 30.0};
    return rows;
}

void fill(HoverIndex& index, const std::vector<MapPlace>& table) {
    index.begin(table.size());
    for (const MapPlace& row : table)
        index.add(row.mapY, row.mapX);
    index.finish();
}

void walkHits(benchmark::State& state, bool spot) {
    HoverIndex index;
    fill(index, hoverTable(spot));
    for (auto _ : state) {
        std::uint64_t sum = 0;
        HoverHits hits(index, 20.0, 30.0);
        while (hits.left() > 0)
            sum += hits.take();
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK_CAPTURE(walkHits, spread, false)->Name("hoverSpread")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(walkHits, spot, true)->Name("hoverSpot")->Unit(benchmark::kMicrosecond);

/// Every row compared with the pointer, as its rule says.
void scan(benchmark::State& state) {
    const std::vector<MapPlace> table = hoverTable(false);
    const auto step = [](double units) {
        return roundToInt(static_cast<double>(toSingle(roundHalfEven(units)) / 100.0F));
    };
    constexpr int window = 5;
    for (auto _ : state) {
        std::uint64_t sum = 0;
        for (std::size_t i = 0; i < table.size(); ++i) {
            if (std::abs(step(table[i].mapY)) < window && std::abs(step(table[i].mapX)) < window)
                sum += i;
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(scan)->Name("hoverYardstick")->Unit(benchmark::kMicrosecond);

void build(benchmark::State& state) {
    const std::vector<MapPlace> table = hoverTable(false);
    HoverIndex index;
    for (auto _ : state) {
        fill(index, table);
        benchmark::DoNotOptimize(index);
    }
}
BENCHMARK(build)->Name("hoverBuild")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tovrel
