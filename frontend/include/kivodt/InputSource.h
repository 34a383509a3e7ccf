#pragma once

#include <cstddef>
#include <cstdio>

namespace kivodt {

// What one read gave: the bytes (maybe fewer than asked for), and whether the input ended with them
// (error: the errno of a failed read, which ends the input too; the bytes read before it still count).
struct ReadResult {
    std::size_t bytes = 0;
    bool ended = false;
    int error = 0;
};

// Where a reader's bytes come from. The readers know only this, so that a test can make a read fail at
// any byte it chooses.
class InputSource {
public:
    virtual ~InputSource() = default;
    // Up to size bytes into buffer.
    virtual ReadResult read(char* buffer, std::size_t size) = 0;
};

// A stdio stream.
class StreamSource final : public InputSource {
public:
    explicit StreamSource(std::FILE* in) noexcept : in_(in) {}
    ReadResult read(char* buffer, std::size_t size) override;

private:
    std::FILE* in_;
};

}  // namespace kivodt
