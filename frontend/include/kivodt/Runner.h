#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "kivoconvert/Conversion.h"
#include "kivodt/BufferedOutput.h"
#include "kivodt/LineReader.h"

namespace kivodt {

// Exit statuses of kivodt.
inline constexpr int EXIT_OK = 0;
inline constexpr int EXIT_BAD_INPUT = 1;      // some value or text could not be used; the run went on
inline constexpr int EXIT_STREAM_FAILED = 1;  // reading the input or writing the output failed; the run stopped
inline constexpr int EXIT_USAGE = 2;          // bad command line, spec or environment; nothing was run

// Where a run writes: its output, and its messages.
struct OutputStreams {
    std::FILE* out;
    std::FILE* err;
};

struct RunOptions {
    bool keep = false;  // a text that cannot be used is written as it came
    int threads = 1;    // the most threads that convert one block; the output is the same for any count
    std::size_t elementsPerRun = kivoconvert::Fanout::ELEMENTS_PER_RUN;  // the fewest a thread is started for
    // The input converted on the calling thread alone before extra threads start: starting them pays
    // only on an input that runs long enough. 0: from the first block.
    std::size_t aloneFor = 0;
};

// What the default thread count converts alone: a few blocks, so that a small input is never slower
// than on one thread and a large one soon runs on all.
inline constexpr std::size_t DEFAULT_ALONE_BYTES = std::size_t{8} << 20;

// `format` takes numbers; a user who gives it dates meant convert or informat. The first text of a run
// that a free-form informat would read as a date, time or datetime gets a pointer to them at the end of
// its message ("; to read dates, use convert or informat: kivodt convert ANYDTDTE DATE9."), once.
class DateTextHint {
public:
    // Whether the pointer may follow the message of a text: `format` given what reads as a date.
    static bool fits(const kivoconvert::Conversion& conversion, kivoconvert::Note note, std::string_view text);
    static std::string text(const kivoconvert::Conversion& conversion);
    // The pointer, for the first text of a run that it fits; empty for every other.
    std::string after(const kivoconvert::Conversion& conversion, kivoconvert::Note note, std::string_view text);
    bool given() const noexcept { return given_; }
    void give() noexcept { given_ = true; }

private:
    bool given_ = false;
};

// "kivodt: line 3: WHAT: TEXT", appended without its newline: a pointer may still follow it.
void appendMessage(std::string& messages, const char* place, std::size_t number, std::string_view what,
                   std::string_view text);

// The message, with its newline, of a line or argument over the reader's limit, of which `start` (its
// first bytes, or all of it) is at hand: the same words whoever meets it.
std::string tooLongMessage(const char* place, std::size_t number, std::size_t maxLine, std::string_view start);

// One output line per text of the reader's blocks, each block's lines cut into runs that convert and
// write on up to options.threads threads, joined in input order: the conversion's output; for a left-out (empty or
// blank) text, the text as it came; for a text that cannot be used, the conversion's stand-in (with
// options.keep, the text as it came). Every named text and every line over the limit is named on err
// with its line or argument number ("kivodt: line 3: not read by DATE: "17XYZ2021""), and the run goes
// on (status 1). A failed read or write is named there too ("kivodt: cannot write standard output: No
// space left on device") and ends the run (status 1).
int runLines(const kivoconvert::Conversion& conversion, LineReader& reader, const RunOptions& options,
             const OutputStreams& streams);

// The end of a run: flushes out, and names a failed write or read on err (status 1); else returns status.
int endOfRun(BufferedOutput& out, int readError, int status, std::FILE* err);

// Every format and informat with its widths, default width and decimals.
void printCatalog(std::FILE* out);

}  // namespace kivodt
