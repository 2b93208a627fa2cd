// What the place of a contact costs.

#include "log/EntityTable.h"

#include <benchmark/benchmark.h>
#include <random>
#include <string>
#include <vector>

namespace tovrel {
namespace {

/// Calls as a log has them: some with strokes, a few that belong nowhere.
std::vector<std::string> calls(int count) {
    std::mt19937 random(3);
    const auto letter = [&random] { return static_cast<char>('A' + random() % 26); };
    std::vector<std::string> all;
    for (int i = 0; i < count; ++i) {
        std::string call;
        call.append({letter(), letter(), static_cast<char>('0' + random() % 10), letter(), letter(),
                     letter()});
        switch (random() % 8) {
        case 0:
            call += "/P";
            break;
        case 1:
            call.insert(0, {letter(), letter(), '/'});
            break;
        case 2:
            call.append({'/', static_cast<char>('0' + random() % 10)});
            break;
        default:
            break;
        }
        all.push_back(call);
    }
    return all;
}

void entityOfCall(benchmark::State& state) {
    constexpr int count = 1000;
    const std::vector<std::string> all = calls(count);
    EntityTable table;
    table.ofCall(all.front());
    for (auto _ : state) {
        for (const std::string& call : all)
            benchmark::DoNotOptimize(table.ofCall(call));
    }
}
BENCHMARK(entityOfCall)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace tovrel
