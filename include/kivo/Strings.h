#pragma once

#include <cstddef>

#include "kivo/Export.h"

extern "C" {

// strcasecmp and strncasecmp of the arguments, unchanged.
KIVO_EXPORT int kvc_stricmp(const char* a, const char* b);
KIVO_EXPORT int kvc_strnicmp(const char* a, const char* b, std::size_t n);
// The text of errnum in buffer (always NUL-terminated when size > 0); returns buffer.
KIVO_EXPORT char* kvc_strerror_r(int errnum, char* buffer, std::size_t size);

}  // extern "C"
