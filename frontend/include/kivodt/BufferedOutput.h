#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string_view>

namespace kivodt {

// Output collected in a large buffer and written in big pieces, so that millions of lines stream. Every
// write and flush is checked: the first failure is kept (its errno) and later lines are dropped, so
// the run can stop and say why instead of ending in a silent success. The buffer lives on the heap: a
// run must work with a small stack.
class BufferedOutput {
public:
    static constexpr std::size_t BUFFER_BYTES = std::size_t{1} << 16;

    explicit BufferedOutput(std::FILE* file) : file_(file), buffer_(new char[BUFFER_BYTES]) {}
    BufferedOutput(const BufferedOutput&) = delete;
    BufferedOutput& operator=(const BufferedOutput&) = delete;
    ~BufferedOutput() { flush(); }

    // The bytes and a newline.
    void line(std::string_view bytes) {
        if (!bytes.empty() && used_ + bytes.size() < BUFFER_BYTES) {
            std::char_traits<char>::copy(buffer_.get() + used_, bytes.data(), bytes.size());
            buffer_[used_ + bytes.size()] = '\n';
            used_ += bytes.size() + 1;
            return;
        }
        write(bytes);
        write("\n");
    }
    void write(std::string_view bytes);
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
    std::unique_ptr<char[]> buffer_;
};

}  // namespace kivodt
