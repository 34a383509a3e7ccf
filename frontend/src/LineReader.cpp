#include "kivodt/LineReader.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "kivoconvert/Notes.h"

namespace kivodt {

namespace {

std::string_view withoutCarriageReturn(std::string_view line) {
    return !line.empty() && line.back() == '\r' ? line.substr(0, line.size() - 1) : line;
}

const char* lastNewline(const char* begin, std::size_t size) {
    return static_cast<const char*>(memrchr(begin, '\n', size));
}

}  // namespace

// Eight bytes at a time. A newline is a zero byte of the word xor newlines; adding 0x7F to each byte's
// low seven bits sets its high bit unless they are all zero, and no sum carries into the next byte, so
// the high bits left clear mark the zero bytes exactly.
std::size_t countLines(std::string_view lines) noexcept {
    constexpr std::uint64_t LOWS = 0x7F7F7F7F7F7F7F7FULL, ONES = 0x0101010101010101ULL, NEWLINES = ONES * '\n';
    std::size_t count = 0, i = 0;
    for (; i + 8 <= lines.size(); i += 8) {
        std::uint64_t word;
        std::memcpy(&word, lines.data() + i, 8);
        const std::uint64_t x = word ^ NEWLINES;
        const std::uint64_t marks = ~(((x & LOWS) + LOWS) | x | LOWS) >> 7;  // 1 in each byte that was zero
        count += static_cast<std::size_t>((marks * ONES) >> 56);             // their sum, in the top byte
    }
    for (; i < lines.size(); ++i) {
        count += lines[i] == '\n';
    }
    return count + (!lines.empty() && lines.back() != '\n' ? 1 : 0);
}

// The buffer holds a chunk beside the longest line that may be kept, with its "\r\n".
LineReader::LineReader(InputSource& input, Limits limits)
    : limits_(limits),
      input_(&input),
      buffer_(new char[limits.maxLine + 2 + limits.chunkBytes]),
      capacity_(limits.maxLine + 2 + limits.chunkBytes) {}

LineReader::LineReader(std::span<const std::string_view> arguments, Limits limits)
    : limits_(limits), arguments_(arguments) {}

LineReader::Next LineReader::next() {
    texts_.clear();
    lines_ = {};
    lineCount_ = 0;
    firstNumber_ = nextNumber_;
    return fromArguments() ? nextArguments() : nextLines();
}

LineReader::Next LineReader::nextArguments() {
    const std::size_t count = std::min(arguments_.size(), limits_.maxTexts);
    texts_.assign(arguments_.begin(), arguments_.begin() + static_cast<std::ptrdiff_t>(count));
    arguments_ = arguments_.subspan(count);
    nextNumber_ += count;
    return count == 0 ? Next::END : Next::TEXTS;
}

LineReader::Next LineReader::nextLines() {
    if (skipping_ && !skipLongLine()) {
        return error_ != 0 ? Next::READ_FAILED : Next::END;
    }
    for (;;) {
        const char* const begin = buffer_.get() + start_;
        const std::size_t held = held_ - start_;
        // Whole lines up to the block's size; else the one line that starts here, however long.
        const char* end = lastNewline(begin, std::min(held, limits_.blockBytes));
        if (end == nullptr) {
            end = static_cast<const char*>(std::memchr(begin, '\n', held));
        }
        if (end != nullptr) {
            return block(static_cast<std::size_t>(end - buffer_.get()) + 1);
        }
        if (ended_) {
            // A line cut short by a failed read is never given; a last line with no "\n" is.
            return error_ != 0 ? Next::READ_FAILED : held == 0 ? Next::END : block(held_);
        }
        // More than the limit and a "\r" held, with no "\n" yet: over the limit, whatever follows.
        if (held > limits_.maxLine + 1) {
            skipping_ = true;
            return tooLong({begin, held});
        }
        refill();
    }
}

// The whole lines held up to `end`, as a block; numbered on.
LineReader::Next LineReader::block(std::size_t end) {
    lines_ = std::string_view(buffer_.get() + start_, end - start_);
    start_ = end;
    lineCount_ = countLines(lines_);
    nextNumber_ += lineCount_;
    return Next::LINES;
}

LineReader::Next LineReader::tooLong(std::string_view start) {
    tooLongNumber_ = nextNumber_++;
    tooLongStart_.assign(shownStart(withoutCarriageReturn(start), limits_.maxLine));
    return Next::TOO_LONG;
}

// Reads past the rest of a line over the limit; false when the input ends first.
bool LineReader::skipLongLine() {
    for (;;) {
        const char* begin = buffer_.get() + start_;
        const auto* newline = static_cast<const char*>(std::memchr(begin, '\n', held_ - start_));
        if (newline != nullptr) {
            start_ = static_cast<std::size_t>(newline - buffer_.get()) + 1;
            skipping_ = false;
            return true;
        }
        start_ = held_ = 0;
        if (ended_) {
            skipping_ = false;
            return false;
        }
        refill();
    }
}

// Moves the start of the line being read to the front and reads after it.
void LineReader::refill() {
    std::memmove(buffer_.get(), buffer_.get() + start_, held_ - start_);
    held_ -= start_;
    start_ = 0;
    const ReadResult got = input_->read(buffer_.get() + held_, capacity_ - held_);
    held_ += got.bytes;
    ended_ = got.ended;
    error_ = got.error;
}

}  // namespace kivodt
