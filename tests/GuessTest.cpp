// kivodt guess: columns of generated texts of known dates, each with the proposal it must get and its
// status; then the property that matters: convert with that proposal reads every generated text to its
// true day. The dd/mm and mm/dd columns open with hundreds of texts that could be either. And a CSV's
// columns guessed in one pass.
#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "HostSupport.h"
#include "RunCapture.h"
#include "kivoconvert/Guess.h"
#include "kivodt/GuessRunner.h"
#include "kivox/Calendar.h"
#include "kivox/OptionSettings.h"

namespace {

using kivoconvert::ColumnGuesser;
using kivoconvert::Guess;

// A text written from a day serial; day ≤ 12 when `open`.
using Layout = std::function<std::string(kivo::Date)>;

std::string twoDigits(int n) { return (n < 10 ? "0" : "") + std::to_string(n); }
const char* const MONTHS[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN", "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

std::string dmy(kivo::Date d) {
    const auto [y, m, day] = d.yearMonthDay();
    return twoDigits(day) + "/" + twoDigits(m) + "/" + std::to_string(y);
}
std::string mdy(kivo::Date d) {
    const auto [y, m, day] = d.yearMonthDay();
    return twoDigits(m) + "/" + twoDigits(day) + "/" + std::to_string(y);
}
std::string iso(kivo::Date d) {
    const auto [y, m, day] = d.yearMonthDay();
    return std::to_string(y) + "-" + twoDigits(m) + "-" + twoDigits(day);
}
std::string date9(kivo::Date d) {
    const auto [y, m, day] = d.yearMonthDay();
    return twoDigits(day) + MONTHS[m - 1] + std::to_string(y);
}
std::string isoTime(kivo::Date d) { return iso(d) + "T10:30:00"; }
std::string digits(kivo::Date d) {
    const auto [y, m, day] = d.yearMonthDay();
    return std::to_string(y) + twoDigits(m) + twoDigits(day);
}
std::string dmyShort(kivo::Date d) { return dmy(d).erase(6, 2); }  // 17/03/21
std::string mixed(kivo::Date d) {
    const Layout layouts[] = {iso, dmy, date9, isoTime, digits};
    return layouts[(static_cast<int>(d) % 5 + 5) % 5](d);
}

// A column: `open` texts of days 1 to 12 first, then `count` of any day, from 1950 to 2030.
struct Column {
    std::vector<std::string> texts;
    std::vector<double> days;
};
Column column(const Layout& layout, int open, int count, std::uint64_t seed = 7) {
    std::mt19937_64 random(seed);
    Column made;
    for (int i = 0; i < open + count; ++i) {
        const int year = 1950 + static_cast<int>(random() % 80), month = 1 + static_cast<int>(random() % 12);
        const int day = 1 + static_cast<int>(random() % (i < open ? 12 : 28));
        const kivo::Date date(year, month, day);
        made.texts.push_back(layout(date));
        made.days.push_back(static_cast<double>(date));
    }
    return made;
}

Guess guessOf(const std::vector<std::string>& texts) {
    ColumnGuesser guesser;
    std::vector<std::string_view> views(texts.begin(), texts.end());
    std::vector<std::size_t> positions(texts.size());
    for (std::size_t i = 0; i < positions.size(); ++i) positions[i] = i + 1;
    guesser.add(views, positions);
    return guesser.guess();
}

// The proposal reads every text to its true day (a datetime's day for a datetime informat).
void expectReadsTrueDays(const Guess& guess, const Column& made) {
    kivo::test::OwnServices services;
    if (!guess.datestyle.empty()) kivo::settings::DATE_STYLE.apply(services.locator(), guess.datestyle.c_str());
    const auto informat = kivodt::test::informat(guess.informat.c_str());
    const kivoconvert::Conversion reading = kivoconvert::Conversion::reading(informat, {});
    std::vector<std::string_view> views(made.texts.begin(), made.texts.end());
    std::vector<double> values(views.size());
    std::vector<kivoconvert::Note> notes(views.size());
    reading.read(views, values, notes, kivoconvert::Fanout(1));
    const double perDay = informat.entry->kind == kivoconvert::ValueKind::DATETIME ? 86400 : 1;
    for (std::size_t i = 0; i < views.size(); ++i) {
        ASSERT_EQ(std::floor(values[i] / perDay), made.days[i]) << guess.arguments() << " on " << views[i];
    }
}

TEST(Guess, ProposesTheInformatThatReadsTheWholeColumnToItsTrueDays) {
    struct Case { const char* name; Layout layout; int open; const char* arguments; };
    const Case cases[] = {
        {"dd/mm, 300 open rows first", dmy, 300, "DDMMYY10."},
        {"mm/dd, 300 open rows first", mdy, 300, "MMDDYY10."},
        {"ISO", iso, 0, "YYMMDD10."},
        {"day, month name, year", date9, 0, "DATE9."},
        {"ISO datetimes", isoTime, 0, "YMDDTTM19."},
        {"digit runs", digits, 0, "YYMMDD8."},
        {"five layouts", mixed, 100, "--datestyle dmy ANYDTDTM"},
        {"dd/mm/yy", dmyShort, 0, "DDMMYY8."},
    };
    for (const Case& c : cases) {
        const Column made = column(c.layout, c.open, 2000);
        const Guess guess = guessOf(made.texts);
        EXPECT_EQ(guess.arguments(), c.arguments) << c.name << "\n" << guess.report("line");
        EXPECT_TRUE(guess.readsEvery) << c.name;
        expectReadsTrueDays(guess, made);
    }
}

TEST(Guess, ReportsWhatItCannotReadTwoDigitYearsAndAnOpenOrder) {
    std::vector<std::string> texts = column(dmy, 0, 500).texts;
    texts.insert(texts.begin() + 3, {"", ".", "n/a", "31/02/2021"});
    const Guess unread = guessOf(texts);
    EXPECT_EQ(unread.arguments(), "DDMMYY10.");
    EXPECT_FALSE(unread.readsEvery);
    EXPECT_EQ(unread.unread, 2u);
    EXPECT_EQ(unread.leftOut, 2u);
    EXPECT_NE(unread.report("line").find("not read, line 6: \"n/a\""), std::string::npos) << unread.report("line");

    const Guess shortYears = guessOf(column(dmyShort, 0, 50).texts);
    EXPECT_NE(shortYears.report("line").find("two-digit years: 50 texts, read in 1940-2039"), std::string::npos);

    const Guess open = guessOf(column(dmy, 50, 0).texts);
    EXPECT_EQ(open.arguments(), "MMDDYY10.");  // the locale's date style, month first
    EXPECT_TRUE(open.readsEvery);
    EXPECT_NE(open.report("line").find("ambiguous"), std::string::npos) << open.report("line");
}

TEST(Guess, GuessesEachColumnOfACsvInOnePass) {
    const Column days = column(dmy, 20, 200), stamps = column(isoTime, 0, 220);
    std::string csv = "id,\"shipped, day\",stamp\n";
    for (std::size_t i = 0; i < days.texts.size(); ++i) {
        csv += std::to_string(i) + "," + days.texts[i] + "," + stamps.texts[i] + "\n";
    }
    kivodt::test::BytesSource input(csv);
    const kivodt::ColumnChoice chosen[] = {{0, "shipped, day"}, {3, ""}};
    const auto run = kivodt::test::capture([&](const kivodt::OutputStreams& streams) {
        return kivodt::runCsvGuess({.columns = chosen}, input, streams);
    });
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out.substr(0, run.out.find('\n')), "shipped, day\tDDMMYY10.");
    EXPECT_NE(run.out.find("\n\nstamp\tYMDDTTM19.\n"), std::string::npos) << run.out;
}

}  // namespace
