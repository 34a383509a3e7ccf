// DATE9., DDMMYY10. and TIME8. informats per field, beside strptime with the matching fixed layout
// ("%d%b%Y", "%d/%m/%Y", "%H:%M:%S") on the same texts, and DDMMYY10. and TIME8. beside their
// hand-written floors. One field per iteration: the time per iteration is the time per field.
#include <benchmark/benchmark.h>

#include <ctime>
#include <random>
#include <string>
#include <vector>

#include "Floors.h"
#include "kivo/Formats.h"
#include "kivo/Informats.h"

namespace {

constexpr std::size_t FIELD_COUNT = 4096;  // a power of two

// Texts written by a format of the library from values spread by a fixed generator.
std::vector<std::string> fieldsOf(KivoFormatFunction format, int width, int first, int last) {
    std::mt19937_64 random(20240611);
    std::uniform_int_distribution<int> value(first, last);
    std::vector<std::string> fields(FIELD_COUNT);
    for (std::string& field : fields) {
        field.resize(static_cast<std::size_t>(width));
        format(field.data(), width, 0, value(random));
    }
    return fields;
}

// dd/mm/yyyy of the days 1900 to 2100, from their DATE9. texts: day, month number, year.
std::vector<std::string> slashedDates(const std::vector<std::string>& date9) {
    constexpr const char* MONTHS = "JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC";
    std::vector<std::string> fields;
    for (const std::string& text : date9) {
        const int month = static_cast<int>(std::string(MONTHS).find(text.substr(2, 3))) / 3 + 1;
        const std::string mm = {static_cast<char>('0' + month / 10), static_cast<char>('0' + month % 10)};
        fields.push_back(text.substr(0, 2) + "/" + mm + "/" + text.substr(5, 4));
    }
    return fields;
}

const std::vector<std::string>& date9Fields() {
    static const std::vector<std::string> fields = fieldsOf(dateFormat, 9, -21915, 51133);
    return fields;
}
const std::vector<std::string>& ddmmyy10Fields() {
    static const std::vector<std::string> fields = slashedDates(date9Fields());
    return fields;
}
const std::vector<std::string>& time8Fields() {
    static const std::vector<std::string> fields = fieldsOf(timeFormat, 8, 0, 86399);
    return fields;
}

void runInformat(benchmark::State& state, KivoInformatFunction informat, const std::vector<std::string>& fields) {
    std::size_t i = 0;
    double result = 0;
    for (auto _ : state) {
        const std::string& field = fields[i++ & (FIELD_COUNT - 1)];
        const int width = static_cast<int>(field.size());
        benchmark::DoNotOptimize(informat(field.data(), width, width, 0, &result));
        benchmark::DoNotOptimize(result);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}

// A floor, run only when it reads every field as the library does.
void runFloor(benchmark::State& state, KivoInformatFunction informat, KivoInformatFunction floor,
              const std::vector<std::string>& fields) {
    if (!floors::readsAlike(informat, floor, fields)) {
        state.SkipWithError("the floor's results differ from the informat's");
        return;
    }
    runInformat(state, floor, fields);
}

void runStrptime(benchmark::State& state, const char* layout, const std::vector<std::string>& fields) {
    std::size_t i = 0;
    for (auto _ : state) {
        std::tm broken{};
        benchmark::DoNotOptimize(strptime(fields[i++ & (FIELD_COUNT - 1)].c_str(), layout, &broken));
        benchmark::DoNotOptimize(broken);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}

// strptime gives only the broken-down fields; a day count, which the informats return, takes timegm too.
void runStrptimeToDays(benchmark::State& state, const char* layout, const std::vector<std::string>& fields) {
    std::size_t i = 0;
    for (auto _ : state) {
        std::tm broken{};
        strptime(fields[i++ & (FIELD_COUNT - 1)].c_str(), layout, &broken);
        benchmark::DoNotOptimize(timegm(&broken) / 86400);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}

void BM_Date9Informat(benchmark::State& state) { runInformat(state, dateInformat, date9Fields()); }
void BM_Date9Strptime(benchmark::State& state) { runStrptime(state, "%d%b%Y", date9Fields()); }
void BM_Ddmmyy10Informat(benchmark::State& state) { runInformat(state, ddmmyyInformat, ddmmyy10Fields()); }
void BM_Ddmmyy10InformatFloor(benchmark::State& state) {
    runFloor(state, ddmmyyInformat, floors::ddmmyy10Informat, ddmmyy10Fields());
}
void BM_Ddmmyy10Strptime(benchmark::State& state) { runStrptime(state, "%d/%m/%Y", ddmmyy10Fields()); }
void BM_Ddmmyy10StrptimeTimegm(benchmark::State& state) {
    runStrptimeToDays(state, "%d/%m/%Y", ddmmyy10Fields());
}
void BM_Time8Informat(benchmark::State& state) { runInformat(state, timeInformat, time8Fields()); }
void BM_Time8InformatFloor(benchmark::State& state) {
    runFloor(state, timeInformat, floors::time8Informat, time8Fields());
}
void BM_Time8Strptime(benchmark::State& state) { runStrptime(state, "%H:%M:%S", time8Fields()); }

BENCHMARK(BM_Date9Informat);
BENCHMARK(BM_Date9Strptime);
BENCHMARK(BM_Ddmmyy10Informat);
BENCHMARK(BM_Ddmmyy10InformatFloor);
BENCHMARK(BM_Ddmmyy10Strptime);
BENCHMARK(BM_Ddmmyy10StrptimeTimegm);
BENCHMARK(BM_Time8Informat);
BENCHMARK(BM_Time8InformatFloor);
BENCHMARK(BM_Time8Strptime);

}  // namespace
