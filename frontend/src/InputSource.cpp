#include "kivodt/InputSource.h"

#include <cerrno>

namespace kivodt {

ReadResult StreamSource::read(char* buffer, std::size_t size) {
    errno = 0;
    ReadResult result;
    result.bytes = std::fread(buffer, 1, size, in_);
    if (result.bytes < size) {
        result.ended = true;
        if (std::ferror(in_)) {
            result.error = errno != 0 ? errno : EIO;  // EIO when the library left no errno
        }
    }
    return result;
}

}  // namespace kivodt
