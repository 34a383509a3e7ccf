#include "kivodt/BufferedOutput.h"

#include <cerrno>
#include <cstring>

namespace kivodt {

void BufferedOutput::line(const char* bytes, std::size_t size) {
    write(bytes, size);
    write("\n", 1);
}

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

void BufferedOutput::write(const char* bytes, std::size_t size) {
    if (used_ + size > sizeof buffer_) {
        writeHeld();
    }
    if (size > sizeof buffer_) {
        writeThrough(bytes, size);
        return;
    }
    std::memcpy(buffer_ + used_, bytes, size);
    used_ += size;
}

void BufferedOutput::writeHeld() {
    writeThrough(buffer_, used_);
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
