#include <unistd.h>

#include <cstdlib>
#include <cstring>

#include "kivox/Fail.h"

namespace kivo {

namespace {

// Builds the line by hand: this runs when the process is in a bad state, so nothing here allocates
// or goes through stdio.
std::size_t append(char* buffer, std::size_t used, std::size_t size, const char* text) noexcept {
    const std::size_t length = std::strlen(text);
    const std::size_t room = size - used;
    const std::size_t n = length < room ? length : room;
    std::memcpy(buffer + used, text, n);
    return used + n;
}

std::size_t appendNumber(char* buffer, std::size_t used, std::size_t size, int value) noexcept {
    char digits[12];
    int n = 0;
    unsigned magnitude = value < 0 ? 0U - static_cast<unsigned>(value) : static_cast<unsigned>(value);
    do {
        digits[n++] = static_cast<char>('0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude != 0);
    if (value < 0) {
        digits[n++] = '-';
    }
    while (n > 0 && used < size) {
        buffer[used++] = digits[--n];
    }
    return used;
}

}  // namespace

void kivoFail(const char* message, const char* source, int line) noexcept {
    char buffer[1024];
    const std::size_t size = sizeof buffer - 1;
    std::size_t used = append(buffer, 0, size, "kivoFail: ");
    used = append(buffer, used, size, message != nullptr ? message : "(null)");
    used = append(buffer, used, size, " [");
    used = append(buffer, used, size, source != nullptr ? source : "(null)");
    used = append(buffer, used, size, ":");
    used = appendNumber(buffer, used, size, line);
    used = append(buffer, used, size, "]");
    buffer[used++] = '\n';
    const ssize_t ignored = write(STDERR_FILENO, buffer, used);
    (void)ignored;
    std::abort();
}

}  // namespace kivo
