// ANYDTDTE over a mix of common layouts, per field, against strptime("%d%b%Y") reading one fixed
// layout: the price of not knowing the layout in advance.
#include <benchmark/benchmark.h>

#include <cstring>
#include <ctime>
#include <string>
#include <vector>

#include "kivo/Informats.h"

namespace {

const std::vector<std::string>& mixedFields() {
    static const std::vector<std::string> fields = {
        "15JAN2000", "2000-01-15", "01/15/2000", "20000115", "15-JAN-2000", "2000-01-15T10:30:00", "10:30 PM",
    };
    return fields;
}

// Dates in the one layout strptime is given, spread over months and years.
const std::vector<std::string>& dayMonthYearFields() {
    static const std::vector<std::string> fields = {
        "15JAN2000", "28FEB1999", "01MAR2021", "30APR1987", "17MAY2010", "09JUN1965", "31JUL2030",
    };
    return fields;
}

// ANYDTDTE over the fields in turn.
void readAll(benchmark::State& state, const std::vector<std::string>& fields) {
    std::size_t i = 0;
    double result = 0;
    for (auto _ : state) {
        const std::string& field = fields[i];
        i = i + 1 == fields.size() ? 0 : i + 1;
        anydtdteInformat(field.data(), static_cast<int>(field.size()), 0, 0, &result);
        benchmark::DoNotOptimize(result);
    }
    state.SetItemsProcessed(state.iterations());
}

void BM_AnydtdteMixedLayouts(benchmark::State& state) { readAll(state, mixedFields()); }
BENCHMARK(BM_AnydtdteMixedLayouts);

void BM_AnydtdteDayMonthYear(benchmark::State& state) { readAll(state, dayMonthYearFields()); }
BENCHMARK(BM_AnydtdteDayMonthYear);

void BM_StrptimeDdMonYyyy(benchmark::State& state) {
    const std::vector<std::string>& fields = dayMonthYearFields();
    std::size_t i = 0;
    for (auto _ : state) {
        const std::string& field = fields[i];
        i = i + 1 == fields.size() ? 0 : i + 1;
        std::tm broken{};
        benchmark::DoNotOptimize(strptime(field.c_str(), "%d%b%Y", &broken));
        benchmark::DoNotOptimize(broken);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_StrptimeDdMonYyyy);

}  // namespace
