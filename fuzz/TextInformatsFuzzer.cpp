// Arbitrary bytes into every informat of kivodt's catalog and into the log-time informat. The field is
// a heap block of exactly its size, so a read past either end is caught by AddressSanitizer. An
// informat returns 0 or 1, and a rejected field leaves the result exactly as it was (the log-time
// informat and STIMER may store a missing value and still return false). HHMMSS and the week
// informats are also run with their first middle argument cutting the field short.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "kivo/LogTimeInformat.h"
#include "kivoconvert/Catalog.h"
#include "kivox/Missing.h"

namespace {

// A pattern no informat stores.
constexpr std::uint64_t UNTOUCHED = 0x7FF4DEADBEEF0001ULL;

std::uint64_t bitsOf(double x) {
    std::uint64_t bits;
    std::memcpy(&bits, &x, sizeof bits);
    return bits;
}

double untouched() {
    double x;
    std::memcpy(&x, &UNTOUCHED, sizeof x);
    return x;
}

void check(bool condition) {
    if (!condition) {
        std::abort();
    }
}

bool isMissing(double value) {
    return (bitsOf(value) & kivo::lum_numeric::MISSING_MASK) == kivo::lum_numeric::MISSING_MASK;
}

// STIMER, like the log-time informat it calls, may store the missing value and still return 0.
void runInformat(KivoInformatFunction informat, const char* field, int width, int length,
                 bool storesMissingWhenRejecting = false) {
    double result = untouched();
    const int code = informat(field, width, length, 0, &result);
    check(code == 0 || code == 1);
    check(code == 1 || bitsOf(result) == UNTOUCHED || (storesMissingWhenRejecting && isMissing(result)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::unique_ptr<char[]> field(new char[size]);
    if (size > 0) {
        std::memcpy(field.get(), data, size);
    }
    const int width = static_cast<int>(size);
    for (const kivoconvert::InformatEntry& entry : kivoconvert::informatCatalog()) {
        runInformat(entry.function, field.get(), width, width, entry.storesMissingWhenRejecting);
    }
    // The informats that cut their field at the length argument.
    for (const int length : {-1, 0, width / 2, width - 1}) {
        for (KivoInformatFunction cut : {hhmmssInformat, weekuInformat, weekvInformat, weekwInformat}) {
            runInformat(cut, field.get(), width, length);
        }
    }
    double result = untouched();
    if (!kivo::kivoLogTimeInformat(field.get(), width, width, 0, result)) {
        check(bitsOf(result) == UNTOUCHED || isMissing(result));
    }
    return 0;
}
