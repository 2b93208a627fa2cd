// Putting a list of the statistics window in order, beside a sort that compares the items' texts.

#include "stats/StatusLists.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <random>
#include <string>
#include <vector>

namespace tovrel {
namespace {

constexpr int contacts = 1'000'000;

const std::vector<std::string>& calls() {
    static const std::vector<std::string> all = [] {
        std::mt19937 random{1};
        const auto letter = [&random] { return static_cast<char>('A' + random() % 26); };
        std::vector<std::string> made;
        for (int i = 0; i < contacts; ++i)
            made.push_back({letter(), letter(), '1', letter(), letter(), letter()});
        return made;
    }();
    return all;
}

void sortList(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<Station> stations;
        for (const std::string& call : calls())
            stations.push_back({call, 1.0, 2.0});
        StationList list;
        list.add(std::move(stations), nullptr);
        state.ResumeTiming();
        benchmark::DoNotOptimize(&list.sorted()[0]);
    }
}
BENCHMARK(sortList)->Unit(benchmark::kMillisecond);

void sortListYardstick(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<Station> list;
        for (const std::string& call : calls())
            list.push_back({call, 1.0, 2.0});
        state.ResumeTiming();
        std::sort(list.begin(), list.end(),
                  [](const Station& a, const Station& b) { return a.call < b.call; });
        benchmark::DoNotOptimize(list.data());
    }
}
BENCHMARK(sortListYardstick)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tovrel
