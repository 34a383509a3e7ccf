#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <ctime>

#include "Floors.h"
#include "kivo/Formats.h"

// TIME8., DATETIME19. and DATETIME22.2 per value, beside the C library's broken-down time and
// strftime ("%H:%M:%S", "%d%b%Y:%H:%M:%S") on the same instants, and beside the hand-written floors of
// TIME8. and DATETIME19. One value per iteration: the time per iteration
// is the time per value.
namespace {

constexpr std::size_t VALUE_COUNT = 4096;  // a power of two
constexpr double SECONDS_1960_TO_1970 = 3653 * 86400.0;

// Instants spread over 1990..2030 with fractions of a second, from a fixed linear congruential sequence.
const std::array<double, VALUE_COUNT>& datetimes() {
    static const std::array<double, VALUE_COUNT> values = [] {
        std::array<double, VALUE_COUNT> v{};
        std::uint64_t state = 0x2545F4914F6CDD1DULL;
        const double first = 10958 * 86400.0;  // 1 January 1990
        const double span = 14610 * 86400.0;   // forty years
        for (double& value : v) {
            state = state * 6364136223846793005ULL + 1442695040888963407ULL;
            value = first + std::floor(static_cast<double>(state >> 11) / 9007199254740992.0 * span * 100.0) / 100.0;
        }
        return v;
    }();
    return values;
}

// The same instants as times of day, for TIME.
const std::array<double, VALUE_COUNT>& timesOfDay() {
    static const std::array<double, VALUE_COUNT> values = [] {
        std::array<double, VALUE_COUNT> v{};
        for (std::size_t i = 0; i < VALUE_COUNT; ++i) {
            v[i] = std::fmod(datetimes()[i], 86400.0);
        }
        return v;
    }();
    return values;
}

void runFormat(benchmark::State& state, KivoFormatFunction format, int width, int decimals,
               const std::array<double, VALUE_COUNT>& values) {
    char field[32];
    std::size_t i = 0;
    for (auto _ : state) {
        format(field, width, decimals, values[i++ & (VALUE_COUNT - 1)]);
        benchmark::DoNotOptimize(field);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}

void BM_Time8(benchmark::State& state) { runFormat(state, timeFormat, 8, 0, timesOfDay()); }
void BM_Datetime19(benchmark::State& state) { runFormat(state, datetimeFormat, 19, 0, datetimes()); }
void BM_Datetime22_2(benchmark::State& state) { runFormat(state, datetimeFormat, 22, 2, datetimes()); }

// A floor, run only when it writes the library's fields for every value.
void runFloor(benchmark::State& state, KivoFormatFunction format, KivoFormatFunction floor, int width,
              const std::array<double, VALUE_COUNT>& values) {
    if (!floors::agrees(format, floor, width, values)) {
        state.SkipWithError("the floor's fields differ from the format's");
        return;
    }
    runFormat(state, floor, width, 0, values);
}

void BM_Time8Floor(benchmark::State& state) {
    runFloor(state, timeFormat, [](char* field, int, int, double value) { floors::time8Field(field, value); return 0; },
             8, timesOfDay());
}
void BM_Datetime19Floor(benchmark::State& state) {
    runFloor(state, datetimeFormat,
             [](char* field, int, int, double value) { floors::datetime19Field(field, value); return 0; }, 19,
             datetimes());
}

void gmtimeStrftime(benchmark::State& state, const std::array<double, VALUE_COUNT>& values, const char* layout) {
    char text[32];
    std::size_t i = 0;
    for (auto _ : state) {
        const auto seconds = static_cast<std::time_t>(std::floor(values[i++ & (VALUE_COUNT - 1)] - SECONDS_1960_TO_1970));
        std::tm broken{};
        gmtime_r(&seconds, &broken);
        benchmark::DoNotOptimize(std::strftime(text, sizeof text, layout, &broken));
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}

void BM_GmtimeStrftimeTime(benchmark::State& state) { gmtimeStrftime(state, timesOfDay(), "%H:%M:%S"); }
void BM_GmtimeStrftimeDatetime(benchmark::State& state) {
    gmtimeStrftime(state, datetimes(), "%d%b%Y:%H:%M:%S");
}

BENCHMARK(BM_Time8);
BENCHMARK(BM_Time8Floor);
BENCHMARK(BM_GmtimeStrftimeTime);
BENCHMARK(BM_Datetime19);
BENCHMARK(BM_Datetime19Floor);
BENCHMARK(BM_GmtimeStrftimeDatetime);
BENCHMARK(BM_Datetime22_2);

}  // namespace
