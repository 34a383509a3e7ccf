#pragma once

#include <cstddef>
#include <cstdio>
#include <limits>
#include <span>
#include <string_view>

#include "kivodt/BufferedOutput.h"
#include "kivodt/FieldConverter.h"
#include "kivodt/Spec.h"

namespace kivodt {

// Exit statuses of kivodt.
inline constexpr int EXIT_OK = 0;
inline constexpr int EXIT_BAD_INPUT = 1;      // some value or text could not be used; the run went on
inline constexpr int EXIT_STREAM_FAILED = 1;  // reading the input or writing the output failed; the run stopped
inline constexpr int EXIT_USAGE = 2;          // bad command line, spec or environment; nothing was run

// An informat takes the text's length as an int, so no longer line can be read.
inline constexpr std::size_t MAX_LINE_LENGTH = std::numeric_limits<int>::max();

struct Streams {
    std::FILE* in;
    std::FILE* out;
    std::FILE* err;
};

struct RunOptions {
    bool hex = false;                             // fields written / texts read as hex byte pairs
    bool keep = false;                            // convert: a text that cannot be used is written as it came
    std::size_t maxLineLength = MAX_LINE_LENGTH;  // a longer line or argument is named and skipped
    // Standard input is converted in blocks on this many threads (the output is the same for any count);
    // a line longer than a block is then named and skipped.
    int threads = 1;
};

// A run takes the arguments, or the lines of streams.in when there are none. A line that cannot be used
// is named on streams.err and the run goes on (status 1); a failed read or write is named there too
// ("kivodt: cannot write standard output: No space left on device") and ends the run (status 1).

// One line per value: exactly the field's bytes (as hex pairs with options.hex). A format that writes
// bytes runs only with options.hex; without it nothing is run and the result is EXIT_USAGE.
int runFormat(const ResolvedSpec<FormatEntry>& spec, std::span<const std::string_view> values,
              const RunOptions& options, const Streams& streams);

// One line per text: the value read, or "invalid". Texts are hex pairs with options.hex.
int runInformat(const ResolvedSpec<InformatEntry>& spec, std::span<const std::string_view> texts,
                const RunOptions& options, const Streams& streams);

// One line per text: the converter's output, exactly the format's bytes. A text the informat rejects is
// named and gives a blank field of the format's width, or itself with options.keep (status 1).
int runConvert(const FieldConverter& converter, std::span<const std::string_view> texts, const RunOptions& options,
               const Streams& streams);

// The end of a streaming run: flushes out, and names a failed write or read on err (status 1); else
// returns status.
int endOfRun(BufferedOutput& out, int readError, int status, std::FILE* err);

// Every format and informat with its widths, default width and decimals.
void printCatalog(std::FILE* out);

}  // namespace kivodt
