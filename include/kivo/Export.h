#pragma once

// The library is built with hidden visibility; what the host may call is marked with KIVO_EXPORT.
#define KIVO_EXPORT __attribute__((visibility("default")))
