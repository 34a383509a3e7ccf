#pragma once

#include "kivo/thread/ThreadHeaderFailures.h"

// Where the thread class's own source reports a failing POSIX call: one source path and fixed line
// numbers. The header's inline waits and signal have their table beside the header.
namespace kivo::detail::thread_failure {

inline constexpr const char* SOURCE = "src/thread/pthread/Thread_pthread";

inline constexpr const char* JOIN_CALL = "!pthread_join(thread_info_->thread_handle_, &result)";
inline constexpr const char* CANCEL_CALL = "!pthread_cancel(thread_info_->thread_handle_)";

inline constexpr Site JOIN_PTHREAD_JOIN{JOIN_CALL, SOURCE, 80};
inline constexpr Site TRYJOIN_PTHREAD_JOIN{JOIN_CALL, SOURCE, 89};
inline constexpr Site TERMINATE_CANCEL{CANCEL_CALL, SOURCE, 96};
inline constexpr Site TRYTERMINATE_CANCEL{CANCEL_CALL, SOURCE, 102};
inline constexpr Site YIELD{"ret == 0", SOURCE, 141};

}  // namespace kivo::detail::thread_failure
