#pragma once

#include <cerrno>
#include <cstddef>
#include <cstdio>

namespace kivodt {

// Reads up to size bytes of a stream. A short read means the stream has ended; when the read failed
// too, error gets its errno (EIO when the library left none). The bytes read before a failure are
// still given.
inline std::size_t readSome(std::FILE* in, char* buffer, std::size_t size, bool& ended, int& error) noexcept {
    errno = 0;
    const std::size_t got = std::fread(buffer, 1, size, in);
    if (got < size) {
        ended = true;
        if (std::ferror(in)) {
            error = errno != 0 ? errno : EIO;
        }
    }
    return got;
}

}  // namespace kivodt
