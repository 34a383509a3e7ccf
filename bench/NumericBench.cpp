// BEST12. (layout and output) per value, beside the standard library's general-format conversions of
// the same values, with the precision a 12-wide field can show.
#include <benchmark/benchmark.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

#include "kivo/format/FormatRealFields.h"
#include "kivo/format/RealLayouts.h"

namespace {

constexpr int WIDTH = 12;
constexpr int PRECISION = 10;

// A mix of magnitudes, signs, whole numbers and short decimals, the same for every benchmark.
const std::vector<double>& sampleValues() {
    static const std::vector<double> values = [] {
        std::mt19937_64 random(20261122);
        std::vector<double> v(4096);
        for (std::size_t i = 0; i < v.size(); ++i) {
            switch (i % 4) {
                case 0: v[i] = std::pow(10.0, std::uniform_real_distribution<double>(-8, 14)(random)); break;
                case 1: v[i] = -std::pow(10.0, std::uniform_real_distribution<double>(-3, 6)(random)); break;
                case 2: v[i] = static_cast<double>(random() % 100000); break;
                default: v[i] = static_cast<double>(random() % 1000000) / 100; break;
            }
        }
        return v;
    }();
    return values;
}

template <class Write>
void perValue(benchmark::State& state, Write write) {
    const std::vector<double>& values = sampleValues();
    char field[64];
    std::size_t i = 0;
    for (auto _ : state) {
        write(values[i], field);
        benchmark::DoNotOptimize(field);
        benchmark::ClobberMemory();
        i = (i + 1) & (values.size() - 1);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}

void BM_Best12LayoutAndOutput(benchmark::State& state) {
    perValue(state, [](double x, char* field) {
        kivo::format::FormatRealFields fields;
        kivo::format::getRealForBestFormat(x, WIDTH, fields);
        char* out = field;
        fields.outputReal(out, '.', '-', kivo::format::FormatRealFields::BEFORE);
    });
}
BENCHMARK(BM_Best12LayoutAndOutput);

void BM_SnprintfGeneral12(benchmark::State& state) {
    perValue(state, [](double x, char* field) { std::snprintf(field, 64, "%12.*g", PRECISION, x); });
}
BENCHMARK(BM_SnprintfGeneral12);

void BM_ToCharsGeneral(benchmark::State& state) {
    perValue(state, [](double x, char* field) {
        std::to_chars(field, field + 64, x, std::chars_format::general, PRECISION);
    });
}
BENCHMARK(BM_ToCharsGeneral);

// The floor: the shortest text that reads back as the same double.
void BM_ToCharsShortest(benchmark::State& state) {
    perValue(state, [](double x, char* field) { std::to_chars(field, field + 64, x); });
}
BENCHMARK(BM_ToCharsShortest);

}  // namespace
