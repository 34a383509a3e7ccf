// DATE9. per value against strftime("%d%b%Y") on the same day serials, each broken down by gmtime_r
// (the usual way to print a date with the C library).
#include <benchmark/benchmark.h>

#include <ctime>
#include <random>
#include <vector>

#include "kivo/Formats.h"

namespace {

constexpr long SECONDS_FROM_1960_TO_1970 = 3653L * 86400;

// Day serials from 1900 to 2100, the same for every benchmark.
const std::vector<double>& daySerials() {
    static const std::vector<double> serials = [] {
        std::mt19937_64 random(20261122);
        std::uniform_int_distribution<int> day(-21915, 51133);
        std::vector<double> values(4096);
        for (double& value : values) {
            value = day(random);
        }
        return values;
    }();
    return serials;
}

void BM_Date9(benchmark::State& state) {
    const std::vector<double>& values = daySerials();
    char field[9];
    std::size_t i = 0;
    for (auto _ : state) {
        dateFormat(field, 9, 0, values[i++ & 4095]);
        benchmark::DoNotOptimize(field);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_Date9);

void BM_StrftimeDdMonYyyy(benchmark::State& state) {
    const std::vector<double>& values = daySerials();
    char text[32];
    std::size_t i = 0;
    for (auto _ : state) {
        const std::time_t seconds = static_cast<std::time_t>(values[i++ & 4095]) * 86400 - SECONDS_FROM_1960_TO_1970;
        std::tm broken{};
        gmtime_r(&seconds, &broken);
        benchmark::DoNotOptimize(std::strftime(text, sizeof text, "%d%b%Y", &broken));
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_StrftimeDdMonYyyy);

}  // namespace
