#pragma once

#include <span>
#include <string_view>

#include "formats/FieldLimits.h"
#include "kivo/Formats.h"
#include "kivo/Informats.h"

namespace kivoconvert {

// The widths and decimals each entry takes are the library's own (src/formats/FieldLimits.h, where each
// range is written once): the catalog names them, it does not write them again.
namespace limits = kivo::limits;
using Decimals = limits::Decimals;
using Limits = limits::Limits;
using limits::maxDecimals;

// Whether an entry's decimals count places below its width (the digits after a point, or where a missing
// character moves), rather than standing apart from it.
constexpr bool decimalsBelowWidth(const Limits& limits) noexcept {
    return limits.decimals == Decimals::MISSING_POSITION || limits.decimals == Decimals::LAYOUT;
}

// The widest field the engine offers: the widest any layout plans for.
inline constexpr int MAX_FIELD = limits::WIDEST_FIELD;

// What an entry's number is: a day serial, a seconds serial, a time of day or duration in seconds, or
// a plain number.
enum class ValueKind { DAY, DATETIME, TIME, NUMBER };

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

// An entry's name as messages and lists show it: "w.d" for the plain numeric layout, which has none.
constexpr std::string_view shownName(std::string_view name) noexcept { return name.empty() ? "w.d" : name; }

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
