#pragma once

#include <stddef.h>  // size_t, in C and C++ alike

#include "kivo/Export.h"

#ifdef __cplusplus
extern "C" {
#endif

// strcasecmp and strncasecmp of the arguments, unchanged.
KIVO_EXPORT int kvc_stricmp(const char* a, const char* b);
KIVO_EXPORT int kvc_strnicmp(const char* a, const char* b, size_t n);
// The text of errnum in buffer (always NUL-terminated when size > 0); returns buffer.
KIVO_EXPORT char* kvc_strerror_r(int errnum, char* buffer, size_t size);

#ifdef __cplusplus
}  // extern "C"
#endif
