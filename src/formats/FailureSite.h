#pragma once

#include "kivox/Fail.h"

// A place where the library reports a broken internal invariant: the condition's text, the source name
// the report carries and its line. Each reporting source keeps its sites in one table (a
// `...Failures.h` beside its code), so that every line a report must name is written once and the
// tests can walk the table.
namespace kivo::format {

struct FailureSite {
    const char* message;
    const char* source;
    int line;
};

// Ends the process through the host's failure routine.
[[noreturn]] inline void fail(const FailureSite& site) noexcept { kivoFail(site.message, site.source, site.line); }

}  // namespace kivo::format
