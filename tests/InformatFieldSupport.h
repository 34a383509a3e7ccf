#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "kivo/Informats.h"
#include "kivox/Missing.h"

namespace kivo::test {

// What an informat made of a field: its return code and the result, which starts as UNTOUCHED.
struct InformatReading { int code; double result; };

// A result no informat stores: a rejected text must leave exactly these bits.
inline const double UNTOUCHED = std::bit_cast<double>(std::uint64_t{0x7FF4DEADBEEF0001});

inline bool sameBits(double a, double b) { return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b); }

// Runs an informat on a heap copy of exactly the text's bytes, so that a read past the field shows
// under AddressSanitizer. The first middle argument is length.
inline InformatReading readField(KivoInformatFunction informat, std::string_view text, int length) {
    const std::unique_ptr<char[]> field(new char[text.size()]);
    std::memcpy(field.get(), text.data(), text.size());
    const int width = static_cast<int>(text.size());
    InformatReading reading{0, UNTOUCHED};
    reading.code = informat(field.get(), width, length, 0, &reading.result);
    return reading;
}

// The same with the text's own length as the first middle argument, as a host passes it.
inline InformatReading readField(KivoInformatFunction informat, std::string_view text) {
    return readField(informat, text, static_cast<int>(text.size()));
}

// A table row's mark for "returns 0 and leaves the result untouched"; NAN marks the ordinary missing value.
inline constexpr double REJECTED = -1e300;

// A reading against what a table row expects of it.
inline void expectReading(const InformatReading& reading, double expected, const std::string& where) {
    EXPECT_EQ(reading.code, expected == REJECTED ? 0 : 1) << where;
    if (expected == REJECTED || std::isnan(expected)) {
        EXPECT_TRUE(sameBits(reading.result, expected == REJECTED ? UNTOUCHED : kivo::lum_numeric::MISSING))
            << where << " stored " << reading.result;
    } else {
        EXPECT_DOUBLE_EQ(reading.result, expected) << where;
    }
}

}  // namespace kivo::test
