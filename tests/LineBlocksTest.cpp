// Lines converted block by block on several threads come out as one thread converts them line by line:
// the same bytes in the same order, the same line numbers in the messages, whatever the thread count and
// block size, with carriage returns, empty lines, a last line without "\n" and lines too long for a block.
#include <gtest/gtest.h>

#include <string>

#include "RunCapture.h"
#include "kivodt/LineBlocks.h"

namespace {

// Upper-cases each line; a line "bad" is named by its number in the messages.
int upperCase(std::string_view lines, std::size_t first, std::string& out, std::string& messages) {
    int status = 0;
    kivodt::forEachLine(lines, first, [&](std::string_view line, std::size_t number) {
        if (line == "bad") {
            messages += "line " + std::to_string(number) + " bad\n";
            status = 1;
            return;
        }
        for (char c : line) {
            out += static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
        }
        out += '\n';
    });
    return status;
}

kivodt::test::Captured run(const std::string& input, int threads, std::size_t blockBytes) {
    const auto tooLong = [](std::size_t number, std::string& messages) {
        messages += "line " + std::to_string(number) + " too long\n";
    };
    return kivodt::test::capture(input, [&](const kivodt::Streams& streams) {
        return kivodt::convertLineBlocks({streams.in, streams.out, streams.err}, threads, upperCase, tooLong, blockBytes)
            .status;
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

}  // namespace
