#pragma once

// The era calendars, read by the MINGUO and NENGO formats and informats alike: the Minguo count of
// years and the eras of NENGO, each with its letter and first day. Everything else an era needs (its
// base year, its last year, the day serial it begins on) is worked out from these here, once.
namespace kivo::era {

// Minguo years count from 1912 as year 1: the calendar year is the Minguo year + MINGUO_BASE, and 1911
// itself is year 0.
inline constexpr int MINGUO_BASE = 1911;

struct CivilDay {
    int year;
    int month;  // 1..12
    int day;    // 1..31
};

// The day serial (days from 1 January 1960) of a day of the proleptic Gregorian calendar, by the
// published days-from-civil algorithm: years counted from 1 March, so that the leap day ends a year, in
// cycles of 400 years of 146097 days.
constexpr int daySerialOf(CivilDay civil) noexcept {
    const int year = civil.month <= 2 ? civil.year - 1 : civil.year;
    const int cycle = (year >= 0 ? year : year - 399) / 400;
    const int yearOfCycle = year - cycle * 400;                                                    // [0, 399]
    const int dayOfYear = (153 * (civil.month + (civil.month > 2 ? -3 : 9)) + 2) / 5 + civil.day - 1;  // [0, 365]
    const int dayOfCycle = yearOfCycle * 365 + yearOfCycle / 4 - yearOfCycle / 100 + dayOfYear;     // [0, 146096]
    constexpr int DAYS_FROM_0000_03_01_TO_1960_01_01 = 715815;
    return cycle * 146097 + dayOfCycle - DAYS_FROM_0000_03_01_TO_1960_01_01;
}
static_assert(daySerialOf({1960, 1, 1}) == 0);
static_assert(daySerialOf({2021, 3, 17}) == 22356);
static_assert(daySerialOf({1959, 12, 31}) == -1);

// An era: its letter and its first day. The calendar year of that day is the era's year 1, however
// late in the year the era begins.
struct Era {
    char letter;
    CivilDay first;
    int firstDay;  // the day serial of first

    constexpr Era(char eraLetter, CivilDay firstCivilDay) noexcept
        : letter(eraLetter), first(firstCivilDay), firstDay(daySerialOf(firstCivilDay)) {}

    // The year before the era's year 1: a calendar year is base() + the era year.
    constexpr int base() const noexcept { return first.year - 1; }
};

// In date order; each era runs up to the day before the next one's first day. The last is the running
// era, which has no end of its own.
inline constexpr Era ERAS[] = {
    {'M', {1868, 9, 1}},
    {'T', {1912, 7, 30}},
    {'S', {1926, 12, 25}},
    {'H', {1989, 1, 8}},
    {'R', {2019, 5, 1}},
};
inline constexpr int ERA_COUNT = sizeof ERAS / sizeof ERAS[0];
inline constexpr const Era& RUNNING_ERA = ERAS[ERA_COUNT - 1];

constexpr bool isRunning(const Era& era) noexcept { return &era == &RUNNING_ERA; }

// The largest year of an era: the era year of the calendar year in which the next era begins (1989
// is both Showa 64 and Heisei 1). The running era has none; 0 stands for that.
constexpr int lastYearOf(const Era& era) noexcept {
    return isRunning(era) ? 0 : (&era)[1].first.year - era.base();
}

constexpr bool inDateOrder() noexcept {
    for (int i = 1; i < ERA_COUNT; ++i) {
        if (ERAS[i].firstDay <= ERAS[i - 1].firstDay) {
            return false;
        }
    }
    return true;
}
static_assert(inDateOrder());
static_assert(ERAS[0].firstDay == -33358 && RUNNING_ERA.firstDay == 21670);
static_assert(lastYearOf(ERAS[0]) == 45 && lastYearOf(ERAS[3]) == 31 && lastYearOf(RUNNING_ERA) == 0);

}  // namespace kivo::era
