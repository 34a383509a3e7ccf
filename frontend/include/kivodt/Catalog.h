#pragma once

#include <span>
#include <string_view>

#include "kivo/Formats.h"
#include "kivo/Informats.h"

namespace kivodt {

// What a user may ask of one format or informat: its widths, default width and decimals. Each range
// follows from the widths its layout handles; the default is the width a user sees most often.
struct Limits {
    int minWidth;
    int maxWidth;
    int defaultWidth;
    int minDecimals;
    int maxDecimals;
    // The decimals must also stay below the width (they place the missing character inside it).
    bool decimalsBelowWidth;
};

struct FormatEntry {
    std::string_view name;  // upper case; the plain numeric layout ("12.3") has the empty name
    KivoFormatFunction function;
    Limits limits;
};

struct InformatEntry {
    std::string_view name;
    KivoInformatFunction function;
    Limits limits;
};

// Every format and informat the front end knows, in the order `kivodt list` shows them.
std::span<const FormatEntry> formatCatalog();
std::span<const InformatEntry> informatCatalog();

// Case-insensitive look-up by name; nullptr when there is none.
const FormatEntry* findFormat(std::string_view name);
const InformatEntry* findInformat(std::string_view name);

// The families, one per subsystem; formatCatalog() is their concatenation.
std::span<const FormatEntry> dateFormatEntries();
std::span<const FormatEntry> timeFormatEntries();
std::span<const FormatEntry> numericFormatEntries();
std::span<const InformatEntry> freeFormInformatEntries();

}  // namespace kivodt
