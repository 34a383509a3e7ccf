// The conversion engine: specs, values, the kinds a value moves between, what it says of each text it
// reads (left out, unread, past the width, found nothing, day 0), and its fan-out over threads, which
// changes nothing but the time: every element as one call gives it, the caller's options on every run,
// a failure in any run handed back. And formats and informats on several threads while another thread
// changes the options they read: every call sees one whole option value, the old or the new.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "RunCapture.h"
#include "kivo/Formats.h"
#include "kivo/Informats.h"
#include "kivoconvert/Conversion.h"
#include "kivoconvert/Values.h"
#include "kivox/Missing.h"
#include "kivox/Services.h"

namespace {

using kivoconvert::Conversion;
using kivoconvert::Fanout;
using kivoconvert::Note;
using kivodt::test::format;
using kivodt::test::informat;

TEST(EngineSpec, ParsesNameWidthAndDecimals) {
    // What the text means as "name width(if given).decimals", or "refused".
    const std::pair<const char*, const char*> cases[] = {
        {"DATE9.", "DATE 9.0"}, {"date9", "DATE 9.0"}, {"TIME12.3", "TIME 12.3"}, {"DATE", "DATE .0"},
        {"Date.", "DATE .0"},   {"12.3", " 12.3"},     {"", "refused"},           {"9DATE", "refused"},
        {"DATE9.x", "refused"}, {"DATE 9", "refused"}, {"DATE99999", "refused"},  {".3", "refused"},
    };
    for (const auto& [text, meaning] : cases) {
        kivoconvert::SpecText spec;
        std::string error;
        const bool parsed = kivoconvert::parseSpecText(text, spec, error);
        EXPECT_EQ(parsed ? spec.name + " " + (spec.hasWidth ? std::to_string(spec.width) : "") + "." +
                               std::to_string(spec.decimals)
                         : "refused",
                  meaning)
            << text;
        EXPECT_EQ(error.empty(), parsed) << text;
    }
}

TEST(EngineSpec, ResolvesAgainstTheCatalogLimits) {
    struct Case { const char* text; bool ok; int width; const char* errorPart; };
    const Case cases[] = {
        {"DATE", true, 7, ""}, {"date11.", true, 11, ""}, {"DATE4.", false, 0, "DATE: widths 5-11 (default 7)"},
        {"DATE9.2", false, 0, "decimals 0-0"}, {"YEAR8.2", true, 8, ""}, {"YEAR4.4", false, 0, "decimals 0-3"},
        {"DATX9.", false, 0, "did you mean DATE, DAY"}, {"MONTHNAME", false, 0, "MONNAME"},
    };
    for (const Case& c : cases) {
        kivoconvert::ResolvedSpec<kivoconvert::FormatEntry> resolved;
        std::string error;
        ASSERT_EQ(kivoconvert::resolveFormat(c.text, resolved, error), c.ok) << c.text << ": " << error;
        EXPECT_TRUE(c.ok ? resolved.width == c.width : error.find(c.errorPart) != std::string::npos) << c.text;
    }
}

// A value read and printed back: the shortest decimal that reads back to the same double, or the
// missing notation; "refused" for a text that is neither. Too small for a double is its nearest one.
TEST(EngineValues, ReadAndPrintedBack) {
    const std::pair<const char*, const char*> cases[] = {
        {" 22356 ", "22356"}, {"+1.5e3", "1500"}, {"-0.25", "-0.25"},   {"37815.25", "37815.25"}, {".", "."},
        {"._", "._"},         {".k", ".K"},       {"", "refused"},      {"abc", "refused"},       {"12x", "refused"},
        {"+-1", "refused"},   {"..", "refused"},  {"1 2", "refused"},   {"1e-400", "0"},          {"-1e-400", "-0"},
        {"4.9e-325", "0"},    {"3e-324", "5e-324"}, {"1e400", "refused"}, {"-1E+400", "refused"},
        {"0.0001e400", "refused"}, {"100000e-400", "0"}, {"0.000e999999999999", "0"},
    };
    for (const auto& [text, printed] : cases) {
        double value = 0;
        char out[32];
        EXPECT_EQ(kivoconvert::parseValue(text, value) ? std::string(out, kivoconvert::printValue(value, out))
                                                       : "refused",
                  printed)
            << text;
    }
}

TEST(EngineNotes, MessagesShowTextsEscapedAndCut) {
    const std::pair<std::string, std::string> cases[] = {
        {"abc", "\"abc\""}, {std::string("a\0b", 3), "\"a\\x00b\""}, {"say \"hi\"\\", "\"say \\\"hi\\\"\\\\\""},
        {"\t\r\x7F\xC9", "\"\\t\\x0d\\x7f\\xc9\""}, {std::string(60, 'x'), '"' + std::string(60, 'x') + '"'},
        {std::string(10'000'000, 'x'), '"' + std::string(60, 'x') + "\"... (10000000 bytes)"},
    };
    for (const auto& [text, shown] : cases) EXPECT_EQ(kivoconvert::quotedForMessage(text), shown);
    EXPECT_EQ(kivoconvert::quotedStart(std::string(61, 'y')), '"' + std::string(60, 'y') + "\"...");
}

// What convert gives for one text, as "output|note words" ("output|" when nothing is named).
std::string converted(const Conversion& conversion, std::string_view text) {
    kivoconvert::ConvertedBlock out;
    conversion.convert({&text, 1}, out, Fanout(1));
    const Note note = out.note(0);
    return std::string(out.output(0)) + "|" +
           (kivoconvert::isNamed(note) ? conversion.describe(note, text) : note == Note::LEFT_OUT ? "left out" : "");
}

TEST(EngineConversion, HandsAValueToAFormatOfAnotherKindOrRefuses) {
    struct Case { const char* informat; const char* format; const char* text; const char* result; };
    const Case cases[] = {
        {"ANYDTDTE", "DATE9.", "2021-03-17", "17MAR2021|"},
        {"ANYDTDTM", "DATE9.", "2021-03-17T23:59:59", "17MAR2021|"},  // the day a datetime falls on
        {"ANYDTDTM", "DATE9.", "1959-12-31T12:00:00", "31DEC1959|"},  // before day 0: still its own day
        {"ANYDTDTE", "DATETIME20.", "2021-03-17", "  17MAR2021:00:00:00|"},
        {"ANYDTDTE", "BEST8.", "2021-03-17", "   22356|"},
        {"ANYDTTME", "TIME8.", "1:30 PM", "13:30:00|"},
        {"ANYDTTME", "DATE9.", "", "ANYDTTME reads a time, which DATE cannot show (it shows a day serial)"},
        {"ANYDTDTE", "TIME8.", "", "ANYDTDTE reads a day serial, which TIME cannot show (it shows a time)"},
        {"ANYDTDTM", "HHMM.", "", "ANYDTDTM reads a seconds serial, which HHMM cannot show (it shows a time)"},
    };
    for (const Case& c : cases) {
        Conversion conversion;
        std::string error;
        const bool made = Conversion::converting(informat(c.informat), format(c.format), {}, conversion, error);
        EXPECT_EQ(made ? converted(conversion, c.text) : error, c.result) << c.informat << " " << c.format;
    }
}

// What the engine makes of each text, whatever front end gave it: the output (the format's field, or
// the value printed, or the stand-in) and the words a front end names it with.
TEST(EngineConversion, NamesEveryTextItCannotReadWholly) {
    using namespace std::string_view_literals;
    struct Case { const char* informat; const char* format; std::string_view text; const char* result; };
    const Case cases[] = {
        {"YYMMDD10.", "DATE9.", "2021-03-17", "17MAR2021|"},
        {"YYMMDD10.", "DATE9.", " 2021-03-17", "         |1 byte past the width 10: give a wider width or none"},
        {"YYMMDD10.", "DATE9.", "2021-03-17T10:30", "         |6 bytes past the width 10: give a wider width or none"},
        {"YYMMDD10.", "DATE9.", "2021-03-17 \t\0"sv, "17MAR2021|"},  // blanks past it
        {"YYMMDD", "DATE9.", " 2021-03-17 ", "17MAR2021|"},  // no width: the whole text
        {"DATE9.", "DATE11.", "17XYZ2021", "           |not read by DATE"},
        {"DATE9.", nullptr, "17XYZ2021", "invalid|not read by DATE"},
        {"ANYDTDTE", "DATE9.", "nonsense", "        .|not read by ANYDTDTE"},  // the missing value stays
        {"ANYDTDTE", nullptr, "nonsense", ".|not read by ANYDTDTE"},
        {"ANYDTDTE", "DATE9.", ".", "01JAN1960|read as day 0 (01JAN1960)"},
        {"ANYDTDTE", "DATE9.", "._", "01JAN1960|read as day 0 (01JAN1960)"},
        {"ANYDTDTE", "DATE9.", "10:30", "01JAN1960|read as day 0 (01JAN1960)"},
        {"ANYDTDTE", "DATE9.", "1960-01-01", "01JAN1960|"},
        {"ANYDTDTE", "DATE9.", "1960-01-01T10:30", "01JAN1960|"},
        {"ANYDTDTE", "DATE9.", " .A", "        .|"},  // a missing-value notation is no misread
        {"ANYDTDTM", "DATETIME20.", ".", "                   .|"},
        {"ANYDTTME", nullptr, "10:30", "37800|"},
        {"ANYDTDTE", "DATE9.", "", "|left out"},
        {"DATE9.", "DATE9.", " \t\0"sv, "|left out"},
        {nullptr, "DATE9.", " 22356 ", "17MAR2021|"},
        {nullptr, "DATE9.", "22356x", "         |not a number or missing value"},
        {nullptr, "DATE9.", "", "|left out"},
    };
    for (const Case& c : cases) {
        Conversion conversion;
        std::string error;
        if (c.informat == nullptr) {
            conversion = Conversion::formatting(format(c.format), {});
        } else if (c.format == nullptr) {
            conversion = Conversion::reading(informat(c.informat), {});
        } else {
            ASSERT_TRUE(Conversion::converting(informat(c.informat), format(c.format), {}, conversion, error));
        }
        EXPECT_EQ(converted(conversion, c.text), c.result) << (c.informat ? c.informat : "") << " " << c.text;
    }
}

TEST(EngineConversion, TakesAndGivesBytesAsHexPairs) {
    const Conversion pdtime = Conversion::reading(informat("PDTIME4."), {.input = true});
    EXPECT_EQ(converted(pdtime, "0012345C"), "5025|");
    EXPECT_EQ(converted(pdtime, "0012345c00"), "5025|");  // a NUL past the width is a blank
    EXPECT_EQ(converted(pdtime, "0012345C41"), "invalid|1 byte past the width 4: give a wider width or none");
    EXPECT_EQ(converted(pdtime, "zz"), "invalid|not hex pairs");
    EXPECT_EQ(converted(Conversion::formatting(format("PDJULG4."), {.output = true}), "22356"), "2021076F|");
    Conversion toDay;
    std::string error;
    ASSERT_TRUE(Conversion::converting(informat("DATE9."), format("DATE5."), {true, true}, toDay, error));
    EXPECT_EQ(converted(toDay, "3137584D41523231"), "2020202020|not read by DATE");  // "17XMAR21": blanks
}

TEST(EngineFanout, GivesEveryElementToOneRunWithTheCallersLocatorAndHandsBackAFailure) {
    kivo::ServiceLocator own;
    for (const std::size_t count : {0, 1, 7, 1000}) {
        std::vector<std::atomic<int>> seen(count);
        std::atomic<int> otherLocator{0};
        Fanout(4, &own, 1).run(count, [&](std::size_t begin, std::size_t end) {
            otherLocator += kivo::ServiceLocator::current() != &own;
            for (std::size_t i = begin; i < end; ++i) ++seen[i];
        });
        for (std::size_t i = 0; i < count; ++i) EXPECT_EQ(seen[i].load(), 1) << i << " of " << count;
        EXPECT_EQ(otherLocator.load(), 0);
    }
    EXPECT_EQ(kivo::ServiceLocator::current(), nullptr) << "the caller's own locator is back";
    EXPECT_EQ(Fanout(2).runsFor(2 * Fanout::ELEMENTS_PER_RUN - 1), 1u) << "a small block stays on the caller's thread";
    EXPECT_EQ(Fanout(8).runsFor(3 * Fanout::ELEMENTS_PER_RUN), 3u);
    std::atomic<int> finished{0};
    EXPECT_THROW(Fanout(3, nullptr, 1).run(3, [&](std::size_t begin, std::size_t) {
        if (begin == 2) throw std::bad_alloc();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        ++finished;
    }), std::bad_alloc);
    EXPECT_EQ(finished.load(), 2) << "every other run finished before the failure came back";
}

// Day serials, seconds serials and times over the calendar and beyond, with fractions and missing values.
std::vector<double> sampleValues(std::size_t count) {
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double step = static_cast<double>(i);
        const double spread[] = {step * 7001.25 - 150000, step * 6.1e8 - 1e11, step * 97.375 - 3600};
        values[i] = i % 13 == 0 ? kivo::lum_numeric::MISSING : spread[i % 3];
    }
    return values;
}

TEST(EngineFanout, WritesAndReadsAsOneCallPerElementOnAnyNumberOfThreads) {
    const std::vector<double> values = sampleValues(301);
    for (const kivoconvert::FormatEntry& entry : kivoconvert::formatCatalog()) {
        const kivoconvert::ResolvedSpec<kivoconvert::FormatEntry> spec{&entry, entry.limits.maxWidth, 0, true};
        const auto width = static_cast<std::size_t>(spec.width);
        std::string expected(values.size() * width, '#');
        for (std::size_t i = 0; i < values.size(); ++i) entry.function(&expected[i * width], spec.width, 0, values[i]);
        for (int threads : {1, 2, 4}) {
            std::string fields(expected.size(), '#');
            Conversion::formatting(spec, {}).write(values, fields.data(), Fanout(threads, nullptr, 1));
            EXPECT_EQ(fields, expected) << entry.name << " on " << threads;
        }
    }
    const char* const samples[] = {"15JAN2000", "2000-01-15T10:30:00", "01/02/2003", "10:30 PM", ".", "",
                                   "  17MAR2021 ", "20000115", "99:99", "garbage text longer than its field"};
    std::vector<std::string_view> texts(300);
    for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = samples[i % std::size(samples)];
    for (const kivoconvert::InformatEntry& entry : kivoconvert::informatCatalog()) {
        const Conversion reading = Conversion::reading({&entry, entry.limits.defaultWidth, 0, true}, {});
        std::vector<double> one(texts.size()), many(texts.size());
        std::vector<Note> oneNotes(texts.size()), manyNotes(texts.size());
        reading.read(texts, one, oneNotes, Fanout(1));
        reading.read(texts, many, manyNotes, Fanout(3, nullptr, 1));
        EXPECT_EQ(std::memcmp(one.data(), many.data(), one.size() * sizeof(double)), 0) << entry.name;
        EXPECT_EQ(oneNotes, manyNotes) << entry.name;
    }
}

TEST(Concurrency, CallsSeeWholeOptionValuesWhileTheyChange) {
    kivo::ServiceLocator& host = kivo::getFallbackServiceCreator();
    host.systemOptions().setOption("datestyle", "dmy");
    std::atomic<bool> stop{false};
    std::atomic<int> oddResults{0};
    std::vector<std::thread> callers;
    for (int t = 0; t < 3; ++t) {
        callers.emplace_back([&] {
            char field[5];
            double day = 0;
            while (!stop.load()) {
                anydtdteInformat("01/02/2003", 10, 10, 0, &day);
                dateFormat(field, 5, 0, kivo::lum_numeric::MISSING);
                const std::string shown(field, 5);
                // 1 February or 2 January 2003; "." or "?" for the missing value.
                if ((day != 15737 && day != 15707) || (shown != "    ." && shown != "    ?")) ++oddResults;
            }
        });
    }
    for (int i = 0; i < 300; ++i) {
        host.systemOptions().setOption("datestyle", i % 2 == 0 ? "mdy" : "dmy");
        host.env().setMissingChar(i % 2 == 0 ? '?' : '.');
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    stop = true;
    for (std::thread& caller : callers) caller.join();
    host.systemOptions().setOption("datestyle", "locale");
    host.env().setMissingChar('.');
    EXPECT_EQ(oddResults.load(), 0);
}

}  // namespace
