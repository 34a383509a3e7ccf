#include "kivodt/BufferedOutput.h"

#include <cerrno>
#include <cstring>

namespace kivodt {

bool BufferedOutput::flush() {
    writeHeld();
    if (!failed()) {
        errno = 0;
        if (std::fflush(file_) != 0) {
            keepError();
        }
    }
    return !failed();
}

void BufferedOutput::write(std::string_view bytes) {
    if (bytes.empty()) {
        return;  // an empty view may hold no pointer at all, which memcpy must not be given
    }
    if (used_ + bytes.size() > BUFFER_BYTES) {
        writeHeld();
    }
    if (bytes.size() > BUFFER_BYTES) {
        writeThrough(bytes.data(), bytes.size());
        return;
    }
    std::memcpy(buffer_.get() + used_, bytes.data(), bytes.size());
    used_ += bytes.size();
}

void BufferedOutput::writeHeld() {
    writeThrough(buffer_.get(), used_);
    used_ = 0;
}

void BufferedOutput::writeThrough(const char* bytes, std::size_t size) {
    if (failed() || size == 0) {
        return;
    }
    errno = 0;
    if (std::fwrite(bytes, 1, size, file_) != size) {
        keepError();
    }
}

void BufferedOutput::keepError() { error_ = errno != 0 ? errno : EIO; }

}  // namespace kivodt
