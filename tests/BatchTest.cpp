// Conversions spread over threads give what one thread gives. The batch API, on any number of threads,
// gives what kivodt gives one value at a time, in input order, and a locator given to a batch reaches all
// of its threads. Lines converted block by block come out as one thread converts them line by line: the
// same bytes in the same order and the same line numbers in the messages, whatever the thread count and
// block size, with carriage returns, empty lines, a last line without "\n" and lines too long for a block.
// And formats and informats on several threads while another thread changes the options they read: every
// call sees one whole option value, the old or the new.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "RunCapture.h"
#include "kivo/Formats.h"
#include "kivo/Informats.h"
#include "kivodt/Batch.h"
#include "kivodt/LineBlocks.h"
#include "kivodt/Runner.h"
#include "kivodt/Values.h"
#include "kivox/Missing.h"
#include "kivox/Services.h"

namespace {

// Sizes below, at and above the thread counts, none divisible by 2, 3 and 4 at once.
constexpr std::size_t SIZES[] = {0, 3, 1001};
constexpr int MAX_THREADS = 4;

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

const char* const TEXTS[] = {"15JAN2000", "2000-01-15T10:30:00", "01/02/2003", "10:30 PM", ".", "",
                             "  17MAR2021 ", "20000115", "99:99", "garbage text longer than its field"};

// What `kivodt informat` prints for the texts: one value or "invalid" per line; and the same from a batch.
std::string runnerOutput(const kivodt::ResolvedSpec<kivodt::InformatEntry>& spec,
                         const std::vector<std::string_view>& texts) {
    return kivodt::test::capture("", [&](const kivodt::Streams& streams) {
        return kivodt::runInformat(spec, texts, {}, streams);
    }).out;
}

std::string batchOutput(const kivodt::ResolvedSpec<kivodt::InformatEntry>& spec,
                        const std::vector<std::string_view>& texts, int threads) {
    std::string bytes;
    std::vector<std::size_t> offsets{0};
    for (std::string_view text : texts) offsets.push_back((bytes += text).size());
    std::vector<double> results(texts.size());
    std::vector<unsigned char> accepted(texts.size());
    kivodt::informatBatch(*spec.entry, spec.widthGiven ? spec.width : kivodt::WHOLE_TEXT, spec.decimals,
                          {bytes.data(), texts.empty() ? std::span<const std::size_t>() : offsets}, results,
                          accepted, threads);
    std::string printed;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        char value[32];
        printed += accepted[i] != 0 ? std::string(value, kivodt::printValue(results[i], value)) : "invalid";
        printed += '\n';
    }
    return printed;
}

TEST(Batch, FormatsAsOneCallPerValueOnAnyNumberOfThreads) {
    for (std::size_t size : SIZES) {
        const std::vector<double> values = sampleValues(size);
        for (const kivodt::FormatEntry& entry : kivodt::formatCatalog()) {
            const kivodt::Limits& limits = entry.limits;
            for (int width : {limits.defaultWidth, limits.maxWidth}) {
                const int decimals = kivodt::maxDecimals(limits, width);
                std::string expected(size * width, '#');
                for (std::size_t i = 0; i < size; ++i) {
                    entry.function(expected.data() + i * width, width, decimals, values[i]);
                }
                for (int threads = 1; threads <= MAX_THREADS; ++threads) {
                    std::string fields(size * width, '#');
                    kivodt::formatBatch(entry, width, decimals, values, fields.data(), threads);
                    EXPECT_EQ(fields, expected) << entry.name << width << "." << decimals << " on " << threads;
                }
            }
        }
    }
}

TEST(Batch, ReadsAsKivodtDoesOnAnyNumberOfThreads) {
    for (std::size_t size : SIZES) {
        std::vector<std::string_view> texts;
        for (std::size_t i = 0; i < size; ++i) texts.emplace_back(TEXTS[i % std::size(TEXTS)]);
        for (const kivodt::InformatEntry& entry : kivodt::informatCatalog()) {
            if (entry.readsBytes) continue;  // kivodt reads those only as hex pairs; the batch takes the bytes
            for (bool widthGiven : {false, true}) {
                const kivodt::ResolvedSpec<kivodt::InformatEntry> spec{&entry, entry.limits.defaultWidth, 0, widthGiven};
                const std::string expected = runnerOutput(spec, texts);
                for (int threads = 1; threads <= MAX_THREADS; ++threads) {
                    EXPECT_EQ(batchOutput(spec, texts, threads), expected)
                        << entry.name << (widthGiven ? "9." : "") << " on " << threads;
                }
            }
        }
    }
}

TEST(Batch, LocatorReachesEveryThreadOfTheBatchAndTheCallersOneIsTheDefault) {
    kivo::ServiceLocator own;
    own.env().setMissingChar('?');
    const std::vector<double> missing(7, kivo::lum_numeric::MISSING);
    std::string question;
    for (std::size_t i = 0; i < missing.size(); ++i) question += "    ?";
    const kivodt::FormatEntry& date = *kivodt::findFormat("DATE");
    std::string fields(missing.size() * 5, '#');
    kivodt::formatBatch(date, 5, 0, missing, fields.data(), 3, &own);
    EXPECT_EQ(fields, question);
    EXPECT_EQ(kivo::ServiceLocator::current(), nullptr) << "the caller's own locator is back";

    kivo::ServiceLocator::setCurrent(&own);
    fields.assign(fields.size(), '#');
    kivodt::formatBatch(date, 5, 0, missing, fields.data(), 3);
    kivo::ServiceLocator::setCurrent(nullptr);
    EXPECT_EQ(fields, question);
}

TEST(Batch, RefusesWhatItCannotConvertSafely) {
    const kivodt::FormatEntry& date = *kivodt::findFormat("DATE");
    const kivodt::InformatEntry& anydtdte = *kivodt::findInformat("ANYDTDTE");
    double result[2];
    unsigned char accepted[2];
    const std::size_t backwards[] = {0, 4, 2};
    const std::size_t three[] = {0, 1, 2, 3};
    EXPECT_THROW(kivodt::formatBatch(date, 4, 0, {}, nullptr, 1), std::invalid_argument);
    EXPECT_THROW(kivodt::informatBatch(anydtdte, 9, 1, {"0123", {}}, {}, {}, 1), std::invalid_argument);
    EXPECT_THROW(kivodt::informatBatch(anydtdte, 9, 0, {"0123", backwards}, result, accepted, 1),
                 std::invalid_argument);
    EXPECT_THROW(kivodt::informatBatch(anydtdte, 9, 0, {"0123", three}, result, accepted, 1), std::invalid_argument);
}

// Upper-cases each line; a line "bad" is named by its number in the messages.
int upperCase(std::string_view lines, std::size_t first, std::string& out, std::string& messages) {
    int status = 0;
    kivodt::forEachLine(lines, first, [&](std::string_view line, std::size_t number) {
        if (line == "bad") {
            messages += "line " + std::to_string(number) + " bad\n";
            status = 1;
            return;
        }
        for (char c : line) out += static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
        out += '\n';
    });
    return status;
}

kivodt::test::Captured run(const std::string& input, int threads, std::size_t blockBytes) {
    const auto tooLong = [](std::size_t number, std::string& messages) {
        messages += "line " + std::to_string(number) + " too long\n";
    };
    return kivodt::test::capture(input, [&](const kivodt::Streams& streams) {
        const kivodt::LineBlockStreams lineStreams{streams.in, streams.out, streams.err};
        return kivodt::convertLineBlocks(lineStreams, threads, upperCase, tooLong, blockBytes).status;
    });
}

TEST(LineBlocks, AnyThreadCountAndBlockSizeGivesTheLineByLineOutput) {
    std::string many;
    for (int i = 0; i < 500; ++i) {
        many += i % 97 == 0 ? "bad\n" : "line" + std::to_string(i) + (i % 3 == 0 ? "\r\n" : "\n");
    }
    const std::string inputs[] = {"", "\n", "a", "a\nb", "a\r\n\nb\n", "bad\nx\nbad", many};
    for (const std::string& input : inputs) {
        const kivodt::test::Captured expected = run(input, 1, 1 << 20);
        for (int threads : {1, 2, 3, 4}) {
            for (std::size_t block : {std::size_t{64}, std::size_t{1000}, std::size_t{1} << 20}) {
                const kivodt::test::Captured got = run(input, threads, block);
                EXPECT_EQ(got.out, expected.out) << threads << " threads, block " << block;
                EXPECT_EQ(got.err, expected.err) << threads << " threads, block " << block;
                EXPECT_EQ(got.status, expected.status);
            }
        }
    }
}

TEST(LineBlocks, ALineLongerThanTheBlockIsNamedAndSkipped) {
    const std::string input = "a\n" + std::string(100, 'x') + "\r\nb\n" + std::string(50, 'y');
    for (int threads : {1, 2}) {
        const kivodt::test::Captured got = run(input, threads, 16);
        EXPECT_EQ(got.out, "A\nB\n");
        EXPECT_EQ(got.err, "line 2 too long\nline 4 too long\n");
        EXPECT_EQ(got.status, 1);
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
