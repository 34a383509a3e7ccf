// DATE9., DDMMYY10., YYQ6., WEEKDATX29. and WEEKV11. per value against strftime on the same day
// serials, each broken down by gmtime_r (the usual way to print a date with the C library): "%d%b%Y"
// beside DATE9., "%d/%m/%Y" beside DDMMYY10., "%A, %d %B %Y" beside WEEKDATX29. and "%G-W%V-%u" beside
// WEEKV11. DATE9. also runs beside its hand-written floor.
#include <benchmark/benchmark.h>

#include <ctime>
#include <random>
#include <vector>

#include "Floors.h"
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

void formatEachDay(benchmark::State& state, KivoFormatFunction format, int width) {
    const std::vector<double>& values = daySerials();
    char field[32];
    std::size_t i = 0;
    for (auto _ : state) {
        format(field, width, 0, values[i++ & 4095]);
        benchmark::DoNotOptimize(field);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}

void strftimeEachDay(benchmark::State& state, const char* layout) {
    const std::vector<double>& values = daySerials();
    char text[32];
    std::size_t i = 0;
    for (auto _ : state) {
        const std::time_t seconds = static_cast<std::time_t>(values[i++ & 4095]) * 86400 - SECONDS_FROM_1960_TO_1970;
        std::tm broken{};
        gmtime_r(&seconds, &broken);
        benchmark::DoNotOptimize(std::strftime(text, sizeof text, layout, &broken));
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}

void BM_Date9(benchmark::State& state) { formatEachDay(state, dateFormat, 9); }
BENCHMARK(BM_Date9);

void BM_Date9Floor(benchmark::State& state) {
    const KivoFormatFunction floor = [](char* field, int, int, double value) {
        floors::date9Field(field, value);
        return 0;
    };
    if (!floors::agrees(dateFormat, floor, 9, daySerials())) {
        state.SkipWithError("the floor's fields differ from DATE9.");
        return;
    }
    formatEachDay(state, floor, 9);
}
BENCHMARK(BM_Date9Floor);

void BM_StrftimeDdMonYyyy(benchmark::State& state) { strftimeEachDay(state, "%d%b%Y"); }
BENCHMARK(BM_StrftimeDdMonYyyy);

void BM_Ddmmyy10(benchmark::State& state) { formatEachDay(state, ddmmyyFormat, 10); }
BENCHMARK(BM_Ddmmyy10);

void BM_Yyq6(benchmark::State& state) { formatEachDay(state, yyqFormat, 6); }
BENCHMARK(BM_Yyq6);

void BM_StrftimeDdSlashMmSlashYyyy(benchmark::State& state) { strftimeEachDay(state, "%d/%m/%Y"); }
BENCHMARK(BM_StrftimeDdSlashMmSlashYyyy);

void BM_Weekdatx29(benchmark::State& state) { formatEachDay(state, weekdatxFormat, 29); }
BENCHMARK(BM_Weekdatx29);

void BM_StrftimeWeekdayLongDate(benchmark::State& state) { strftimeEachDay(state, "%A, %d %B %Y"); }
BENCHMARK(BM_StrftimeWeekdayLongDate);

void BM_Weekv11(benchmark::State& state) { formatEachDay(state, weekvFormat, 11); }
BENCHMARK(BM_Weekv11);

void BM_StrftimeIsoWeekDate(benchmark::State& state) { strftimeEachDay(state, "%G-W%V-%u"); }
BENCHMARK(BM_StrftimeIsoWeekDate);

}  // namespace
