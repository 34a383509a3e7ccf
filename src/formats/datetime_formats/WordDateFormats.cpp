// Dates with the month, and for some the weekday, spelled out: WORDDATE (March 17, 2021), WORDDATX
// (17 March 2021), WEEKDATE (Wednesday, March 17, 2021), WEEKDATX and DTWKDATX (Wednesday, 17 March
// 2021). The width alone chooses the layout, never the length of the names at hand: each layout's
// narrowest width holds the longest names (nine characters), a two-digit day and a four-digit year.
#include <span>
#include <string_view>

#include "formats/FieldLimits.h"
#include "formats/FieldWriting.h"
#include "formats/datetime_formats/DateLayout.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"

namespace kivo::format::datetime {

namespace {

using layout::WordDate;

// A layout serves its narrowest width and the wider ones up to the next layout's. The text is measured
// first and right-aligned: the blanks it leaves go in front.
struct WordLayout {
    int narrowest;
    layout::Row<WordDate> row;
};

// A five-digit year that does not quite fit is cut to its first four digits. The two families do it
// differently, and on purpose: the month-first ones when the text is one character too long, leaving
// no blank; the day-first ones when the text would fill the field exactly, leaving one blank in front.
enum class YearCut { WHEN_ONE_OVER, WHEN_FULL };

struct WordFamily {
    YearCut yearCut;
    std::span<const WordLayout> layouts;
};

const WordLayout& layoutFor(std::span<const WordLayout> layouts, int width) noexcept {
    const WordLayout* chosen = &layouts.front();
    for (const WordLayout& layout : layouts) {
        if (width >= layout.narrowest) {
            chosen = &layout;
        }
    }
    return *chosen;
}

// Whether the family cuts this text's five-digit year, and the blanks it then writes in front.
bool cutsYear(YearCut cut, int length, int width, int& blanks) noexcept {
    if (cut == YearCut::WHEN_ONE_OVER && length == width + 1) {
        blanks = 0;
        return true;
    }
    if (cut == YearCut::WHEN_FULL && length == width) {
        blanks = 1;
        return true;
    }
    return false;
}

void writeWordDate(const Date& date, char*& out, int width, const WordFamily& family) noexcept {
    const layout::Row<WordDate>& row = layoutFor(family.layouts, width).row;
    const Date::YMD ymd = date.yearMonthDay();
    WordDate words{ymd.year, ymd.month, ymd.day, date.dayOfWeek()};
    const int length = row.length(words);
    int blanks = width - length;
    const bool fiveDigitYear = row.shows('L') && words.year > field::LARGEST_FOUR_DIGIT_YEAR;
    if (fiveDigitYear && cutsYear(family.yearCut, length, width, blanks)) {
        words.year /= 10;
    } else if (length > width) {
        // Only a field narrower than three characters, or a host whose names run past nine characters,
        // gets here: the field shows that the date does not fit rather than being overrun.
        field::stars(out, width);
        out += width;
        return;
    }
    field::blanks(out, blanks);
    out = row.write(out, words, width);
}

template <layout::Pieces ROW>
constexpr layout::Row<WordDate> row = layout::row<ROW, WordDate>;

// Below 9 the short name, from 9 the long one: the narrowest widths are the host's smallest.
constexpr int NARROWEST = limits::WORD_DATE.minWidth;
static_assert(limits::WEEKDAY_DATE.minWidth == NARROWEST);

constexpr WordLayout WORDDATE_LAYOUTS[] = {
    {NARROWEST, row<"b">},  // Mar
    {9, row<"B">},          // March
    {12, row<"b e, L">},    // Mar 17, 2021
    {18, row<"B e, L">},    // March 17, 2021
};
constexpr WordLayout WORDDATX_LAYOUTS[] = {
    {NARROWEST, row<"b">},  // Mar
    {9, row<"B">},          // March
    {12, row<"e b L">},     // 17 Mar 2021
    {18, row<"e B L">},     // 17 March 2021
};
constexpr WordLayout WEEKDATE_LAYOUTS[] = {
    {NARROWEST, row<"a">},    // Wed
    {9, row<"A">},            // Wednesday
    {15, row<"a, b e, y">},   // Wed, Mar 17, 21
    {17, row<"a, b e, L">},   // Wed, Mar 17, 2021
    {23, row<"A, b e, L">},   // Wednesday, Mar 17, 2021
    {29, row<"A, B e, L">},   // Wednesday, March 17, 2021
};
constexpr WordLayout WEEKDATX_LAYOUTS[] = {
    {NARROWEST, row<"a">},   // Wed
    {9, row<"A">},           // Wednesday
    {15, row<"a, e b y">},   // Wed, 17 Mar 21
    {17, row<"a, e b L">},   // Wed, 17 Mar 2021
    {23, row<"A, e b L">},   // Wednesday, 17 Mar 2021
    {29, row<"A, e B L">},   // Wednesday, 17 March 2021
};

// The layout chosen for a width holds the longest names (nine characters), a two-digit day and a
// four-digit year at its narrowest width: the width alone chooses, never the names at hand. The
// month-first layouts fill that width exactly.
constexpr bool longestTextFits(std::span<const WordLayout> layouts, bool fillsExactly) noexcept {
    for (const WordLayout& layout : layouts) {
        const int longest = layout.row.longestLength;
        if (longest > layout.narrowest || (fillsExactly && layout.narrowest > 9 && longest != layout.narrowest)) {
            return false;
        }
    }
    return true;
}
static_assert(longestTextFits(WORDDATE_LAYOUTS, true) && longestTextFits(WEEKDATE_LAYOUTS, true));
static_assert(longestTextFits(WORDDATX_LAYOUTS, false) && longestTextFits(WEEKDATX_LAYOUTS, false));

constexpr WordFamily WORDDATE{YearCut::WHEN_ONE_OVER, WORDDATE_LAYOUTS};
constexpr WordFamily WORDDATX{YearCut::WHEN_FULL, WORDDATX_LAYOUTS};
constexpr WordFamily WEEKDATE{YearCut::WHEN_ONE_OVER, WEEKDATE_LAYOUTS};
constexpr WordFamily WEEKDATX{YearCut::WHEN_FULL, WEEKDATX_LAYOUTS};

void writeWorddate(const Date& date, char*& out, int width) noexcept { writeWordDate(date, out, width, WORDDATE); }
void writeWorddatx(const Date& date, char*& out, int width) noexcept { writeWordDate(date, out, width, WORDDATX); }
void writeWeekdate(const Date& date, char*& out, int width) noexcept { writeWordDate(date, out, width, WEEKDATE); }

}  // namespace

// 22356 (Wednesday, 17 March 2021) at width 16: "  Wed, 17 Mar 21".
void doWeekdatxFormat(const Date& date, char*& out, int width) { writeWordDate(date, out, width, WEEKDATX); }

}  // namespace kivo::format::datetime

namespace datetime = kivo::format::datetime;
namespace entry = kivo::format::datetime::entry;

extern "C" {

int worddateFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeWorddate);
}

int worddatxFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeWorddatx);
}

int weekdateFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeWeekdate);
}

int weekdatxFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::doWeekdatxFormat);
}

int dtwkdatxFormat(char* field, int width, int, double value) {
    return entry::withDatetimeDate(field, width, entry::NO_DECIMALS, value, datetime::doWeekdatxFormat);
}

}  // extern "C"
