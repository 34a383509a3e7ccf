#pragma once

#include <cstddef>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>

namespace kivodt {

// A stream's lines in large blocks, each block converted on several threads and written in input order:
// the output is byte for byte what converting line by line would give, but the conversion of a block
// runs on `threads` threads at once.
//
// The reader takes the stream in blocks of blockBytes, cuts each block's whole lines into `threads` runs
// of about equal size, and hands every run to convert(lines, firstNumber, out, messages) on its own
// thread (the calling thread takes the first). `lines` holds whole lines, each ending in "\n" except
// perhaps the stream's last; a run appends its output lines to `out` and its messages to `messages` and
// returns its status. Once all runs of a block are done, their outputs go to `out`, their messages to
// `err`, run after run. Memory stays at a few blocks however long the stream.
//
// A line longer than the block is not kept: its number goes to tooLong(number, messages) and the run
// goes on after it.
struct LineBlockStreams {
    std::FILE* in;
    std::FILE* out;
    std::FILE* err;
};

using ConvertLines = std::function<int(std::string_view lines, std::size_t firstNumber, std::string& out,
                                       std::string& messages)>;
using ReportTooLong = std::function<void(std::size_t number, std::string& messages)>;

struct LineBlockResult {
    int status = 0;      // the highest status a run returned (1 when a line was too long)
    int readError = 0;   // the errno of a failed read, which ended the input
    int writeError = 0;  // the errno of a failed write, which ended the run
};

inline constexpr std::size_t LINE_BLOCK_BYTES = std::size_t{4} << 20;

LineBlockResult convertLineBlocks(const LineBlockStreams& streams, int threads, const ConvertLines& convert,
                                  const ReportTooLong& tooLong, std::size_t blockBytes = LINE_BLOCK_BYTES);

// Calls each(line, number) for the lines of `lines` (as a run receives them), without "\n" or "\r\n",
// numbered from firstNumber.
template <class Each>
void forEachLine(std::string_view lines, std::size_t firstNumber, Each each) {
    std::size_t number = firstNumber;
    while (!lines.empty()) {
        const std::size_t newline = lines.find('\n');
        std::string_view line = lines.substr(0, newline);
        lines.remove_prefix(newline == std::string_view::npos ? lines.size() : newline + 1);
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        each(line, number++);
    }
}

}  // namespace kivodt
