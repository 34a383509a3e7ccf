#include <string.h>
#include <strings.h>

#include <cstddef>

#include "kivo/Strings.h"

namespace {

// strerror_r comes in two shapes; both end with the text in the caller's buffer.
[[maybe_unused]] void copyResult(int, char*, std::size_t) noexcept {}

[[maybe_unused]] void copyResult(const char* text, char* buffer, std::size_t size) noexcept {
    if (text != buffer && size > 0) {
        const std::size_t length = strnlen(text, size - 1);
        memcpy(buffer, text, length);
        buffer[length] = '\0';
    }
}

}  // namespace

extern "C" {

int kvc_stricmp(const char* a, const char* b) { return strcasecmp(a, b); }

int kvc_strnicmp(const char* a, const char* b, std::size_t n) { return strncasecmp(a, b, n); }

char* kvc_strerror_r(int errnum, char* buffer, std::size_t size) {
    if (size > 0) {
        buffer[0] = '\0';
    }
    copyResult(strerror_r(errnum, buffer, size), buffer, size);
    return buffer;
}

}  // extern "C"
