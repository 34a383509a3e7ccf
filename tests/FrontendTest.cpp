// The kivodt front end: its command line (options before or after the command word, values after SPEC,
// refusals), the line reader (lines cut wherever the reads end, lines over the limit named and skipped,
// a failed read ending the input after the last whole line) and the line runner's messages and outputs,
// with a long line streamed past in bounded memory.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "PeakMemory.h"
#include "RunCapture.h"
#include "kivodt/CommandLine.h"
#include "kivodt/LineReader.h"
#include "kivodt/Runner.h"

namespace {

using Arguments = std::vector<std::string_view>;

// What a command line asks for, in one comparable text, with the options it sets applied to a
// fresh locator.
std::string meaningOf(const Arguments& arguments) {
    kivodt::CommandLine line;
    std::string error;
    if (!kivodt::parseCommandLine(arguments, line, error)) return "error: " + error;
    if (line.help) return "help";
    if (line.version) return "version";
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
    EXPECT_EQ(meaningOf({"list", "--markdown"}), "list  [] locale/1940/./");
    EXPECT_EQ(meaningOf({"--csv", "", "convert", "--keep", "ANYDTDTE", "DATE9.", "--no-header", "x"}),
              "keep csv= convert ANYDTDTE DATE9.[--no-header;x;] locale/1940/./");
}

TEST(KivodtCommandLine, BadCommandLinesAreNamed) {
    const std::pair<Arguments, std::string> cases[] = {
        {{}, "error: no command given; kivodt --help shows the usage"},
        {{"--hex"}, "error: no command given; kivodt --help shows the usage"},
        {{"formats", "DATE9."}, "error: unknown command \"formats\"; did you mean format?"},
        {{"format"}, "error: format needs a SPEC; kivodt help format shows how"},
        {{"format", "--hex"}, "error: format needs a SPEC; kivodt help format shows how"},
        {{"convert", "ANYDTDTE"}, "error: convert needs an INFORMAT and a FORMAT; kivodt help convert shows how"},
        {{"format", "--csv"}, "error: --csv needs an argument"},
        {{"format", "--datestyle"}, "error: --datestyle needs an argument"},
        {{"format", "--date", "dmy", "DATE9."}, "error: unknown option \"--date\"; did you mean --datestyle?"},
        {{"format", "--datestyle", "xyz", "DATE9."},
         "refused: --datestyle takes dmy, dym, mdy, myd, ydm, ymd or locale, not \"xyz\""},
        {{"--yearcutoff", "19x0", "informat", "TIME"},
         "refused: --yearcutoff takes a year from 1582 to 19900, not \"19x0\""},
        {{"--yearcutoff", "1920", "list"}, "error: --yearcutoff does not go with list"},
        {{"help", "format", "x"}, "error: help takes no more arguments, not \"x\""},
        {{"format", "--missing-char", "ab", "DATE9."}, "refused: --missing-char takes one character, not \"ab\""},
    };
    for (const auto& [arguments, meaning] : cases) EXPECT_EQ(meaningOf(arguments), meaning);
}

using kivodt::LineReader;
using kivodt::test::BytesSource;
using kivodt::test::Captured;
using kivodt::test::capture;

// What a reader gives, a text a line: "text|", "<long N "start">|" for one over the limit (as the
// runner names a line the reader held whole, or the reader one it could not), and "!" for a failed read.
std::string readerGives(LineReader& reader) {
    std::string seen;
    for (LineReader::Next next = reader.next();; next = reader.next()) {
        std::size_t number = reader.firstNumber();
        const auto see = [&](std::string_view text) {
            const std::string start = kivoconvert::quotedStart(kivodt::shownStart(text, reader.maxLine()));
            seen += text.size() > reader.maxLine() ? "<long " + std::to_string(number) + " " + start + ">|"
                                                   : std::string(text) + "|";
            ++number;
        };
        if (next == LineReader::Next::LINES) {
            kivodt::forEachLine(reader.lines(), see);
        } else if (next == LineReader::Next::TEXTS) {
            std::for_each(reader.texts().begin(), reader.texts().end(), see);
        } else if (next == LineReader::Next::TOO_LONG) {
            seen += "<long " + std::to_string(reader.tooLongNumber()) + " " +
                    kivoconvert::quotedStart(reader.tooLongStart()) + ">|";
        } else {
            return seen + (next == LineReader::Next::READ_FAILED ? "!" : "");
        }
    }
}

constexpr LineReader::Limits SMALL{.maxLine = 4, .chunkBytes = 3, .blockBytes = 5, .maxTexts = 2};

TEST(KivodtLineReader, CutsLinesAndSkipsThoseOverTheLimitWhereverTheReadsEnd) {
    // The "\r" before the end of a line does not count; a lone "\r" is a byte of the line.
    const std::pair<const char*, const char*> cases[] = {
        {"abcd\nabcde\nab\r\n\nx", "abcd|<long 2 \"abcde\">|ab||x|"},
        {"abcd\r\nabcd\r", "abcd|abcd|"},
        {"abcd\r\r\n", "<long 1 \"abcd\\x0d\">|"},
        {"abcdefghijklmnop\nab", "<long 1 \"abcde\">|ab|"},
        {"a\rb\rc", "<long 1 \"a\\x0db\\x0dc\">|"},  // no "\n" at all: one line
        {"", ""},
        {"\n\n", "||"},
    };
    for (const auto& [input, texts] : cases) {
        for (std::size_t piece = 1; piece <= 8; ++piece) {
            BytesSource source(input, piece);
            LineReader reader(source, SMALL);
            EXPECT_EQ(readerGives(reader), texts) << '"' << input << "\" in reads of " << piece;
        }
    }
    const std::string_view arguments[] = {"a", "abcde", "", "abcd"};
    LineReader fromArguments(arguments, SMALL);
    EXPECT_EQ(readerGives(fromArguments), "a|<long 2 \"abcde\">||abcd|");
}

TEST(KivodtLineReader, CountsEveryLineWhateverBytesSurroundIt) {
    std::mt19937_64 random(11);
    const char bytes[] = {'\n', '\x0b', '\x0a' ^ '\x7f', '\x8a', '\0', 'a', '\r', '\xff'};
    for (int n = 0; n < 2000; ++n) {
        std::string lines(random() % 40, ' ');
        for (char& c : lines) c = bytes[random() % std::size(bytes)];
        const auto newlines = static_cast<std::size_t>(std::count(lines.begin(), lines.end(), '\n'));
        EXPECT_EQ(kivodt::countLines(lines), newlines + (!lines.empty() && lines.back() != '\n')) << n;
    }
}

TEST(KivodtLineReader, AFailedReadEndsTheInputAfterTheLastWholeLine) {
    const std::string input = "ab\r\n\nabc\nxyz\nq";
    for (std::size_t failAt = 0; failAt <= input.size(); ++failAt) {
        const std::size_t newline = failAt == 0 ? std::string::npos : input.rfind('\n', failAt - 1);
        BytesSource whole(newline == std::string::npos ? "" : input.substr(0, newline + 1));
        LineReader wholeLines(whole, SMALL);
        const std::string before = readerGives(wholeLines);
        BytesSource failing(input, 2, failAt);
        LineReader reader(failing, SMALL);
        EXPECT_EQ(readerGives(reader), before + "!") << "failing at byte " << failAt;
    }
}

// A run of `kivodt` over input with the given options.
Captured runOver(const std::string& input, const kivoconvert::Conversion& conversion,
                 const kivodt::RunOptions& options = {}) {
    BytesSource source(input);
    LineReader reader(source);
    return capture([&](const kivodt::OutputStreams& streams) {
        return kivodt::runLines(conversion, reader, options, streams);
    });
}

TEST(KivodtRunner, NamesEachTextItCannotUseAndGoesOn) {
    using kivoconvert::Conversion;
    const Conversion date = Conversion::formatting(kivodt::test::format("DATE9."), {});
    EXPECT_EQ(runOver("0\r\n22356\nnope\n.\n\n  \n-17321", date),
              (Captured{1, "01JAN1960\n17MAR2021\n         \n        .\n\n  \n30JUL1912\n",
                        "kivodt: line 3: not a number or missing value: \"nope\"\n"}));
    const Conversion read = Conversion::reading(kivodt::test::informat("DATE9."), {});
    EXPECT_EQ(runOver("15JAN2000\n17XYZ2021\n", read),
              (Captured{1, "14624\ninvalid\n", "kivodt: line 2: not read by DATE: \"17XYZ2021\"\n"}));
    Conversion convert;
    std::string error;
    ASSERT_TRUE(Conversion::converting(kivodt::test::informat("YYMMDD10."), kivodt::test::format("DATE11."), {},
                                       convert, error));
    EXPECT_EQ(runOver("2021-03-17\n 2021-03-17\n", convert, {.keep = true}),
              (Captured{1, "17-MAR-2021\n 2021-03-17\n",
                        "kivodt: line 2: 1 byte past the width 10: give a wider width or none: \" 2021-03-17\"\n"}));
}

TEST(KivodtRunner, StopsAtAFailedWriteOrReadAndSaysWhy) {
    const kivoconvert::Conversion date = kivoconvert::Conversion::formatting(kivodt::test::format("DATE9."), {});
    std::string manyLines;
    for (int i = 0; i < 100'000; ++i) manyLines += "0\n";
    std::FILE* full = std::fopen("/dev/full", "w");
    ASSERT_NE(full, nullptr);
    BytesSource many(manyLines + "bad\n");
    LineReader lines(many);
    const int status = kivodt::runLines(date, lines, {}, {full, stderr});
    std::fclose(full);
    EXPECT_EQ(status, kivodt::EXIT_STREAM_FAILED);
    // The whole lines before the failed read, and then the one line that names it.
    BytesSource failing("22356\n0\n1234", 1 << 20, 11);
    LineReader reader(failing);
    EXPECT_EQ(capture([&](const kivodt::OutputStreams& streams) { return kivodt::runLines(date, reader, {}, streams); }),
              (Captured{1, "17MAR2021\n01JAN1960\n", "kivodt: cannot read standard input: Input/output error\n"}));
}

TEST(KivodtMemory, ALineOfAnyLengthStreamsPast) {
#ifdef KIVO_SANITIZED
    GTEST_SKIP() << "the sanitizers' own memory would swamp the figure";
#endif
    if (const std::string reason = kivodt::test::cannotMeasureMemory(); !reason.empty()) GTEST_SKIP() << reason;
    std::FILE* input = std::tmpfile();
    const std::string piece(1 << 20, '7');
    std::fputs("1\n", input);
    for (int i = 0; i < 64; ++i) std::fwrite(piece.data(), 1, piece.size(), input);
    std::fputs("\n2\n", input);
    std::fflush(input);
    for (const char* command : {"format", "informat", "convert"}) {
        for (const char* threads : {"1", "2"}) {
            std::vector<const char*> arguments = {"--threads", threads, command, "YYMMDD10."};
            if (std::string_view(command) == "format") arguments.back() = "DATE9.";
            if (std::string_view(command) == "convert") arguments.push_back("DATE9.");
            // The long line is named: status 1.
            EXPECT_LT(kivodt::test::peakResidentKiB(input, arguments, 1), 16 << 10)
                << command << " on " << threads << " threads";
        }
    }
    std::fclose(input);
}

}  // namespace
