#include "kivodt/InputLines.h"

#include <cstring>

#include "kivodt/StreamReading.h"

namespace kivodt {

InputLines::InputLines(std::span<const std::string_view> arguments, std::FILE* in, std::size_t maxLineLength,
                       std::size_t chunkBytes)
    : arguments_(arguments), in_(in), maxLineLength_(maxLineLength) {
    if (arguments_.empty()) {
        chunk_.resize(chunkBytes);
    }
}

InputLines::Next InputLines::next(std::string_view& line) {
    return fromArguments() ? nextArgument(line) : nextLine(line);
}

InputLines::Next InputLines::nextArgument(std::string_view& line) {
    if (number_ == arguments_.size()) {
        return Next::END;
    }
    line = arguments_[number_++];
    return line.size() > maxLineLength_ ? Next::TOO_LONG : Next::LINE;
}

InputLines::Next InputLines::nextLine(std::string_view& line) {
    carry_.clear();
    std::size_t length = 0;  // of the line so far, kept or not
    for (;;) {
        if (next_ == end_ && !refill()) {
            if (readError_ != 0) {
                return Next::READ_FAILED;
            }
            return length > 0 ? finishLine(carry_, length, line) : Next::END;
        }
        const auto available = static_cast<std::size_t>(end_ - next_);
        const auto* newline = static_cast<const char*>(std::memchr(next_, '\n', available));
        const std::string_view piece(next_, newline != nullptr ? static_cast<std::size_t>(newline - next_) : available);
        next_ += newline != nullptr ? piece.size() + 1 : piece.size();
        if (newline != nullptr && length == 0) {
            return finishLine(piece, piece.size(), line);  // the whole line lies in the chunk: no copy
        }
        keep(piece);
        length += piece.size();
        if (newline != nullptr) {
            return finishLine(carry_, length, line);
        }
    }
}

// Bytes read before a failure still make lines; the failure ends the input at the next refill.
bool InputLines::refill() {
    if (streamEnded_) {
        return false;
    }
    const std::size_t got = readSome(in_, chunk_.data(), chunk_.size(), streamEnded_, readError_);
    next_ = chunk_.data();
    end_ = next_ + got;
    return got > 0;
}

void InputLines::keep(std::string_view piece) {
    if (carry_.size() <= maxLineLength_) {
        carry_.append(piece.substr(0, maxLineLength_ + 1 - carry_.size()));
    }
}

InputLines::Next InputLines::finishLine(std::string_view text, std::size_t length, std::string_view& line) {
    ++number_;
    if (length > text.size()) {
        return Next::TOO_LONG;  // cut while it was read
    }
    if (!text.empty() && text.back() == '\r') {
        text.remove_suffix(1);
    }
    if (text.size() > maxLineLength_) {
        return Next::TOO_LONG;
    }
    line = text;
    return Next::LINE;
}

}  // namespace kivodt
