#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

#include "kivo/Informats.h"

namespace kivo::test {

// What an informat made of a field: its return code and the result, which starts as UNTOUCHED.
struct InformatReading {
    int code;
    double result;
};

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

}  // namespace kivo::test
