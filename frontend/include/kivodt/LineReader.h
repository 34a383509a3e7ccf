#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kivodt/InputSource.h"

namespace kivodt {

// The line limit: the most bytes a line may hold, its "\n" or "\r\n" not counted, for every command and
// thread count. A longer line is named and skipped while it streams past, never held whole.
inline constexpr std::size_t MAX_LINE_BYTES = std::size_t{1} << 20;

// The texts of a run, a block at a time: the lines of an input, each without its "\n" or "\r\n" (a last
// line needs no "\n"), or the command's arguments. The reader decides what a block is (whole lines, at
// most `maxTexts` of them, never a line over the limit), so blocks are the same whatever converts them.
//
// Memory stays bounded by the block: the input is read in chunks into a buffer that holds a chunk and
// one line of the limit. A failed read ends the input after the last whole line before it: the line it
// cut short is never given.
class LineReader {
public:
    enum class Next {
        BLOCK,        // block() holds the next texts
        TOO_LONG,     // the line or argument tooLongNumber() is over the limit; tooLongStart() is its start
        END,          // no more texts
        READ_FAILED,  // reading failed; readError() says why
    };
    static constexpr std::size_t CHUNK_BYTES = std::size_t{1} << 20;
    static constexpr std::size_t MAX_TEXTS = 65536;

    struct Limits {
        std::size_t maxLine = MAX_LINE_BYTES;
        std::size_t chunkBytes = CHUNK_BYTES;
        std::size_t maxTexts = MAX_TEXTS;
    };

    LineReader(InputSource& input, Limits limits);
    explicit LineReader(InputSource& input) : LineReader(input, Limits{}) {}
    LineReader(std::span<const std::string_view> arguments, Limits limits);

    Next next();

    // The texts of the last BLOCK, valid until the next call, and the number of the first (from 1).
    std::span<const std::string_view> block() const noexcept { return texts_; }
    std::size_t firstNumber() const noexcept { return firstNumber_; }
    std::size_t tooLongNumber() const noexcept { return tooLongNumber_; }
    std::string_view tooLongStart() const noexcept { return tooLongStart_; }
    std::size_t maxLine() const noexcept { return limits_.maxLine; }
    bool fromArguments() const noexcept { return input_ == nullptr; }
    int readError() const noexcept { return error_; }

private:
    Next nextArguments();
    Next nextLines();
    Next wholeLines();
    Next lastLine();
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
    std::vector<std::string_view> texts_;
    std::size_t firstNumber_ = 0;
    std::size_t tooLongNumber_ = 0;
    std::string tooLongStart_;
};

}  // namespace kivodt
