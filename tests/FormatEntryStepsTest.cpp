// The steps every date, time and datetime format of the catalog takes before its layout, at every width
// and decimals it accepts: a missing value prints as blanks and its character, which the decimals move
// left only where the catalog says they do, and a value just past either end of the calendar, counted
// in the format's kind of value, fills the field with "*".
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "FormatFieldSupport.h"
#include "kivodt/Catalog.h"
#include "kivox/Missing.h"

namespace {

using kivo::test::formatField;
using kivodt::ValueKind;

// The values next to the calendar's first day (1 January 1582) and after its last (31 December 20000).
std::pair<double, double> beyondTheCalendar(ValueKind kind) {
    constexpr double FIRST_DAY = -138061, LAST_DAY = 6589340, DAY = 86400;
    if (kind == ValueKind::DAY) {
        return {FIRST_DAY - 1, LAST_DAY + 1};
    }
    return {FIRST_DAY * DAY - 0.5, (LAST_DAY + 1) * DAY};
}

TEST(FormatEntrySteps, MissingCharacterAndStarsBeyondTheCalendar) {
    int checked = 0;
    for (const kivodt::FormatEntry& entry : kivodt::formatCatalog()) {
        if (entry.kind == ValueKind::NUMBER || entry.writesBytes) {
            continue;  // the numeric and packed fields have tables of their own
        }
        const bool moves = entry.limits.decimals == kivodt::Decimals::MISSING_POSITION;
        const auto [before, after] = beyondTheCalendar(entry.kind);
        for (int width = entry.limits.minWidth; width <= entry.limits.maxWidth; ++width) {
            const std::string stars(static_cast<std::size_t>(width), '*');
            for (int decimals = 0; decimals <= kivodt::maxDecimals(entry.limits, width); ++decimals) {
                std::string missing(static_cast<std::size_t>(width), ' ');
                missing[static_cast<std::size_t>(width - 1 - (moves ? decimals : 0))] = '.';
                const std::string spec =
                    std::string(entry.name) + std::to_string(width) + "." + std::to_string(decimals);
                EXPECT_EQ(formatField(entry.function, width, decimals, kivo::lum_numeric::MISSING), missing) << spec;
                EXPECT_EQ(formatField(entry.function, width, decimals, before), stars) << spec;
                EXPECT_EQ(formatField(entry.function, width, decimals, after), stars) << spec;
                ++checked;
            }
        }
    }
    EXPECT_GT(checked, 0);
}

}  // namespace
