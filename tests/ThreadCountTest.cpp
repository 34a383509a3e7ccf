// The number of threads changes only the time: for every command and mode (format, informat, convert,
// --csv, hex pairs) a run on 2 or 3 threads writes byte for byte the output and the messages of a run on
// one, and ends with the same status, whatever the input holds. The inputs are drawn at random from
// pieces that have broken readers before: lines one below, at and one above the line limit, at the start,
// middle or end, with or without a last "\n", CRLF and CR-only line ends, NUL bytes, invalid UTF-8, empty
// and blank lines, and a read that fails at any byte; at the real limits and at small ones.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "RunCapture.h"
#include "kivodt/CsvRunner.h"
#include "kivodt/LineReader.h"

namespace {

using kivoconvert::Conversion;
using kivodt::LineReader;
using kivodt::test::BytesSource;
using kivodt::test::Captured;

// One input: its bytes and the byte a read fails at (npos: none).
struct Input {
    std::string bytes;
    std::size_t failAt;
};

Input randomInput(std::mt19937_64& random, std::size_t limit) {
    static const std::string pieces[] = {"22356", "2021-03-17", "17MAR2021", "10:30", ".", "abc", "", "  \t",
                                         std::string("1\0" "2", 3), "\xC3\x28\xFF", "a\rb", "0012345C", "-0.5e3",
                                         "\"2021-03-17\"", "\"q,\"\"r\""};
    std::string bytes;
    const int lines = static_cast<int>(random() % 40);
    for (int i = 0; i < lines; ++i) {
        if (random() % 8 == 0) {
            const std::size_t length = limit - 1 + random() % 3;
            bytes += std::string(length, static_cast<char>('0' + random() % 10));
        } else {
            bytes += pieces[random() % std::size(pieces)];
        }
        if (i + 1 < lines || random() % 2 == 0) bytes += random() % 3 == 0 ? "\r\n" : "\n";
    }
    return {bytes, random() % 3 == 0 ? random() % (bytes.size() + 1) : std::string::npos};
}

// The conversions of the commands, each with its hex sides.
std::vector<Conversion> conversions() {
    using kivodt::test::format;
    using kivodt::test::informat;
    std::vector<Conversion> all = {
        Conversion::formatting(format("DATE9."), {}),
        Conversion::formatting(format("PDJULG4."), {.output = true}),
        Conversion::reading(informat("ANYDTDTE"), {}),
        Conversion::reading(informat("PDTIME4."), {.input = true}),
    };
    for (const auto& [from, to] : {std::pair{"ANYDTDTE", "DATE9."}, {"YYMMDD10.", "DATETIME20."}}) {
        std::string error;
        EXPECT_TRUE(Conversion::converting(informat(from), format(to), {}, all.emplace_back(), error)) << error;
    }
    return all;
}

Captured runLines(const Conversion& conversion, const Input& input, const LineReader::Limits& limits,
                  int threads) {
    BytesSource source(input.bytes, 4099, input.failAt);
    LineReader reader(source, limits);
    return kivodt::test::capture([&](const kivodt::OutputStreams& streams) {
        return kivodt::runLines(conversion, reader, {.threads = threads, .elementsPerRun = 1}, streams);
    });
}

Captured runCsv(const Conversion& conversion, const Input& input, const LineReader::Limits& limits, int threads) {
    BytesSource source("day\n" + input.bytes, 4099, input.failAt);
    const kivodt::ColumnChoice first[] = {{1, {}}};
    const kivodt::CsvOptions csv{.columns = first, .maxRecordLength = limits.maxLine, .blockRows = limits.maxTexts};
    return kivodt::test::capture([&](const kivodt::OutputStreams& streams) {
        return kivodt::runCsv(conversion, csv, {.threads = threads, .elementsPerRun = 1}, source, streams);
    });
}

void expectSameOnAnyThreadCount(const LineReader::Limits& limits, int inputs, std::uint64_t seed) {
    std::mt19937_64 random(seed);
    const std::vector<Conversion> all = conversions();
    for (int n = 0; n < inputs; ++n) {
        const Input input = randomInput(random, limits.maxLine);
        for (std::size_t c = 0; c < all.size(); ++c) {
            const Captured lines = runLines(all[c], input, limits, 1);
            const Captured csv = runCsv(all[c], input, limits, 1);
            for (int threads : {2, 3}) {
                ASSERT_EQ(runLines(all[c], input, limits, threads), lines)
                    << "lines, conversion " << c << ", input " << n << " of seed " << seed << ", on " << threads;
                ASSERT_EQ(runCsv(all[c], input, limits, threads), csv)
                    << "csv, conversion " << c << ", input " << n << " of seed " << seed << ", on " << threads;
            }
        }
    }
}

TEST(ThreadCount, ChangesNothingButTheTimeAtSmallLimits) {
    expectSameOnAnyThreadCount({.maxLine = 12, .chunkBytes = 7, .blockBytes = 20, .maxTexts = 5}, 60, 2026);
}

TEST(ThreadCount, ChangesNothingButTheTimeAtTheRealLimits) {
    expectSameOnAnyThreadCount({}, 6, 1124);
}

}  // namespace
