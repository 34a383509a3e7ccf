// Every byte of every field, held fixed: a hash of the fields of seeded values (SeededValues.h, each
// value at the next width and decimals of the format's range), for the formats whose writers are tuned
// for speed (the date and time ones, and the real layouts with their shared digit and field writers)
// one by one, and for the whole catalog together. A change that moves any byte fails here;
// tools/check-equivalence.sh against the commit before it shows which format and how many values.
#include <gtest/gtest.h>

#include <cstdint>
#include <string_view>

#include "SeededValues.h"
#include "kivoconvert/Catalog.h"

namespace {

constexpr std::uint64_t SEED = 20261122;


std::uint64_t hashFields(const kivoconvert::FormatEntry& entry, long count) {
    const kivoconvert::Limits& limits = entry.limits;
    const int widths = limits.maxWidth - limits.minWidth + 1;
    kivo::testing::SeededValues values(SEED);
    std::uint64_t hash = kivo::testing::FIELD_HASH_START;
    for (long i = 0; i < count; ++i) {
        const int width = limits.minWidth + static_cast<int>(i % widths);
        const int decimals = static_cast<int>(i / widths % (kivoconvert::maxDecimals(limits, width) + 1));
        char field[kivoconvert::MAX_FIELD];
        entry.function(field, width, decimals, values.next());
        hash = kivo::testing::hashField(field, width, hash);
    }
    return hash;
}

struct HeldFormat {
    std::string_view name;
    std::uint64_t hash;
};

constexpr HeldFormat TUNED_FORMATS[] = {
    {"DATE", 0xB197894C2A49FC12ULL},
    {"DTDATE", 0xF4AE7262049CE92FULL},
    {"DATETIME", 0x21ADA08D4BD05425ULL},
    {"TIME", 0x5D89E0F6FAD5EF68ULL},
    {"BEST", 0xC1507F6B2BC97CFBULL},
    {"D", 0xB9AB1C10B7D693B7ULL},
    {"E", 0xA96DB32738FB7750ULL},
    {"", 0xC3F71CC4029BDD57ULL},  // w.d
    {"PERCENT", 0xE515E402CF35E08ULL},
};

TEST(FieldHashes, TunedFormatsKeepEveryByteOfAHundredThousandFields) {
    for (const HeldFormat& held : TUNED_FORMATS) {
        const kivoconvert::FormatEntry* entry = kivoconvert::findFormat(held.name);
        ASSERT_NE(entry, nullptr) << held.name;
        EXPECT_EQ(hashFields(*entry, 100000), held.hash) << held.name;
    }
}

TEST(FieldHashes, EveryCatalogFormatKeepsEveryByte) {
    std::uint64_t hash = 0;
    for (const kivoconvert::FormatEntry& entry : kivoconvert::formatCatalog()) {
        hash = hash * 31 + hashFields(entry, 5000);
    }
    EXPECT_EQ(hash, 0x43D414E82248ECD0ULL);
}

}  // namespace
