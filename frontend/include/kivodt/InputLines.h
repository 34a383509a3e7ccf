#pragma once

#include <cstdio>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kivodt {

// The values or texts of a run: the command's arguments when there are any, else the lines of a
// stream, each without its "\n" or "\r\n". A line longer than the limit is only counted, never kept,
// so the memory held stays bounded however long the line is. A failed read ends the input.
class InputLines {
public:
    enum class Next { LINE, TOO_LONG, END, READ_FAILED };
    static constexpr std::size_t CHUNK_BYTES = 1 << 20;

    InputLines(std::span<const std::string_view> arguments, std::FILE* in, std::size_t maxLineLength,
               std::size_t chunkBytes = CHUNK_BYTES);

    // LINE with the next line in line (valid until the next call), TOO_LONG for a line over the limit,
    // END after the last one, READ_FAILED when reading the stream failed (readError() says why).
    Next next(std::string_view& line);
    // The number of the line or argument that next() gave last, from 1.
    std::size_t number() const noexcept { return number_; }
    bool fromArguments() const noexcept { return !arguments_.empty(); }
    int readError() const noexcept { return readError_; }

private:
    Next nextArgument(std::string_view& line);
    Next nextLine(std::string_view& line);
    bool refill();
    void keep(std::string_view piece);
    Next finishLine(std::string_view text, std::size_t length, std::string_view& line);

    std::span<const std::string_view> arguments_;
    std::FILE* in_;
    std::size_t maxLineLength_;
    std::vector<char> chunk_;
    const char* next_ = nullptr;  // the unread part of chunk_
    const char* end_ = nullptr;
    bool streamEnded_ = false;
    int readError_ = 0;
    std::string carry_;  // a line that spans chunks, up to one byte over the limit (for a "\r")
    std::size_t number_ = 0;
};

}  // namespace kivodt
