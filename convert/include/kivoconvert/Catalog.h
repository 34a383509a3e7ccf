#pragma once

#include <span>
#include <string_view>

#include "kivo/Formats.h"
#include "kivo/Informats.h"

namespace kivoconvert {

// The widest field the engine offers: the real layouts plan up to 32 digit places, and no date or
// time layout needs more.
inline constexpr int MAX_FIELD = 32;

// What the decimals of a spec do for an entry, and so which ones it accepts.
enum class Decimals {
    NOT_USED,          // only 0
    MISSING_POSITION,  // below the width: they move the missing character left of the field's end
    LAYOUT,            // below the width: digits of the layout (a fraction of a second, the d of w.d)
    SIGNIFICANT,       // up to MAX_FIELD - 1: the digits D aims for; its layout bounds them, not the width
    PASSED_THROUGH,    // up to MAX_FIELD - 1: handed to an informat as its decimals argument
};

// What an entry's number is: a day serial, a seconds serial, a time of day or duration in seconds, or
// a plain number.
enum class ValueKind { DAY, DATETIME, TIME, NUMBER };

// What a user may ask of one format or informat: its widths, default width and decimals. Each range
// follows from the widths its layout handles; the default is the width a user sees most often.
struct Limits {
    int minWidth;
    int maxWidth;
    int defaultWidth;
    Decimals decimals;
};

// The largest decimals an entry accepts at a width (the smallest is always 0).
constexpr int maxDecimals(const Limits& limits, int width) {
    switch (limits.decimals) {
        case Decimals::NOT_USED:
            return 0;
        case Decimals::MISSING_POSITION:
        case Decimals::LAYOUT:
            return width - 1 < MAX_FIELD - 1 ? width - 1 : MAX_FIELD - 1;
        case Decimals::SIGNIFICANT:
        case Decimals::PASSED_THROUGH:
            break;
    }
    return MAX_FIELD - 1;
}

// One format: its name as a user writes it (upper case; the plain numeric layout "12.3" has the empty
// name), the library's exported symbol it calls ("ddmmyybFormat"; empty for the engine's own
// numeric formats), the function, a line on what it shows, its limits and the kind of value it shows. writesBytes marks
// the formats whose field is binary (packed decimals), shown only as hex pairs.
struct FormatEntry {
    std::string_view name;
    std::string_view symbol;
    KivoFormatFunction function;
    std::string_view description;  // what the field shows, in a line of the reference
    Limits limits;
    ValueKind kind;
    bool writesBytes = false;
};

// How an informat reads its field: one layout of text, whatever layout of a date, time or datetime it
// recognises (it never rejects a text: one it cannot read gives the missing value), or binary bytes
// (packed decimals, machine clocks), which a user gives as hex pairs.
enum class Reading : unsigned char { ONE_LAYOUT, ANY_LAYOUT, BYTES };

// storesMissingWhenRejecting marks STIMER, which stores the missing value for a missing-value notation
// and still returns 0; every other informat leaves the result alone when it rejects a text.
struct InformatEntry {
    std::string_view name;
    std::string_view symbol;
    KivoInformatFunction function;
    std::string_view description;  // what it reads, in a line of the reference
    std::string_view examples;     // texts it reads, "|" between them (hex pairs for bytes)
    Limits limits;
    ValueKind kind;
    Reading reading = Reading::ONE_LAYOUT;
    bool storesMissingWhenRejecting = false;

    bool readsBytes() const noexcept { return reading == Reading::BYTES; }
};

// Every format and informat the engine knows, in the order the front ends list them.
std::span<const FormatEntry> formatCatalog();
std::span<const InformatEntry> informatCatalog();

// Case-insensitive look-up by name; nullptr when there is none.
const FormatEntry* findFormat(std::string_view name);
const InformatEntry* findInformat(std::string_view name);

// The families, one per subsystem; formatCatalog() is their concatenation.
std::span<const FormatEntry> dateFormatEntries();
std::span<const FormatEntry> dayMonthYearFormatEntries();  // DDMMYY ... YYQR and their variants
std::span<const FormatEntry> wordWeekEraFormatEntries();   // word dates, week numbers, Julian and eras
std::span<const FormatEntry> timeFormatEntries();
std::span<const FormatEntry> numericFormatEntries();
std::span<const InformatEntry> freeFormInformatEntries();
std::span<const InformatEntry> textInformatEntries();     // one fixed text layout each
std::span<const InformatEntry> machineInformatEntries();  // packed decimals, machine clocks, week dates

}  // namespace kivoconvert

// A catalog entry of a library format or informat: the symbol's text and the function come from the
// one token `stem`, so the two cannot disagree; the catalog test checks NAME against the stem and the
// stem against the library's exports.
//   KIVO_FORMAT_ENTRY(DDMMYYB, ddmmyyb, "day, month and year with blanks", limits, kind)
//   KIVO_INFORMAT_ENTRY(DATE, date, "day, month abbreviation and year", "17MAR2021|17-mar-21", limits, kind)
#define KIVO_FORMAT_ENTRY(NAME, stem, ...) \
    ::kivoconvert::FormatEntry { #NAME, #stem "Format", stem##Format, __VA_ARGS__ }
#define KIVO_INFORMAT_ENTRY(NAME, stem, ...) \
    ::kivoconvert::InformatEntry { #NAME, #stem "Informat", stem##Informat, __VA_ARGS__ }
