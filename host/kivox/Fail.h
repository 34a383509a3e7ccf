#pragma once

#include "kivox/Export.h"

namespace kivo {

// Reports a broken internal invariant (message, source path without extension, line) on one line of
// standard error and ends the process. Never returns.
[[noreturn]] KIVOX_EXPORT void kivoFail(const char* message, const char* source, int line) noexcept;

}  // namespace kivo
