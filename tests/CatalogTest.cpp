// The engine's catalog against the library: every exported format and informat has exactly one
// entry, and every entry, at every width and decimals it accepts, keeps to its field and allocates
// nothing, on edge values (formats) and on hostile texts (informats); under the asan preset this is
// the out-of-field guarantee. The date and time formats' common entry steps and the exported string
// routines are checked here too.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cfloat>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <new>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "FormatFieldSupport.h"
#include "kivo/Strings.h"
#include "kivoconvert/Catalog.h"
#include "kivox/Missing.h"
#include "kivox/Services.h"

namespace {
std::atomic<long> allocations{0};
}

// The program's operator new counts, so that a format or informat that allocates shows. (Once GCC
// inlines the replacement delete it takes the malloc/free pair for a mismatch.)
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
void* operator new(std::size_t size) {
    ++allocations;
    if (void* block = std::malloc(size == 0 ? 1 : size)) return block;
    throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    ++allocations;
    return std::malloc(size == 0 ? 1 : size);
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { std::free(block); }

namespace {

using kivoconvert::FormatEntry;
using kivoconvert::InformatEntry;

// The library's exported `<name>Format` and `<name>Informat` symbols, from the lists the export check
// holds the library to.
std::set<std::string> exportedEntryPoints() {
    std::set<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(KIVO_EXPORT_LISTS_DIR)) {
        std::ifstream list(file.path());
        for (std::string line; std::getline(list, line);) {
            const bool entryPoint = !line.empty() && std::all_of(line.begin(), line.end(), [](char c) {
                return std::isalpha(static_cast<unsigned char>(c)) != 0;
            });
            if (entryPoint && (line.ends_with("Format") || line.ends_with("Informat"))) names.insert(line);
        }
    }
    return names;
}

bool isMissing(double value) {
    return (std::bit_cast<std::uint64_t>(value) & kivo::lum_numeric::MISSING_MASK) == kivo::lum_numeric::MISSING_MASK;
}

template <class Entry>
void countSymbols(std::span<const Entry> catalog, const char* suffix, std::map<std::string, int>& counts) {
    for (const Entry& entry : catalog) {
        if (entry.symbol.empty()) continue;
        std::string lower(entry.name);
        for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        EXPECT_EQ(entry.symbol, lower + suffix) << "the name and symbol of " << entry.name;
        ++counts[std::string(entry.symbol)];
    }
}

TEST(Catalog, NamesEveryExportedFormatAndInformatExactlyOnce) {
    const std::set<std::string> exported = exportedEntryPoints();
    std::map<std::string, int> counts;
    countSymbols(kivoconvert::formatCatalog(), "Format", counts);
    countSymbols(kivoconvert::informatCatalog(), "Informat", counts);
    for (const std::string& symbol : exported) {
        EXPECT_EQ(counts[symbol], 1) << symbol << " should have exactly one catalog entry";
    }
    for (const auto& [symbol, count] : counts) {
        EXPECT_TRUE(exported.contains(symbol)) << symbol << " is in the catalog but not exported";
    }
    // Only the engine's own numeric formats call no library symbol.
    for (const FormatEntry& entry : kivoconvert::formatCatalog()) {
        EXPECT_TRUE(!entry.symbol.empty() || entry.kind == kivoconvert::ValueKind::NUMBER) << entry.name;
    }
    EXPECT_FALSE(exported.empty());
}

// The catalog names the library's own limits (formats/FieldLimits.h), and the writers' width tables are
// held to the same limits where they are compiled; here the two meet at run time. A family whose layouts
// are a table of widths ends where its catalog row does: one width past it is a broken invariant.
TEST(CatalogDeathTest, TheTablesOfWidthsEndWhereTheCatalogSays) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const FormatEntry& entry : kivoconvert::formatCatalog()) {
        const kivoconvert::Limits& limits = entry.limits;
        const bool tabled = entry.name.starts_with("DDMMYY") || entry.name.starts_with("MMDDYY") ||
                            entry.name.starts_with("YYMMDD") || entry.name == "MINGUO" || entry.name == "NENGO";
        if (!tabled) continue;
        char field[kivoconvert::MAX_FIELD + 1];
        EXPECT_DEATH(entry.function(field, limits.maxWidth + 1, 0, 22356), "kivoFail") << entry.name;
        entry.function(field, limits.minWidth, 0, 22356);  // and the narrowest row is there
    }
}

// Values that sit on the edges formats must survive: missing values of every kind, non-finite and
// huge values, the calendar's first and last days and seconds and just past them, and values a hair
// either side of integers and of the rounding boundaries of days, hours, minutes and seconds.
std::vector<double> edgeValues() {
    constexpr double FIRST_DAY = -138061;
    constexpr double LAST_DAY = 6589340;
    constexpr double DAY = 86400;
    std::vector<double> values = {
        kivo::lum_numeric::MISSING, kivo::lum_numeric::MISSING__, kivo::lum_numeric::specialMissing('Z'),
        NAN, -NAN, INFINITY, -INFINITY, DBL_MAX, -DBL_MAX, 1e300, -1e300, 4.9e-324, -0.0, 0.0, 1e15, -1e15,
        9007199254740993.0, 2147483648.0, -2147483649.0, 9.995, 99.5, 0.05, 0.95,
        FIRST_DAY, FIRST_DAY - 1, LAST_DAY, LAST_DAY + 1, FIRST_DAY * DAY, FIRST_DAY * DAY - 1,
        (LAST_DAY + 1) * DAY, 22356, 22356 * DAY + 45296.789};
    for (double boundary : {0.0, 0.5, 1.0, 59.5, 60.0, 3599.5, 3600.0, 43200.0, DAY - 0.5, DAY, 22356.5,
                            (LAST_DAY + 1) * DAY - 0.5, 1e9 + 0.5}) {
        for (double sign : {1.0, -1.0}) {
            const double x = sign * boundary;
            values.insert(values.end(), {x, std::nextafter(x, -INFINITY), std::nextafter(x, INFINITY),
                                         x - 1e-7, x + 1e-7});
        }
    }
    return values;
}

// The field as a format writes it into `width` bytes between guards filled with `fill`; false when
// a guard byte changed.
bool runBetweenGuards(const FormatEntry& entry, int width, int decimals, double value, char fill,
                      std::string& field) {
    constexpr int GUARD = 16;
    std::vector<char> buffer(static_cast<std::size_t>(width + 2 * GUARD), fill);
    const long before = allocations;
    entry.function(buffer.data() + GUARD, width, decimals, value);
    EXPECT_EQ(allocations - before, 0) << entry.name << width << "." << decimals << " allocated";
    field.assign(buffer.data() + GUARD, static_cast<std::size_t>(width));
    const auto untouched = [fill](char c) { return c == fill; };
    return std::all_of(buffer.begin(), buffer.begin() + GUARD, untouched) &&
           std::all_of(buffer.end() - GUARD, buffer.end(), untouched);
}

TEST(CatalogSweep, EveryFormatWritesExactlyItsFieldAtEveryWidthAndDecimals) {
    kivo::currentServiceLocator();  // the host's one-time set-up is not the formats' doing
    const std::vector<double> values = edgeValues();
    std::string failures;
    long calls = 0;
    for (const FormatEntry& entry : kivoconvert::formatCatalog()) {
        const kivoconvert::Limits& limits = entry.limits;
        for (int width = limits.minWidth; width <= limits.maxWidth; ++width) {
            for (int decimals = 0; decimals <= kivoconvert::maxDecimals(limits, width); ++decimals) {
                for (double value : values) {
                    // Two fills tell a byte the format wrote (the same in both runs) from one it left.
                    std::string low, high;
                    const bool guarded = runBetweenGuards(entry, width, decimals, value, '\0', low) &&
                                         runBetweenGuards(entry, width, decimals, value, '\xFF', high);
                    calls += 2;
                    if ((!guarded || low != high) && failures.size() < 2000) {
                        std::ostringstream line;
                        line.precision(17);
                        line << entry.name << width << "." << decimals << " of " << value
                             << (guarded ? ": left bytes unwritten\n" : ": wrote outside its field\n");
                        failures += line.str();
                    }
                }
            }
        }
    }
    EXPECT_EQ(failures, "");
    EXPECT_GT(calls, 0);
}

TEST(CatalogSweep, TheAllocationCounterCounts) {
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "ThreadSanitizer keeps its own operator new, so the sweeps' counts see nothing";
#endif
    const long before = allocations;
    delete new int(1);
    EXPECT_EQ(allocations - before, 1);
}

// Texts no informat should stumble on: empty, blanks only, NUL bytes inside, every byte value alone
// and all of them in one text, very long texts, and seeded random texts made of the pieces dates
// and times are written with.
std::vector<std::string> hostileTexts() {
    using namespace std::string_literals;
    std::vector<std::string> texts = {"", " ", "    ", "\t", "\0"s, "1\0"s, "12\0JAN\0002000"s, ".", "._", ".A",
                                      "-", "+", "99999999999999999999", "2147483648", "-2147483649",
                                      std::string(5000, '9'), std::string(5000, ' '), "1" + std::string(4000, '0'),
                                      std::string(3000, '.')};
    std::string everyByte;
    for (int c = 0; c < 256; ++c) texts.emplace_back(1, static_cast<char>(c)), everyByte += static_cast<char>(c);
    texts.push_back(everyByte);
    const char* pieces[] = {"0", "1", "12", "31", "2021", "99", "9999", "20000", "JAN", "feb", "Dec", "MONDAY",
                            ":", "/", "-", ".", " ", "\t", "AM", "PM", "T", "Q", "W", "H", "r.", "\0", "\xFF"};
    std::mt19937 random(20211117);
    for (int i = 0; i < 3000; ++i) {
        std::string text;
        const int count = static_cast<int>(random() % 9);
        for (int k = 0; k < count; ++k) {
            const char* piece = pieces[random() % std::size(pieces)];
            text.append(piece, *piece == '\0' ? 1 : std::strlen(piece));
        }
        texts.push_back(text);
    }
    return texts;
}

TEST(CatalogSweep, EveryInformatReadsOnlyItsFieldAndLeavesARejectedResultAlone) {
    kivo::currentServiceLocator();
    const std::vector<std::string> texts = hostileTexts();
    const double untouched = std::bit_cast<double>(std::uint64_t{0x7FF4DEADBEEF0001});
    std::string failures;
    for (const InformatEntry& entry : kivoconvert::informatCatalog()) {
        for (const std::string& text : texts) {
            // An exactly-sized heap copy, so that a read past the field's end is caught under ASan.
            const std::unique_ptr<char[]> field(new char[text.size()]);
            std::memcpy(field.get(), text.data(), text.size());
            const int width = static_cast<int>(text.size());
            for (int decimals : {0, kivoconvert::maxDecimals(entry.limits, kivoconvert::MAX_FIELD)}) {
                double result = untouched;
                const long before = allocations;
                const int accepted = entry.function(field.get(), width, width, decimals, &result);
                EXPECT_EQ(allocations - before, 0) << entry.name << " allocated";
                // STIMER alone stores the missing value for a missing-value notation and still says no.
                const bool resultKept = std::bit_cast<std::uint64_t>(result) == std::bit_cast<std::uint64_t>(untouched) ||
                                        (entry.storesMissingWhenRejecting && isMissing(result));
                if ((accepted != 0 && accepted != 1) || (accepted == 0 && !resultKept)) {
                    failures += std::string(entry.name) + " on a text of " + std::to_string(width) + " bytes\n";
                }
            }
        }
    }
    EXPECT_EQ(failures.substr(0, 2000), "");
}

// The steps every date, time and datetime format of the catalog takes before its layout, at every width
// and decimals it accepts: a missing value prints as blanks and its character, which the decimals move
// left only where the catalog says they do, and a value just past either end of the calendar, counted
// in the format's kind of value, fills the field with "*".
// The values next to the calendar's first day (1 January 1582) and after its last (31 December 20000).
std::pair<double, double> beyondTheCalendar(kivoconvert::ValueKind kind) {
    constexpr double FIRST_DAY = -138061, LAST_DAY = 6589340, DAY = 86400;
    if (kind == kivoconvert::ValueKind::DAY) return {FIRST_DAY - 1, LAST_DAY + 1};
    return {FIRST_DAY * DAY - 0.5, (LAST_DAY + 1) * DAY};
}

TEST(FormatEntrySteps, MissingCharacterAndStarsBeyondTheCalendar) {
    int checked = 0;
    for (const kivoconvert::FormatEntry& entry : kivoconvert::formatCatalog()) {
        if (entry.kind == kivoconvert::ValueKind::NUMBER || entry.writesBytes) {
            continue;  // the numeric and packed fields have tables of their own
        }
        const bool moves = entry.limits.decimals == kivoconvert::Decimals::MISSING_POSITION;
        const auto [before, after] = beyondTheCalendar(entry.kind);
        for (int width = entry.limits.minWidth; width <= entry.limits.maxWidth; ++width) {
            const std::string stars(static_cast<std::size_t>(width), '*');
            for (int decimals = 0; decimals <= kivoconvert::maxDecimals(entry.limits, width); ++decimals) {
                std::string missing(static_cast<std::size_t>(width), ' ');
                missing[static_cast<std::size_t>(width - 1 - (moves ? decimals : 0))] = '.';
                const std::string spec =
                    std::string(entry.name) + std::to_string(width) + "." + std::to_string(decimals);
                const auto field = [&](double value) {
                    return kivo::test::formatField(entry.function, width, decimals, value);
                };
                EXPECT_EQ(field(kivo::lum_numeric::MISSING), missing) << spec;
                EXPECT_EQ(field(before), stars) << spec;
                EXPECT_EQ(field(after), stars) << spec;
                ++checked;
            }
        }
    }
    EXPECT_GT(checked, 0);
}

// The exported string routines pass through to the C library.
TEST(KvcStrings, CompareIgnoringCase) {
    EXPECT_EQ(kvc_stricmp("DateTime", "dATEtIME"), 0);
    EXPECT_LT(kvc_stricmp("abc", "ABD"), 0);
    EXPECT_GT(kvc_stricmp("b", "A"), 0);
    EXPECT_EQ(kvc_strnicmp("JANUARY", "janx", 3), 0);
    EXPECT_NE(kvc_strnicmp("JANUARY", "janx", 4), 0);
}

TEST(KvcStrings, ErrorTextLandsInTheCallersBuffer) {
    char buffer[64];
    EXPECT_EQ(kvc_strerror_r(EAGAIN, buffer, sizeof buffer), buffer);
    EXPECT_STREQ(buffer, std::strerror(EAGAIN));
    char tiny[4];
    EXPECT_EQ(kvc_strerror_r(ENOENT, tiny, sizeof tiny), tiny);
    EXPECT_LT(std::strlen(tiny), sizeof tiny);
}

}  // namespace
