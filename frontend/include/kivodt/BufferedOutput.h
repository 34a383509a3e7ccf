#pragma once

#include <cstddef>
#include <cstdio>
#include <string_view>

namespace kivodt {

// Output collected in a large buffer and written in big pieces, so that millions of lines stream. Every
// write and flush is checked: the first failure is kept (its errno) and later lines are dropped, so
// the run can stop and say why instead of ending in a silent success.
class BufferedOutput {
public:
    explicit BufferedOutput(std::FILE* file) : file_(file) {}
    BufferedOutput(const BufferedOutput&) = delete;
    BufferedOutput& operator=(const BufferedOutput&) = delete;
    ~BufferedOutput() { flush(); }

    void line(const char* bytes, std::size_t size);  // the bytes and a newline
    void write(const char* bytes, std::size_t size);
    void write(std::string_view bytes) { write(bytes.data(), bytes.size()); }
    // Writes what is held and flushes the stream; false once any write or flush has failed.
    bool flush();
    bool failed() const noexcept { return error_ != 0; }
    int error() const noexcept { return error_; }  // the errno of the first failure

private:
    void writeHeld();
    void writeThrough(const char* bytes, std::size_t size);
    void keepError();

    std::FILE* file_;
    int error_ = 0;
    std::size_t used_ = 0;
    char buffer_[1 << 16];
};

}  // namespace kivodt
