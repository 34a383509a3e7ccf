#include "kivodt/LineReader.h"

#include <algorithm>
#include <cstring>

#include "kivoconvert/Notes.h"

namespace kivodt {

namespace {

std::string_view withoutCarriageReturn(std::string_view line) {
    return !line.empty() && line.back() == '\r' ? line.substr(0, line.size() - 1) : line;
}

}  // namespace

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
    firstNumber_ = nextNumber_;
    return fromArguments() ? nextArguments() : nextLines();
}

LineReader::Next LineReader::nextArguments() {
    while (!arguments_.empty() && texts_.size() < limits_.maxTexts) {
        const std::string_view argument = arguments_.front();
        if (argument.size() > limits_.maxLine) {
            if (!texts_.empty()) {
                break;
            }
            arguments_ = arguments_.subspan(1);
            return tooLong(argument);
        }
        texts_.push_back(argument);
        arguments_ = arguments_.subspan(1);
        ++nextNumber_;
    }
    return texts_.empty() ? Next::END : Next::BLOCK;
}

LineReader::Next LineReader::nextLines() {
    if (skipping_ && !skipLongLine()) {
        return error_ != 0 ? Next::READ_FAILED : Next::END;
    }
    for (;;) {
        const Next whole = wholeLines();
        if (whole != Next::END) {
            return whole;
        }
        if (ended_) {
            // A line cut short by a failed read is never given.
            return error_ != 0 ? Next::READ_FAILED : lastLine();
        }
        // More than the limit and a "\r" held, with no "\n" yet: over the limit, whatever follows.
        if (held_ - start_ > limits_.maxLine + 1) {
            skipping_ = true;
            return tooLong({buffer_.get() + start_, held_ - start_});
        }
        refill();
    }
}

// The whole lines held, as a block (END when none is held), or the first of them when it is too long.
LineReader::Next LineReader::wholeLines() {
    const char* const buffer = buffer_.get();
    while (texts_.size() < limits_.maxTexts) {
        const char* begin = buffer + start_;
        const auto* newline = static_cast<const char*>(std::memchr(begin, '\n', held_ - start_));
        if (newline == nullptr) {
            break;
        }
        const std::string_view line = withoutCarriageReturn({begin, static_cast<std::size_t>(newline - begin)});
        if (line.size() > limits_.maxLine) {
            if (!texts_.empty()) {
                break;
            }
            start_ = static_cast<std::size_t>(newline - buffer) + 1;
            return tooLong(line);
        }
        texts_.push_back(line);
        start_ = static_cast<std::size_t>(newline - buffer) + 1;
        ++nextNumber_;
    }
    return texts_.empty() ? Next::END : Next::BLOCK;
}

// What is left once the input has ended: a last line with no "\n", or nothing.
LineReader::Next LineReader::lastLine() {
    if (start_ == held_) {
        return Next::END;
    }
    const std::string_view line = withoutCarriageReturn({buffer_.get() + start_, held_ - start_});
    start_ = held_;
    if (line.size() > limits_.maxLine) {
        return tooLong(line);
    }
    texts_.push_back(line);
    ++nextNumber_;
    return Next::BLOCK;
}

// The start a message shows is the same however much of the line had been read when it was found too
// long: a byte past what the message shows, and never past the limit's next byte, which is still text.
LineReader::Next LineReader::tooLong(std::string_view start) {
    tooLongNumber_ = nextNumber_++;
    tooLongStart_.assign(start.substr(0, std::min(kivoconvert::SHOWN_TEXT_BYTES, limits_.maxLine) + 1));
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
