#include "kivo/thread/Thread_pthread.h"

#include <sched.h>
#include <sys/resource.h>
#include <sys/time.h>

#include <cstdint>

#include "kivo/Strings.h"
#include "thread/pthread/ThreadFailures.h"

namespace kivo {

template <class Count>
RefCounted<Count>::~RefCounted() = default;

template <class Count>
void RefCounted<Count>::destroy() const {
    delete this;
}

template <class Count>
void RefCounted<Count>::release() const {
    if (refCount_.fetch_sub(1) == 1) {
        destroy();
    }
}

template class RefCounted<std::atomic<unsigned int> >;

namespace detail {

extern "C" {

// The new thread's entry: the body, the done signal, then the thread's reference goes (and the block
// with it when the handle has let go already). A cancelled body unwinds past all three.
static void* thread_start_function(void* data) {
    auto* block = static_cast<thread_data_base*>(data);
    block->run();
    block->signalDone();
    block->release();
    return nullptr;
}

}  // extern "C"

}  // namespace detail

namespace {

// A soft stack limit at or below this is too small to copy; the system's default stack serves instead.
constexpr rlim_t LARGEST_IGNORED_STACK_LIMIT = 8191;
// RLIM_INFINITY, or the largest signed value, which some systems use for it.
constexpr rlim_t SIGNED_UNLIMITED = static_cast<rlim_t>(INTMAX_MAX);

constexpr std::size_t ERROR_TEXT_SIZE = 64;
constexpr std::int32_t MICROSECONDS_PER_SECOND = 1000000;
constexpr std::uint32_t MICROSECONDS_PER_MILLISECOND = 1000;
constexpr long NANOSECONDS_PER_MICROSECOND = 1000;

bool isUnlimited(rlim_t limit) noexcept { return limit == RLIM_INFINITY || limit == SIGNED_UNLIMITED; }

// Attributes that give a new thread the main thread's stack size: the soft RLIMIT_STACK when it is a
// real limit above 8191 bytes (8 MB on most systems), else the default. False when a call failed.
bool makeStackAttributes(pthread_attr_t& attributes) noexcept {
    rlimit stack;
    if (getrlimit(RLIMIT_STACK, &stack) != 0 || pthread_attr_init(&attributes) != 0) {
        return false;
    }
    if (stack.rlim_cur > LARGEST_IGNORED_STACK_LIMIT && !isUnlimited(stack.rlim_cur)) {
        return pthread_attr_setstacksize(&attributes, stack.rlim_cur) == 0;
    }
    return true;
}

// The failed call may have reported its error by return value only: errno is what it is.
[[noreturn]] void throwResourceError() {
    char text[ERROR_TEXT_SIZE];
    throw thread_resource_error(kvc_strerror_r(errno, text, sizeof text));
}

// Now plus `milliseconds` on the wall clock. The microseconds are summed in 32 bits and wrap as signed
// arithmetic does, so limits above 2,147,483 ms are not supported: 1500 ms at 12:00:00.700000 gives
// 2,200,000 us, i.e. 12:00:02.200000.
timespec deadlineAfter(int milliseconds) noexcept {
    timeval now;
    gettimeofday(&now, nullptr);
    const auto microseconds = static_cast<std::int32_t>(static_cast<std::uint32_t>(milliseconds) *
                                                            MICROSECONDS_PER_MILLISECOND +
                                                        static_cast<std::uint32_t>(now.tv_usec));
    timespec deadline;
    deadline.tv_sec = now.tv_sec + microseconds / MICROSECONDS_PER_SECOND;
    deadline.tv_nsec = (microseconds % MICROSECONDS_PER_SECOND) * NANOSECONDS_PER_MICROSECOND;
    return deadline;
}

}  // namespace

void thread::start_thread() {
    thread_info_->addReference();
    pthread_attr_t attributes;
    // The attributes hold no resources once the stack size is set, so they are not destroyed.
    if (makeStackAttributes(attributes) &&
        pthread_create(&thread_info_->thread_handle_, &attributes, detail::thread_start_function, thread_info_) ==
            0) {
        return;
    }
    thread_info_->release();
    throwResourceError();
}

thread::~thread() { release_handle(); }

void thread::join() {
    if (thread_info_ == nullptr) {
        return;
    }
    thread_info_->waitUntilDone();
    void* result = nullptr;
    detail::thread_failure::check(pthread_join(thread_info_->thread_handle_, &result),
                                  detail::thread_failure::JOIN_PTHREAD_JOIN);
    release_handle();
}

bool thread::tryjoin(int milliseconds) {
    if (thread_info_ == nullptr) {
        return true;
    }
    if (!thread_info_->waitUntilDone(deadlineAfter(milliseconds))) {
        return false;
    }
    void* result = nullptr;
    detail::thread_failure::check(pthread_join(thread_info_->thread_handle_, &result),
                                  detail::thread_failure::TRYJOIN_PTHREAD_JOIN);
    release_handle();
    return true;
}

void thread::terminate() {
    if (thread_info_ == nullptr) {
        return;
    }
    detail::thread_failure::check(pthread_cancel(thread_info_->thread_handle_),
                                  detail::thread_failure::TERMINATE_CANCEL);
    join();
}

bool thread::tryterminate(int milliseconds) {
    if (thread_info_ == nullptr) {
        return true;
    }
    detail::thread_failure::check(pthread_cancel(thread_info_->thread_handle_),
                                  detail::thread_failure::TRYTERMINATE_CANCEL);
    return tryjoin(milliseconds);
}

void thread::release_handle() {
    const detail::thread_data_base* data = std::exchange(thread_info_, nullptr);
    if (data != nullptr) {
        data->release();
    }
}

bool thread::id::operator==(const id& other) const noexcept {
    if (!valid_ || !other.valid_) {
        return valid_ == other.valid_;
    }
    return pthread_equal(handle_, other.handle_) != 0;
}

bool thread::id::operator!=(const id& other) const noexcept { return !(*this == other); }

thread::id this_thread::get_id() noexcept { return thread::id(pthread_self()); }

void this_thread::yield() noexcept {
    const int ret = sched_yield();
    detail::thread_failure::check(ret, detail::thread_failure::YIELD);
}

thread_resource_error::thread_resource_error(const char* text) : message_("thread_resource_error") {
    message_ += text;
}

const char* thread_resource_error::what() const noexcept { return message_.c_str(); }

}  // namespace kivo
