#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kivoconvert/Notes.h"
#include "kivodt/InputSource.h"

namespace kivodt {

// The line limit: the most bytes a line may hold, its "\n" or "\r\n" not counted, for every command and
// thread count. A longer line is named and skipped while it streams past, never held whole.
inline constexpr std::size_t MAX_LINE_BYTES = std::size_t{1} << 20;

// The texts of a run, a block at a time: the lines of an input as they came, or the command's
// arguments. The reader decides what a block is, so blocks are the same whatever converts them: whole
// lines up to about `blockBytes` (or one longer line), or up to `maxTexts` arguments. A line longer than
// the limit is named by whoever meets it first: the reader, when it cannot hold the line and so skips it
// as it streams past (TOO_LONG), or the runner, when the line lies whole in a block; the words are the
// same.
//
// Memory stays bounded: the input is read in chunks into a buffer that holds a chunk and one line of
// the limit. A failed read ends the input after the last whole line before it: the line it cut short is
// never given.
class LineReader {
public:
    enum class Next {
        LINES,        // lines() holds the next whole lines, lineCount() of them
        TEXTS,        // texts() holds the next arguments
        TOO_LONG,     // the line tooLongNumber() is over the limit; tooLongStart() is its start
        END,          // no more texts
        READ_FAILED,  // reading failed; readError() says why
    };
    static constexpr std::size_t CHUNK_BYTES = std::size_t{1} << 21;
    static constexpr std::size_t BLOCK_BYTES = std::size_t{1} << 21;
    static constexpr std::size_t MAX_TEXTS = 65536;

    struct Limits {
        std::size_t maxLine = MAX_LINE_BYTES;
        std::size_t chunkBytes = CHUNK_BYTES;
        std::size_t blockBytes = BLOCK_BYTES;
        std::size_t maxTexts = MAX_TEXTS;
    };

    LineReader(InputSource& input, Limits limits);
    explicit LineReader(InputSource& input) : LineReader(input, Limits{}) {}
    LineReader(std::span<const std::string_view> arguments, Limits limits);

    Next next();

    // A LINES block: whole lines end to end as they came, each ending in "\n" but perhaps the last (at
    // the input's end); valid until the next call.
    std::string_view lines() const noexcept { return lines_; }
    std::size_t lineCount() const noexcept { return lineCount_; }
    // A TEXTS block: the next arguments.
    std::span<const std::string_view> texts() const noexcept { return texts_; }
    // The number of the block's first line or argument, from 1.
    std::size_t firstNumber() const noexcept { return firstNumber_; }
    std::size_t tooLongNumber() const noexcept { return tooLongNumber_; }
    std::string_view tooLongStart() const noexcept { return tooLongStart_; }
    std::size_t maxLine() const noexcept { return limits_.maxLine; }
    bool fromArguments() const noexcept { return input_ == nullptr; }
    int readError() const noexcept { return error_; }

private:
    Next nextArguments();
    Next nextLines();
    Next block(std::size_t end);
    Next tooLong(std::string_view start);
    bool skipLongLine();
    void refill();

    Limits limits_;
    InputSource* input_ = nullptr;
    std::span<const std::string_view> arguments_;
    std::unique_ptr<char[]> buffer_;  // [start_, held_) not yet given, from a line's start
    std::size_t capacity_ = 0;
    std::size_t start_ = 0;
    std::size_t held_ = 0;
    bool ended_ = false;
    bool skipping_ = false;  // inside a line over the limit, already named
    int error_ = 0;
    std::size_t nextNumber_ = 1;
    std::string_view lines_;
    std::size_t lineCount_ = 0;
    std::vector<std::string_view> texts_;
    std::size_t firstNumber_ = 0;
    std::size_t tooLongNumber_ = 0;
    std::string tooLongStart_;
};

// The lines of a LINES block, or of a share of one: its newlines, and one more for a last line that
// has none.
std::size_t countLines(std::string_view lines) noexcept;

// The first bytes of a line over the limit that a message shows: one past what it shows, and never past
// the limit's next byte, which is still the line's, so they are the same however much of the line was
// read when it was found too long.
constexpr std::string_view shownStart(std::string_view line, std::size_t maxLine) noexcept {
    return line.substr(0, (kivoconvert::SHOWN_TEXT_BYTES < maxLine ? kivoconvert::SHOWN_TEXT_BYTES : maxLine) + 1);
}

// Calls each(text) for every line of a LINES block, without its "\n" or "\r\n".
template <class Each>
void forEachLine(std::string_view lines, Each each) {
    while (!lines.empty()) {
        const std::size_t newline = lines.find('\n');
        std::string_view line = lines.substr(0, newline);
        lines.remove_prefix(newline == std::string_view::npos ? lines.size() : newline + 1);
        each(!line.empty() && line.back() == '\r' ? line.substr(0, line.size() - 1) : line);
    }
}

}  // namespace kivodt
