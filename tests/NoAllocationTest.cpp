// No format or informat allocates: every one of the catalog runs, at its narrowest, default and widest
// widths, on ordinary, boundary, missing and non-finite values (and on assorted texts), while the
// program's operator new counts.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <new>

#include "kivodt/Catalog.h"
#include "kivox/Missing.h"
#include "kivox/Services.h"

namespace {
std::atomic<long> allocations{0};
}

// This file replaces the program's operator new and delete with malloc and free; once GCC inlines the
// replacement delete it takes the pair for a mismatch.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"

void* operator new(std::size_t size) {
    ++allocations;
    if (void* block = std::malloc(size == 0 ? 1 : size)) {
        return block;
    }
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

TEST(NoAllocation, FormatsAndInformatsNeverAllocate) {
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "ThreadSanitizer keeps its own operator new, so this count would see nothing";
#endif
    const double values[] = {0.0,  22356.0, -17321.5, 45296.789, 1931607930.25, -3600.0, 9.96,  1e15,     -1e-300,
                             1e300, 6589340, -138061, 569600000000.0, kivo::lum_numeric::MISSING, NAN, INFINITY};
    const char* texts[] = {"15JAN2000", "2000-01-15T10:30:00", "10:30 PM", "01/02/2003", ".", "", "garbage!!",
                           "9223372036854775808", "1 2 3 4 5 6 7 8"};
    char field[64];
    double result = 0;
    kivo::currentServiceLocator();  // the fallback's one-time set-up is not the formats' doing
    const auto formats = kivodt::formatCatalog();
    const auto informats = kivodt::informatCatalog();

    const long before = allocations.load();
    for (const kivodt::FormatEntry& entry : formats) {
        const kivodt::Limits& limits = entry.limits;
        for (int width : {limits.minWidth, limits.defaultWidth, limits.maxWidth}) {
            for (double value : values) {
                entry.function(field, width, 0, value);
            }
        }
    }
    for (const kivodt::InformatEntry& entry : informats) {
        for (const char* text : texts) {
            const int length = static_cast<int>(std::strlen(text));
            entry.function(text, length, length, 0, &result);
        }
    }
    const long after = allocations.load();
    EXPECT_EQ(after - before, 0);
    // The counter does count: a block taken here shows.
    delete new int(1);
    EXPECT_EQ(allocations.load(), after + 1);
    EXPECT_FALSE(formats.empty());
    EXPECT_FALSE(informats.empty());
}

}  // namespace
