#pragma once

// The widths and decimals each format and informat takes: the narrowest width its layouts can fill, the
// widest, the width a user sees most often, and what its decimals do. Each range is written here once;
// the writers' width tables are checked against it where they are compiled, the failure tables name it,
// and a front end's catalog reads its rows from here rather than writing the numbers again.
//
// Header-only data with standard headers alone: it exports nothing, and a front end may include it
// without the rest of the library's internals.
namespace kivo::limits {

// What the decimals of a spec do for a format or informat, and so which ones it takes (the smallest is
// always 0).
enum class Decimals {
    NOT_USED,          // only 0
    MISSING_POSITION,  // below the width: they move the missing character left of the field's end
    LAYOUT,            // below the width: digits of the layout (a fraction of a second, the d of w.d)
    SIGNIFICANT,       // up to WIDEST_FIELD - 1: the digits D aims for; its layout bounds them, not the width
    PASSED_THROUGH,    // up to WIDEST_FIELD - 1: handed to an informat as its decimals argument
};

// The widest field any layout is planned for: the real layouts plan up to 32 digit places, and no date
// or time layout needs more. The layouts that pad on the left have no widest width of their own and
// stop here.
inline constexpr int WIDEST_FIELD = 32;

// The packed Julian formats: three bytes hold the day of the year and its sign, and sixteen are more
// than any year needs.
inline constexpr int WIDEST_PACKED = 16;

struct Limits {
    int minWidth;
    int maxWidth;
    int defaultWidth;
    Decimals decimals;
};

// The largest decimals accepted at a width.
constexpr int maxDecimals(const Limits& limits, int width) noexcept {
    switch (limits.decimals) {
        case Decimals::NOT_USED:
            return 0;
        case Decimals::MISSING_POSITION:
        case Decimals::LAYOUT:
            return width - 1 < WIDEST_FIELD - 1 ? width - 1 : WIDEST_FIELD - 1;
        case Decimals::SIGNIFICANT:
        case Decimals::PASSED_THROUGH:
            break;
    }
    return WIDEST_FIELD - 1;
}

// ---- Dates and single components --------------------------------------------------------------------

// DATE and DTDATE: 17MAR (5) to 17-MAR-2021 (11); the default shows the two-digit year, 17MAR21.
inline constexpr Limits DATE{5, 11, 7, Decimals::NOT_USED};
// DAY, JULDAY and MONTH: a day in two positions, a day of the year in three, a month in two (or in one
// character, 1 to 9 and A to C, at width 1). The widths below would overrun the component.
inline constexpr Limits DAY{2, WIDEST_FIELD, 2, Decimals::NOT_USED};
inline constexpr Limits DAY_OF_YEAR{3, WIDEST_FIELD, 3, Decimals::NOT_USED};
inline constexpr Limits MONTH{1, WIDEST_FIELD, 2, Decimals::NOT_USED};
inline constexpr Limits WEEKDAY{1, WIDEST_FIELD, 1, Decimals::NOT_USED};
// QTR shows one digit; QTRR a numeral up to three characters (III) and cuts nothing.
inline constexpr Limits QUARTER{1, WIDEST_FIELD, 1, Decimals::MISSING_POSITION};
inline constexpr Limits ROMAN_QUARTER{3, WIDEST_FIELD, 3, Decimals::MISSING_POSITION};
// DOWNAME and MONNAME cut a name on the right, so one position will do; the default fits September.
inline constexpr Limits NAME{1, WIDEST_FIELD, 9, Decimals::MISSING_POSITION};
// YEAR and DTYEAR: two positions hold the year's last two digits.
inline constexpr Limits YEAR{2, WIDEST_FIELD, 4, Decimals::MISSING_POSITION};
inline constexpr Limits DTYEAR{2, WIDEST_FIELD, 4, Decimals::NOT_USED};

// ---- Day-month-year, month-year and quarter ----------------------------------------------------------

// DDMMYY, MMDDYY and YYMMDD have a row for each width of 2..10 (2..8 run together, the N variants) and
// no other; the defaults show the two-digit year, with its separators (31/12/99) or without (311299).
inline constexpr Limits DAY_MONTH_YEAR{2, 10, 8, Decimals::NOT_USED};
inline constexpr Limits DAY_MONTH_YEAR_RUN_TOGETHER{2, 8, 6, Decimals::NOT_USED};
// MMYY and YYMM pad on the left without end, from the narrowest row: 12/99, or 1299 run together. The
// defaults show the four-digit year: 12/1999, 199912.
inline constexpr Limits MONTH_YEAR{5, WIDEST_FIELD, 7, Decimals::NOT_USED};
inline constexpr Limits MONTH_YEAR_RUN_TOGETHER{4, WIDEST_FIELD, 6, Decimals::NOT_USED};
// MONYY and DTMONYY have rows for 5..7 only (MAR99, a blank and MAR99, MAR1999). YYMON pads like YYMM
// and is the one of these whose decimals move the missing character.
inline constexpr Limits MONYY{5, 7, 5, Decimals::NOT_USED};
inline constexpr Limits YYMON{5, WIDEST_FIELD, 7, Decimals::MISSING_POSITION};
// YYQ and its separated variants from 99-4, YYQN from 994; the defaults 1999-4 and 19994.
inline constexpr Limits YEAR_QUARTER{4, WIDEST_FIELD, 6, Decimals::NOT_USED};
inline constexpr Limits YEAR_QUARTER_RUN_TOGETHER{3, WIDEST_FIELD, 5, Decimals::NOT_USED};
// The Roman quarter takes up to three positions and the year needs two beside it: from 99QIII (6) and
// 99III (5). The defaults leave every quarter the four-digit year: 1999QIII, 1999III.
inline constexpr Limits YEAR_ROMAN_QUARTER{6, WIDEST_FIELD, 8, Decimals::NOT_USED};
inline constexpr Limits YEAR_ROMAN_QUARTER_RUN_TOGETHER{5, WIDEST_FIELD, 7, Decimals::NOT_USED};

// ---- Words, weeks and eras ---------------------------------------------------------------------------

// From the three letters of a short name; the defaults hold the longest names in full:
// "September 15, 2021" (18) and "Wednesday, September 15, 2021" (29).
inline constexpr Limits WORD_DATE{3, WIDEST_FIELD, 18, Decimals::NOT_USED};
inline constexpr Limits WEEKDAY_DATE{3, WIDEST_FIELD, 29, Decimals::NOT_USED};
// From W11; WEEKx defaults to 2021-W11-04, YYWEEKx to 2021-W11.
inline constexpr Limits WEEK{3, WIDEST_FIELD, 11, Decimals::NOT_USED};
inline constexpr Limits YEAR_WEEK{3, WIDEST_FIELD, 8, Decimals::NOT_USED};
// JULIAN from its two-digit-year row, 21076.
inline constexpr Limits JULIAN{5, WIDEST_FIELD, 5, Decimals::NOT_USED};
// MINGUO and NENGO span exactly the widths of their rows; any other stops the process.
inline constexpr Limits MINGUO{6, 10, 8, Decimals::NOT_USED};
inline constexpr Limits NENGO{2, 10, 10, Decimals::NOT_USED};
inline constexpr Limits PACKED_JULIAN{3, WIDEST_PACKED, 4, Decimals::NOT_USED};

// ---- Times and datetimes -----------------------------------------------------------------------------

// Below each minimum a layout would write outside the field ("**" of HHMM and MMSS, a padded hour of
// TOD, "AM" of TIMEAMPM, the date of DATETIME and DATEAMPM, the shortest MONDYTM text with a two-digit
// day); MDYAMPM and DMYAMPM write nothing below 8. The defaults are the layouts seen most often: h:mm:ss,
// h:mm, m:ss, whole hours, hh:mm:ss, h:mm:ss AM, 17MAR21:13:45:30, 17MAR21:01:45:30 PM,
// 03/17/2021 13:45 PM and MAR 17 2021 01:45:30 PM.
inline constexpr Limits TIME{2, WIDEST_FIELD, 8, Decimals::LAYOUT};
inline constexpr Limits HHMM{2, WIDEST_FIELD, 5, Decimals::LAYOUT};
inline constexpr Limits MMSS{2, WIDEST_FIELD, 5, Decimals::LAYOUT};
inline constexpr Limits HOUR{2, WIDEST_FIELD, 2, Decimals::LAYOUT};
inline constexpr Limits TOD{2, WIDEST_FIELD, 8, Decimals::LAYOUT};
inline constexpr Limits TIMEAMPM{2, WIDEST_FIELD, 11, Decimals::LAYOUT};
inline constexpr Limits DATETIME{7, WIDEST_FIELD, 16, Decimals::LAYOUT};
inline constexpr Limits DATEAMPM{7, WIDEST_FIELD, 19, Decimals::LAYOUT};
// Their decimals only move the missing character.
inline constexpr Limits SLASH_DATE_AM_PM{8, WIDEST_FIELD, 19, Decimals::MISSING_POSITION};
inline constexpr Limits MONDYTM{20, WIDEST_FIELD, 23, Decimals::LAYOUT};

// ---- Real numbers ------------------------------------------------------------------------------------

// BEST at width 1 still holds a one-digit number (or a single 0 for a small negative one); D's decimals
// are the significant decimals wanted, bounded by its layout rather than the width; 0.0E+00 is the
// shortest field the E layout writes; the plain layout ("12.3", w.d) places the missing character on
// the point; a negative percentage needs "(", one digit and "%)".
inline constexpr Limits BEST{1, WIDEST_FIELD, 12, Decimals::NOT_USED};
inline constexpr Limits D{1, WIDEST_FIELD, 12, Decimals::SIGNIFICANT};
inline constexpr Limits E{7, WIDEST_FIELD, 12, Decimals::NOT_USED};
inline constexpr Limits FIXED_DECIMALS{1, WIDEST_FIELD, 12, Decimals::LAYOUT};
inline constexpr Limits PERCENT{4, WIDEST_FIELD, 6, Decimals::LAYOUT};

// ---- Informats ---------------------------------------------------------------------------------------

// The free-form informats read whatever layout fits the field; the defaults fit the usual layouts:
// 15JAN2000 (9), 2000-01-15T10:30:00 (19) and 10:30:00 (8).
inline constexpr Limits ANYDTDTE{1, WIDEST_FIELD, 9, Decimals::NOT_USED};
inline constexpr Limits ANYDTDTM{1, WIDEST_FIELD, 19, Decimals::NOT_USED};
inline constexpr Limits ANYDTTME{1, WIDEST_FIELD, 8, Decimals::NOT_USED};

// A text informat's minimum is the shortest text that reads as a value: "1JAN0", "1/1/0" (DDMMYY,
// MMDDYY), "00115" (YYMMDD), "01/1/1" and "R1/1/1" (the era forms), "JAN0", "1" (YYMMN, JULIAN and
// HHMMSS read one digit as a whole value), "0Q1", "00-01-01", "1:0", "1JAN0 1:0", "1/1/0 1:0",
// "JAN1 0 1:0", "0-1-1T1:0", "00:00:00" and "00-01-01 00:00:00". The defaults are the widths of the
// matching format's usual layout (7 for 15JAN00, 8 for 01/15/00, 6 for 2000Q1, 16 for
// 15JAN00:10:30:00); the layouts without a format default to their full length. The decimals are
// handed to the informat, which does not use them.
constexpr Limits text(int minWidth, int defaultWidth) noexcept {
    return {minWidth, WIDEST_FIELD, defaultWidth, Decimals::PASSED_THROUGH};
}
inline constexpr Limits DATE_TEXT = text(5, 7);
inline constexpr Limits DAY_MONTH_YEAR_TEXT = text(5, 8);  // DDMMYY and MMDDYY
inline constexpr Limits YEAR_MONTH_DAY_TEXT = text(5, 8);  // YYMMDD
inline constexpr Limits MINGUO_TEXT = text(6, 8);
inline constexpr Limits NENGO_TEXT = text(6, 10);
inline constexpr Limits MONYY_TEXT = text(4, 5);
inline constexpr Limits YYMMN_TEXT = text(1, 6);
inline constexpr Limits JULIAN_TEXT = text(1, 5);
inline constexpr Limits YYQ_TEXT = text(3, 6);
inline constexpr Limits CANDATE_TEXT = text(8, 10);
inline constexpr Limits TIME_TEXT = text(3, 8);
inline constexpr Limits CANTIME_TEXT = text(8, 8);
inline constexpr Limits HHMMSS_TEXT = text(1, 8);
inline constexpr Limits DATETIME_TEXT = text(9, 16);
inline constexpr Limits SLASH_DATE_AM_PM_TEXT = text(9, 19);  // MDYAMPM and DMYAMPM
inline constexpr Limits MONDYTM_TEXT = text(10, 23);
inline constexpr Limits YMDDTTM_TEXT = text(9, 19);
inline constexpr Limits CANSTAMP_TEXT = text(17, 19);
// STIMER from one digit up; a week date from "W05", its usual layout 2021-W05-03.
inline constexpr Limits STIMER_TEXT = text(1, 8);
inline constexpr Limits WEEK_TEXT = text(3, 11);

// The machine-form informats read exactly the bytes of their word (PDJULG 3 or 4; TODSTAMP and MSEC 1
// to 8, the high bytes of the clock), given as hex pairs; they ignore the decimals.
inline constexpr Limits PACKED_WORD{4, 4, 4, Decimals::NOT_USED};  // PDTIME, RMFDUR, TU, PDJULI
inline constexpr Limits MACHINE_STAMP{8, 8, 8, Decimals::NOT_USED};  // RMFSTAMP, SMFSTAMP, SHRSTAMP
inline constexpr Limits CLOCK_BYTES{1, 8, 8, Decimals::NOT_USED};    // TODSTAMP, MSEC
inline constexpr Limits PDJULG_BYTES{3, 4, 4, Decimals::NOT_USED};

// Every default lies in its range, and no range starts below one position or passes the widest field.
constexpr bool isWellFormed(const Limits& limits) noexcept {
    return limits.minWidth >= 1 && limits.minWidth <= limits.defaultWidth && limits.defaultWidth <= limits.maxWidth &&
           limits.maxWidth <= WIDEST_FIELD;
}
inline constexpr Limits ALL[] = {
    DATE, DAY, DAY_OF_YEAR, MONTH, WEEKDAY, QUARTER, ROMAN_QUARTER, NAME, YEAR, DTYEAR, DAY_MONTH_YEAR,
    DAY_MONTH_YEAR_RUN_TOGETHER, MONTH_YEAR, MONTH_YEAR_RUN_TOGETHER, MONYY, YYMON, YEAR_QUARTER,
    YEAR_QUARTER_RUN_TOGETHER, YEAR_ROMAN_QUARTER, YEAR_ROMAN_QUARTER_RUN_TOGETHER, WORD_DATE, WEEKDAY_DATE, WEEK,
    YEAR_WEEK, JULIAN, MINGUO, NENGO, PACKED_JULIAN, TIME, HHMM, MMSS, HOUR, TOD, TIMEAMPM, DATETIME, DATEAMPM,
    SLASH_DATE_AM_PM, MONDYTM, BEST, D, E, FIXED_DECIMALS, PERCENT, ANYDTDTE, ANYDTDTM, ANYDTTME, DATE_TEXT,
    DAY_MONTH_YEAR_TEXT, YEAR_MONTH_DAY_TEXT, MINGUO_TEXT, NENGO_TEXT, MONYY_TEXT, YYMMN_TEXT, JULIAN_TEXT,
    YYQ_TEXT, CANDATE_TEXT, TIME_TEXT, CANTIME_TEXT, HHMMSS_TEXT, DATETIME_TEXT, SLASH_DATE_AM_PM_TEXT,
    MONDYTM_TEXT, YMDDTTM_TEXT, CANSTAMP_TEXT, STIMER_TEXT, WEEK_TEXT, PACKED_WORD, MACHINE_STAMP, CLOCK_BYTES,
    PDJULG_BYTES};
constexpr bool allWellFormed() noexcept {
    for (const Limits& limits : ALL) {
        if (!isWellFormed(limits)) {
            return false;
        }
    }
    return true;
}
static_assert(allWellFormed());

}  // namespace kivo::limits
