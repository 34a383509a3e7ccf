#pragma once

#include "kivox/Fail.h"

// Where the thread header's inline code reports a failing mutex or condition call. The report names the
// failed call and the header's path with fixed line numbers, whichever translation unit the inline code
// was compiled into.
namespace kivo::detail::thread_failure {

// One place that reports: the failed condition's text, the source path without extension, the line.
struct Site {
    const char* message;
    const char* source;
    int line;
};

inline constexpr const char* HEADER = "include/kivo/thread/Thread_pthread";

inline constexpr const char* LOCK = "!pthread_mutex_lock(&doneMtx_)";
inline constexpr const char* UNLOCK = "!pthread_mutex_unlock(&doneMtx_)";

// Waiting without a limit for the done signal (join).
inline constexpr Site JOIN_LOCK{LOCK, HEADER, 50};
inline constexpr Site JOIN_WAIT{"!pthread_cond_wait(&doneCond_, &doneMtx_)", HEADER, 52};
inline constexpr Site JOIN_UNLOCK{UNLOCK, HEADER, 54};
// Waiting until a deadline (tryjoin): the unlock after a time-out and the one after the signal.
inline constexpr Site TRYJOIN_LOCK{LOCK, HEADER, 74};
inline constexpr Site TRYJOIN_TIMEOUT_UNLOCK{UNLOCK, HEADER, 78};
inline constexpr Site TRYJOIN_DONE_UNLOCK{UNLOCK, HEADER, 82};
// Giving the done signal once the body has returned.
inline constexpr Site SIGNAL_DONE_LOCK{LOCK, HEADER, 88};
inline constexpr Site SIGNAL_DONE_SIGNAL{"!pthread_cond_signal(&doneCond_)", HEADER, 90};
inline constexpr Site SIGNAL_DONE_UNLOCK{UNLOCK, HEADER, 91};

// A POSIX call's result: anything but 0 ends the process through the host's report.
inline void check(int result, const Site& site) noexcept {
    if (result != 0) {
        kivoFail(site.message, site.source, site.line);
    }
}

}  // namespace kivo::detail::thread_failure
