// The kivodt front end: its command line (options before or after the command word, values after SPEC,
// refusals), specs, values, and the runner's streaming and field rules.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "RunCapture.h"
#include "kivodt/CommandLine.h"
#include "kivodt/InputLines.h"
#include "kivodt/Runner.h"
#include "kivodt/Spec.h"
#include "kivodt/Values.h"
#include "kivox/Missing.h"

namespace {

using Arguments = std::vector<std::string_view>;

// What a command line asks for, in one comparable text, with the options it sets applied to a
// fresh locator.
std::string meaningOf(const Arguments& arguments) {
    kivodt::CommandLine line;
    std::string error;
    if (!kivodt::parseCommandLine(arguments, line, error)) return "error: " + error;
    if (line.help) return "help";
    kivo::ServiceLocator session;
    if (!kivodt::applySettings(line, session, error)) return "refused: " + error;
    std::string meaning;
    const std::pair<bool, const char*> switches[] = {
        {line.hex, "hex"},   {line.hexInput, "hex-in"},       {line.hexOutput, "hex-out"},
        {line.keep, "keep"}, {line.keepBlanks, "keep-blanks"}, {line.noHeader, "no-header"},
    };
    for (const auto& [on, name] : switches) meaning += on ? std::string(name) + " " : "";
    meaning += line.csv ? "csv=" + std::string(*line.csv) + " " : "";
    meaning += line.delimiter ? "delimiter=" + std::string(*line.delimiter) + " " : "";
    meaning += line.threads ? "threads=" + std::string(*line.threads) + " " : "";
    meaning += std::string(line.command) + " " + std::string(line.spec) + " " + std::string(line.formatSpec) + "[";
    for (std::string_view input : line.inputs) meaning += std::string(input) + ";";
    return meaning + "] " + session.systemOptions().getOption("datestyle") + "/" +
           session.systemOptions().getOption("yearcutoff") + "/" + session.env().missingChar() + "/" +
           session.systemOptions().getOption("today");
}

TEST(KivodtCommandLine, EveryOptionMeansTheSameBeforeAndAfterTheCommand) {
    const std::map<std::string_view, std::string_view> samples = {
        {"--datestyle", "dmy"}, {"--yearcutoff", "1920"}, {"--missing-char", "?"}, {"--today", "2021-03-17"},
        {"--csv", "2"},         {"--delimiter", ";"},         {"--threads", "2"}};
    for (const kivodt::CommandLineOption& option : kivodt::commandLineOptions()) {
        ASSERT_TRUE(!option.takesArgument() || samples.contains(option.name)) << option.name << " needs a sample";
        Arguments before = {option.name}, after = {"informat", option.name};
        if (option.takesArgument()) before.push_back(samples.at(option.name)), after.push_back(samples.at(option.name));
        before.insert(before.end(), {"informat", "ANYDTDTE", "01/02/03"});
        after.insert(after.end(), {"ANYDTDTE", "01/02/03"});
        const std::string meaning = meaningOf(before);
        EXPECT_EQ(meaning, meaningOf(after)) << option.name;
        EXPECT_NE(meaning, meaningOf({"informat", "ANYDTDTE", "01/02/03"})) << option.name << " changed nothing";
    }
}

TEST(KivodtCommandLine, EverythingAfterTheSpecIsAValue) {
    EXPECT_EQ(meaningOf({"--datestyle", "ymd", "format", "--hex", "DATE9.", "-5", "--hex", "--datestyle", "dmy"}),
              "hex format DATE9. [-5;--hex;--datestyle;dmy;] ymd/1940/./");
    EXPECT_EQ(meaningOf({"--datestyle", "ymd", "informat", "--datestyle", "dmy", "ANYDTDTE"}),
              "informat ANYDTDTE [] dmy/1940/./");
    EXPECT_EQ(meaningOf({"list", "--hex"}), "hex list  [] locale/1940/./");
    EXPECT_EQ(meaningOf({"--csv", "", "convert", "--keep", "ANYDTDTE", "DATE9.", "--no-header", "x"}),
              "keep csv= convert ANYDTDTE DATE9.[--no-header;x;] locale/1940/./");
}

TEST(KivodtCommandLine, BadCommandLinesAreNamed) {
    const std::pair<Arguments, std::string> cases[] = {
        {{}, "error: no command given"},
        {{"--hex"}, "error: no command given"},
        {{"formats", "DATE9."}, "error: unknown command \"formats\""},
        {{"format"}, "error: format needs a SPEC"},
        {{"format", "--hex"}, "error: format needs a SPEC"},
        {{"convert", "ANYDTDTE"}, "error: convert needs an INFORMAT and a FORMAT"},
        {{"format", "--csv"}, "error: --csv needs an argument"},
        {{"format", "--datestyle"}, "error: --datestyle needs an argument"},
        {{"format", "--date", "dmy", "DATE9."}, "error: unknown option \"--date\""},
        {{"format", "--datestyle", "xyz", "DATE9."},
         "refused: --datestyle takes dmy, dym, mdy, myd, ydm, ymd or locale, not \"xyz\""},
        {{"--yearcutoff", "19x0", "list"}, "refused: --yearcutoff takes a year from 1582 to 19900, not \"19x0\""},
        {{"format", "--missing-char", "ab", "DATE9."}, "refused: --missing-char takes one character, not \"ab\""},
    };
    for (const auto& [arguments, meaning] : cases) EXPECT_EQ(meaningOf(arguments), meaning);
}

TEST(KivodtSpec, ParsesNameWidthAndDecimals) {
    // What the text means as "name width(if given).decimals", or "refused".
    const std::pair<const char*, const char*> cases[] = {
        {"DATE9.", "DATE 9.0"}, {"date9", "DATE 9.0"}, {"TIME12.3", "TIME 12.3"}, {"DATE", "DATE .0"},
        {"Date.", "DATE .0"},   {"12.3", " 12.3"},     {"", "refused"},           {"9DATE", "refused"},
        {"DATE9.x", "refused"}, {"DATE 9", "refused"}, {"DATE99999", "refused"},  {".3", "refused"},
    };
    for (const auto& [text, meaning] : cases) {
        kivodt::SpecText spec;
        std::string error;
        const bool parsed = kivodt::parseSpecText(text, spec, error);
        EXPECT_EQ(parsed ? spec.name + " " + (spec.hasWidth ? std::to_string(spec.width) : "") + "." +
                               std::to_string(spec.decimals)
                         : "refused",
                  meaning)
            << text;
        EXPECT_EQ(error.empty(), parsed) << text;
    }
}

TEST(KivodtSpec, ResolvesAgainstTheCatalogLimits) {
    struct Case { const char* text; bool ok; int width; const char* errorPart; };
    const Case cases[] = {
        {"DATE", true, 7, ""}, {"date11.", true, 11, ""}, {"DATE4.", false, 0, "DATE: widths 5-11 (default 7)"},
        {"DATE9.2", false, 0, "decimals 0-0"}, {"YEAR8.2", true, 8, ""}, {"YEAR4.4", false, 0, "decimals 0-3"},
        {"DATX9.", false, 0, "did you mean DATE, DAY"}, {"MONTHNAME", false, 0, "MONNAME"},
    };
    for (const Case& c : cases) {
        kivodt::ResolvedSpec<kivodt::FormatEntry> resolved;
        std::string error;
        ASSERT_EQ(kivodt::resolveFormat(c.text, resolved, error), c.ok) << c.text << ": " << error;
        EXPECT_TRUE(c.ok ? resolved.width == c.width : error.find(c.errorPart) != std::string::npos) << c.text;
    }
}

// A value read and printed back: the shortest decimal that reads back to the same double, or the
// missing notation; "refused" for a text that is neither.
TEST(KivodtValues, ReadAndPrintedBack) {
    const std::pair<const char*, const char*> cases[] = {
        {" 22356 ", "22356"}, {"+1.5e3", "1500"}, {"-0.25", "-0.25"}, {"-5400", "-5400"}, {"37815.25", "37815.25"},
        {"0.1", "0.1"},       {".", "."},          {"._", "._"},        {".k", ".K"},       {"", "refused"},
        {"abc", "refused"},   {"12x", "refused"},  {"+-1", "refused"},  {"..", "refused"}, {"1 2", "refused"},
    };
    for (const auto& [text, printed] : cases) {
        double value = 0;
        char out[32];
        EXPECT_EQ(kivodt::parseValue(text, value) ? std::string(out, kivodt::printValue(value, out)) : "refused",
                  printed)
            << text;
    }
}

TEST(KivodtValues, MessagesShowTextsEscapedAndCut) {
    const std::pair<std::string, std::string> cases[] = {
        {"abc", "\"abc\""}, {std::string("a\0b", 3), "\"a\\x00b\""}, {"say \"hi\"\\", "\"say \\\"hi\\\"\\\\\""},
        {"\t\r\x7F\xC9", "\"\\t\\x0d\\x7f\\xc9\""}, {std::string(60, 'x'), '"' + std::string(60, 'x') + '"'},
        {std::string(10'000'000, 'x'), '"' + std::string(60, 'x') + "\"... (10000000 bytes)"},
    };
    for (const auto& [text, shown] : cases) EXPECT_EQ(kivodt::quotedForMessage(text), shown);
}

using kivodt::test::Captured;
using kivodt::test::capture;
using kivodt::test::fileWith;

TEST(KivodtRunner, StreamsStandardInputAndNamesBadLinesAndLinesOverTheLimit) {
    const auto spec = kivodt::test::format("DATE9.");
    const Captured run = capture("0\r\n22356\nnope\n.\n-17321", [&](const kivodt::Streams& streams) {
        return kivodt::runFormat(spec, {}, {}, streams);
    });
    EXPECT_EQ(run.status, kivodt::EXIT_BAD_INPUT);
    EXPECT_EQ(run.out, "01JAN1960\n17MAR2021\n        .\n30JUL1912\n");
    EXPECT_NE(run.err.find("line 3"), std::string::npos) << run.err;
    const Captured longLine = capture("0\n000001\n1\n", [&](const kivodt::Streams& streams) {
        return kivodt::runFormat(spec, {}, {.maxLineLength = 5}, streams);
    });
    EXPECT_EQ(longLine.status, kivodt::EXIT_BAD_INPUT);
    EXPECT_EQ(longLine.out, "01JAN1960\n02JAN1960\n");
    EXPECT_EQ(longLine.err, "kivodt: line 2: longer than 5 bytes\n");
}

TEST(KivodtRunner, StopsAtAFailedWriteOrReadAndSaysWhy) {
    const auto spec = kivodt::test::format("DATE9.");
    std::string manyLines;
    for (int i = 0; i < 100'000; ++i) manyLines += "0\n";
    std::FILE* full = std::fopen("/dev/full", "w");
    ASSERT_NE(full, nullptr);
    const Captured unwritten = capture(manyLines + "bad\n", [&](kivodt::Streams streams) {
        streams.out = full;
        return kivodt::runFormat(spec, {}, {}, streams);
    });
    std::fclose(full);
    EXPECT_EQ(unwritten.status, kivodt::EXIT_STREAM_FAILED);
    // The run stopped at the failure: the bad last line was never reached.
    EXPECT_EQ(unwritten.err, "kivodt: cannot write standard output: No space left on device\n");

    std::FILE* directory = std::fopen("/", "r");
    ASSERT_NE(directory, nullptr);
    const Captured unread = capture("", [&](kivodt::Streams streams) {
        streams.in = directory;
        return kivodt::runFormat(spec, {}, {}, streams);
    });
    std::fclose(directory);
    EXPECT_EQ(unread.status, kivodt::EXIT_STREAM_FAILED);
    EXPECT_EQ(unread.err, "kivodt: cannot read standard input: Is a directory\n");
}

// The lines InputLines gives for input, each followed by "|"; "<long>" for one over the limit.
std::string linesOf(const std::string& input, std::size_t limit, std::size_t chunkBytes) {
    std::FILE* in = fileWith(input);
    kivodt::InputLines lines({}, in, limit, chunkBytes);
    std::string seen;
    std::string_view line;
    using Next = kivodt::InputLines::Next;
    for (Next next = lines.next(line); next == Next::LINE || next == Next::TOO_LONG; next = lines.next(line)) {
        seen += next == Next::TOO_LONG ? "<long>|" : std::string(line) + "|";
    }
    std::fclose(in);
    return seen;
}

TEST(KivodtInputLines, LinesOverTheLimitAreSkippedWhereverTheChunksEnd) {
    // The "\r" before the end of a line does not count.
    const std::pair<const char*, const char*> cases[] = {
        {"abcd\nabcde\nab\r\n\nx", "abcd|<long>|ab||x|"}, {"abcd\r\nabcd\r", "abcd|abcd|"}, {"abcd\r\r\n", "<long>|"},
        {"abcdefghijklmnop\nab", "<long>|ab|"},          {"", ""},                        {"\n\n", "||"}};
    for (const auto& [input, lines] : cases) {
        for (std::size_t chunkBytes = 1; chunkBytes <= 8; ++chunkBytes) {
            EXPECT_EQ(linesOf(input, 4, chunkBytes), lines) << '"' << input << "\" in chunks of " << chunkBytes;
        }
    }
}

// An informat that shows what it was given: the field, its width and the two middle arguments.
std::string lastField;
int lastLength, lastDecimals;
int recordingInformat(const char* text, int width, int length, int decimals, double* result) {
    lastField.assign(text, static_cast<std::size_t>(width));
    lastLength = length, lastDecimals = decimals;
    *result = width + 0.5;  // stored for a rejected text too: the runner must not print it
    return lastField != "bad";
}

TEST(KivodtRunner, InformatFieldIsTheFirstWidthBytesOfTheText) {
    const kivodt::InformatEntry entry{"RECORD", "", recordingInformat, {1, 32, 8, kivodt::Decimals::PASSED_THROUGH},
                                      kivodt::ValueKind::DAY};
    struct Case { int width; bool widthGiven; const char* text; const char* field; const char* printed; };
    const Case cases[] = {{4, true, "15JAN2000", "15JA", "4.5\n"}, {12, true, "15JAN2000", "15JAN2000", "9.5\n"},
                          {8, false, "15JAN2000", "15JAN2000", "9.5\n"}, {3, true, "bad", "bad", "invalid\n"}};
    for (const Case& c : cases) {
        const kivodt::ResolvedSpec<kivodt::InformatEntry> spec{&entry, c.width, 2, c.widthGiven};
        const std::string_view texts[] = {c.text};
        const Captured run = capture("", [&](const kivodt::Streams& streams) {
            return kivodt::runInformat(spec, texts, {}, streams);
        });
        EXPECT_EQ(lastField, c.field) << c.text;
        EXPECT_EQ(lastLength, static_cast<int>(std::strlen(c.text))) << c.text;
        EXPECT_EQ(lastDecimals, 2);
        EXPECT_EQ(run.out, c.printed) << c.text;
        EXPECT_EQ(run.status, std::string(c.printed) == "invalid\n" ? kivodt::EXIT_BAD_INPUT : kivodt::EXIT_OK);
    }
    const kivodt::ResolvedSpec<kivodt::InformatEntry> spec{&entry, 8, 0, false};
    const Captured hex = capture("4142FF00\nzz\n", [&](const kivodt::Streams& streams) {
        return kivodt::runInformat(spec, {}, {.hex = true}, streams);
    });
    EXPECT_EQ(lastField, std::string("AB\xFF\0", 4));
    EXPECT_EQ(hex.out, "4.5\n");
    EXPECT_EQ(hex.status, kivodt::EXIT_BAD_INPUT);
}

}  // namespace
