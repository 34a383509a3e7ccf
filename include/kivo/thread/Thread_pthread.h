#pragma once

#include <pthread.h>
#include <time.h>

#include <atomic>
#include <cerrno>
#include <exception>
#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "kivo/Export.h"
#include "kivo/thread/ThreadHeaderFailures.h"

// A thread handle on POSIX threads: start a body on a new thread, join it with or without a time limit,
// cancel it, or let it go.
//
//     kivo::thread worker(convertRows, first, last);   // runs convertRows(first, last)
//     if (!worker.tryjoin(100)) {                       // not done within 100 ms
//         worker.join();
//     }
namespace kivo {

// A block with several owners. It starts with one reference, held by whoever made it; each owner drops
// its reference with release(), and the last one destroys the block.
template <class Count>
class KIVO_EXPORT RefCounted {
public:
    virtual ~RefCounted();
    // Frees the block once no owner is left. Deletes it through the virtual destructor; a block that was
    // not made with new frees itself otherwise.
    virtual void destroy() const;
    // Drops one reference; the last one calls destroy().
    void release() const;

protected:
    mutable Count refCount_{1};
};

extern template class RefCounted<std::atomic<unsigned int> >;

namespace detail {

// What a handle and its running thread share. The handle holds one reference and the running thread
// another; `done` turns true, under doneMtx_, once the body has returned.
class KIVO_EXPORT thread_data_base : public RefCounted<std::atomic<unsigned int> > {
public:
    thread_data_base() noexcept = default;
    thread_data_base(const thread_data_base&) = delete;
    thread_data_base& operator=(const thread_data_base&) = delete;

    // The thread's body.
    virtual void run() = 0;

    // Marks the body as returned and wakes a waiting join.
    inline void signalDone() noexcept;
    // Returns once the done signal has been given.
    inline void waitUntilDone();
    // False when the deadline (on the wall clock) passes first.
    inline bool waitUntilDone(const timespec& deadline);
    // The reference the running thread holds.
    void addReference() const noexcept { refCount_.fetch_add(1); }

    pthread_t thread_handle_{};
    pthread_mutex_t doneMtx_ = PTHREAD_MUTEX_INITIALIZER;
    pthread_cond_t doneCond_ = PTHREAD_COND_INITIALIZER;
    bool done = false;
};

// The block a handle's constructor makes: the callable and its arguments, copied the way std::thread
// copies them, and called with them as rvalues on the new thread.
template <class Function, class... Args>
class thread_data final : public thread_data_base {
public:
    template <class F, class... A>
    explicit thread_data(F&& function, A&&... args)
        : call_(std::forward<F>(function), std::forward<A>(args)...) {}

    void run() override {
        std::apply([](auto&&... parts) { std::invoke(std::forward<decltype(parts)>(parts)...); }, std::move(call_));
    }

private:
    std::tuple<Function, Args...> call_;
};

}  // namespace detail

// The handle. It holds one reference on the shared block while the thread is its to join, and none once
// it has been joined or released. Destroying a handle neither joins nor cancels its thread: the thread
// runs on and frees the block itself. A handle is for one thread of the host to use at a time.
class KIVO_EXPORT thread {
public:
    // A thread's identity: the POSIX handle and whether there is one. Default ids are all equal, and
    // differ from every id of a thread.
    class KIVO_EXPORT id {
    public:
        id() noexcept = default;
        explicit id(pthread_t handle) noexcept : handle_(handle), valid_(true) {}

        bool operator==(const id& other) const noexcept;
        bool operator!=(const id& other) const noexcept;

    private:
        pthread_t handle_{};
        bool valid_ = false;
    };

    // An empty handle.
    thread() noexcept = default;

    // Starts function(args...) on a new thread with the main thread's stack size. Throws
    // thread_resource_error when the thread cannot be started; nothing is left behind then.
    // (A handle or a block to adopt is not a body: both have constructors of their own.)
    template <class Function, class... Args>
        requires(!std::is_base_of_v<thread, std::remove_cvref_t<Function>> &&
                 !std::is_convertible_v<Function, detail::thread_data_base*>)
    explicit thread(Function&& function, Args&&... args)
        : thread(new detail::thread_data<std::decay_t<Function>, std::decay_t<Args>...>(
              std::forward<Function>(function), std::forward<Args>(args)...)) {
        // The delegated constructor has finished, so a throw from here runs ~thread(), which drops the
        // block.
        start_thread();
    }

    thread(thread&& other) noexcept : thread_info_(std::exchange(other.thread_info_, nullptr)) {}
    // Lets go of the thread this handle held (as the destructor does) and takes other's.
    thread& operator=(thread&& other) noexcept {
        if (this != &other) {
            release_handle();
            thread_info_ = std::exchange(other.thread_info_, nullptr);
        }
        return *this;
    }
    thread(const thread&) = delete;
    thread& operator=(const thread&) = delete;

    // release_handle(): a running thread is neither joined nor cancelled.
    virtual ~thread();

    // True while the handle holds a thread to join.
    bool joinable() const noexcept { return thread_info_ != nullptr; }

    // Waits for the thread to end; the handle is empty afterwards. Returns at once on an empty handle.
    void join();
    // Waits at most `milliseconds` (0 to 2,147,483): true when the thread has ended (the handle is then
    // empty) or the handle was empty, false on time-out (the handle keeps the thread).
    bool tryjoin(int milliseconds);
    // Cancels the thread, then join(). The join waits for the done signal, which a cancelled body gives
    // only if it arranges to as it unwinds (the plain callable of the constructor does not).
    void terminate();
    // Cancels the thread, then tryjoin(milliseconds): false unless the body had finished already. True
    // for an empty handle.
    bool tryterminate(int milliseconds);
    // Drops the handle's reference without joining; the thread is not detached.
    void release_handle();

protected:
    // Takes over a block that holds one reference for this handle; start_thread() then starts it.
    explicit thread(detail::thread_data_base* data) noexcept : thread_info_(data) {}

    // Starts the thread for thread_info_, which holds a block with the handle's reference.
    void start_thread();

    detail::thread_data_base* thread_info_ = nullptr;
};

namespace this_thread {

// The calling thread's id.
KIVO_EXPORT thread::id get_id() noexcept;
// Gives the processor to another thread.
KIVO_EXPORT void yield() noexcept;

}  // namespace this_thread

// Thrown when a thread cannot be started. what() is "thread_resource_error" followed at once by the
// system's text for errno, e.g. "thread_resource_errorResource temporarily unavailable".
class KIVO_EXPORT thread_resource_error : public std::exception {
public:
    explicit thread_resource_error(const char* text);
    const char* what() const noexcept override;

private:
    std::string message_;
};

namespace detail {

inline void thread_data_base::signalDone() noexcept {
    thread_failure::check(pthread_mutex_lock(&doneMtx_), thread_failure::SIGNAL_DONE_LOCK);
    done = true;
    thread_failure::check(pthread_cond_signal(&doneCond_), thread_failure::SIGNAL_DONE_SIGNAL);
    thread_failure::check(pthread_mutex_unlock(&doneMtx_), thread_failure::SIGNAL_DONE_UNLOCK);
}

// Neither wait is noexcept: the waits are cancellation points, and a cancelled waiter unwinds through
// them.
inline void thread_data_base::waitUntilDone() {
    thread_failure::check(pthread_mutex_lock(&doneMtx_), thread_failure::JOIN_LOCK);
    while (!done) {
        thread_failure::check(pthread_cond_wait(&doneCond_, &doneMtx_), thread_failure::JOIN_WAIT);
    }
    thread_failure::check(pthread_mutex_unlock(&doneMtx_), thread_failure::JOIN_UNLOCK);
}

// A time-out ends the wait even when the signal came with it. Any other result of the timed wait (an
// early wake-up, a deadline the system refuses) waits again.
inline bool thread_data_base::waitUntilDone(const timespec& deadline) {
    thread_failure::check(pthread_mutex_lock(&doneMtx_), thread_failure::TRYJOIN_LOCK);
    while (!done) {
        if (pthread_cond_timedwait(&doneCond_, &doneMtx_, &deadline) == ETIMEDOUT) {
            thread_failure::check(pthread_mutex_unlock(&doneMtx_), thread_failure::TRYJOIN_TIMEOUT_UNLOCK);
            return false;
        }
    }
    thread_failure::check(pthread_mutex_unlock(&doneMtx_), thread_failure::TRYJOIN_DONE_UNLOCK);
    return true;
}

}  // namespace detail

}  // namespace kivo
