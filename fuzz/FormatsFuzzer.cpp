// Every format kivodt offers, at every width and decimals its catalog accepts, on arbitrary values. The
// field is a heap block of exactly `width` bytes, so a write past either end is caught by
// AddressSanitizer; a byte the format leaves unwritten (still NUL, or for the formats that write bytes,
// different in a second run over another fill) stops the run.
//
// Input: byte 0 picks the format, byte 1 the width, byte 2 the decimals, then up to 8 bytes of the
// value. With byte 3 below 0x80 the value is a day or seconds serial near the calendar's range (bytes
// as a fraction of it), otherwise the raw bit pattern: missing values, NaNs, infinities, subnormals.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "kivoconvert/Catalog.h"

namespace {

double valueFrom(const std::uint8_t* data, std::size_t size) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, data, size < 8 ? size : 8);
    if (size > 0 && data[0] < 0x80) {
        // A serial of either kind, spread over a little more than the supported days and seconds.
        const double unit = static_cast<double>(bits >> 11) / 9007199254740992.0;  // [0, 1)
        const double span = (data[0] & 1) != 0 ? 6.8e6 : 6.8e6 * 86400.0;
        return (unit - 0.05) * span;
    }
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) {
        return 0;
    }
    const std::span<const kivoconvert::FormatEntry> catalog = kivoconvert::formatCatalog();
    const kivoconvert::FormatEntry& entry = catalog[data[0] % catalog.size()];
    const kivoconvert::Limits& limits = entry.limits;
    const int width = limits.minWidth + data[1] % (limits.maxWidth - limits.minWidth + 1);
    const int decimals = data[2] % (kivoconvert::maxDecimals(limits, width) + 1);
    const double value = valueFrom(data + 3, size - 3);

    const std::unique_ptr<char[]> field(new char[static_cast<std::size_t>(width)]);
    std::memset(field.get(), 0, static_cast<std::size_t>(width));
    entry.function(field.get(), width, decimals, value);
    if (entry.writesBytes) {
        // A binary field may hold NUL bytes: an unwritten byte shows instead as a difference from a
        // second run over a field filled otherwise.
        const std::unique_ptr<char[]> again(new char[static_cast<std::size_t>(width)]);
        std::memset(again.get(), 0xFF, static_cast<std::size_t>(width));
        entry.function(again.get(), width, decimals, value);
        if (std::memcmp(field.get(), again.get(), static_cast<std::size_t>(width)) != 0) {
            std::abort();
        }
        return 0;
    }
    if (std::memchr(field.get(), 0, static_cast<std::size_t>(width)) != nullptr) {
        std::abort();
    }
    return 0;
}
