// The thread handle: start and join, waits with a limit, cancellation, the shared block's lifetime, ids,
// the stack size a new thread gets, and the failures it reports.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <functional>
#include <latch>
#include <memory>
#include <string>
#include <utility>

#include "FailureSiteSupport.h"
#include "kivo/thread/Thread_pthread.h"
#include "thread/pthread/ThreadFailures.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

// The library's yield reaches sched_yield through the dynamic linker, which finds this definition first.
// It behaves as the system's until a death test asks it to fail.
std::atomic<bool> failingYield{false};
extern "C" int sched_yield() noexcept {
    return failingYield.load() ? -1 : static_cast<int>(syscall(SYS_sched_yield));
}

namespace {

// A block the test makes itself: it counts its destructions, passes itself to its body and may use an
// error-checking mutex, so that locking it twice fails instead of hanging.
struct ProbeBlock final : kivo::detail::thread_data_base {
    static inline std::atomic<int> destroyed{0};
    explicit ProbeBlock(std::function<void(ProbeBlock&)> body, bool errorChecking = false) : body(std::move(body)) {
        pthread_mutexattr_t attributes;
        pthread_mutexattr_init(&attributes);
        pthread_mutexattr_settype(&attributes, errorChecking ? PTHREAD_MUTEX_ERRORCHECK : PTHREAD_MUTEX_DEFAULT);
        pthread_mutex_init(&doneMtx_, &attributes);
        pthread_mutexattr_destroy(&attributes);
    }
    ~ProbeBlock() override { ++destroyed; }
    void run() override { body(*this); }
    std::function<void(ProbeBlock&)> body;
};

// A handle on a ProbeBlock; block stays usable as long as someone holds it.
struct ProbeThread : kivo::thread {
    explicit ProbeThread(ProbeBlock* block) : kivo::thread(block), block(*block) { start_thread(); }
    ProbeBlock& block;
};

// A thread whose body never returns unless it is cancelled, once it has started; with signalOnUnwind its
// body gives the done signal (which join() waits for) as the cancellation unwinds it. clock_nanosleep
// is a cancellation point that ThreadSanitizer does not wrap, so it still sees the locks taken as the
// cancellation unwinds the body; the hour lies outside the stack, whose sanitizer marks the unwinding
// would leave behind. A cancelled thread never drops its reference, so its block outlives the test by
// design: the leak checker is told to ignore it.
constexpr timespec HOUR{3600, 0};
ProbeBlock* startBlocked(std::unique_ptr<ProbeThread>& handle, bool signalOnUnwind) {
    const auto started = std::make_shared<std::latch>(1);  // the body's to hold: it may still be counting down
    auto* block = new ProbeBlock([started, signalOnUnwind](ProbeBlock& self) {
        struct SignalDoneOnExit {
            ProbeBlock& block;
            bool on;
            ~SignalDoneOnExit() { on ? block.signalDone() : void(); }
        } signal{self, signalOnUnwind};
        started->count_down();
        for (;;) clock_nanosleep(CLOCK_MONOTONIC, 0, &HOUR, nullptr);
    });
#if defined(__SANITIZE_ADDRESS__)
    __lsan_ignore_object(block);
#endif
    handle = std::make_unique<ProbeThread>(block);
    started->wait();
    return block;
}

// A thread that has finished its body.
void finish(kivo::thread& quick) {
    const auto finished = std::make_shared<std::latch>(1);
    quick = kivo::thread([finished] { finished->count_down(); });
    finished->wait();
}

rlim_t setSoftStackLimit(rlim_t limit) {  // gives the limit it replaced
    rlimit stack;
    getrlimit(RLIMIT_STACK, &stack);
    const rlim_t previous = std::exchange(stack.rlim_cur, limit);
    setrlimit(RLIMIT_STACK, &stack);
    return previous;
}

void* storeOwnStackSize(void* size) {
    pthread_attr_t attributes;
    pthread_getattr_np(pthread_self(), &attributes);
    pthread_attr_getstacksize(&attributes, static_cast<std::size_t*>(size));
    pthread_attr_destroy(&attributes);
    return nullptr;
}

// The stack a thread created straight through POSIX gets: with `size`, or the default for 0.
std::size_t stackOfPlainThread(std::size_t size) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    if (size != 0) pthread_attr_setstacksize(&attributes, size);
    std::size_t result = 0;
    pthread_t plain;
    pthread_create(&plain, &attributes, storeOwnStackSize, &result);
    pthread_join(plain, nullptr);
    pthread_attr_destroy(&attributes);
    return result;
}

TEST(Thread, StartsTheCallableWithCopiesOfItsArgumentsAndJoinsAndAnEmptyHandleNeverWaits) {
    int sum = 0;
    auto owned = std::make_unique<int>(40);
    kivo::thread adder([&sum](int a, std::unique_ptr<int> b) { sum = a + *b; }, 2, std::move(owned));
    EXPECT_TRUE(adder.joinable());
    adder.join();
    EXPECT_FALSE(adder.joinable());
    EXPECT_EQ(sum, 42);
    kivo::thread quick;
    finish(quick);
    EXPECT_TRUE(quick.tryjoin(10000));
    EXPECT_FALSE(quick.joinable());

    kivo::thread empty;
    empty.join();
    EXPECT_TRUE(empty.tryjoin(0));
    empty.terminate();
    EXPECT_TRUE(empty.tryterminate(0));
    empty.release_handle();
    EXPECT_FALSE(empty.joinable());
}

TEST(Thread, TryjoinTimesOutAtItsDeadlineAndKeepsTheThread) {
    using std::chrono::milliseconds;
    std::latch release(1);
    kivo::thread waiting([&release] { release.wait(); });
    for (int limit : {0, 30, 400}) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_FALSE(waiting.tryjoin(limit)) << limit;
        const auto waited = std::chrono::steady_clock::now() - start;
        EXPECT_GE(waited, milliseconds(limit) - milliseconds(1)) << limit;
        EXPECT_LT(waited, milliseconds(limit + 2000)) << limit;
        EXPECT_TRUE(waiting.joinable()) << limit;
    }
    release.count_down();
    waiting.join();
    EXPECT_FALSE(waiting.joinable());
}

TEST(Thread, DestroyedHandleLetsItsRunningThreadFreeTheBlock) {
    const int before = ProbeBlock::destroyed;
    std::latch release(1);
    pthread_t running;
    {
        ProbeThread handle(new ProbeBlock([&release](ProbeBlock&) { release.wait(); }));
        running = handle.block.thread_handle_;
    }
    EXPECT_EQ(ProbeBlock::destroyed, before) << "the running thread still holds the block";
    release.count_down();
    // The handle neither joined nor detached the thread: the test reclaims it.
    ASSERT_EQ(pthread_join(running, nullptr), 0);
    EXPECT_EQ(ProbeBlock::destroyed, before + 1);
}

TEST(Thread, TerminateCancelsABlockedThreadAndJoinsIt) {
    const int before = ProbeBlock::destroyed;
    std::unique_ptr<ProbeThread> blocked;
    startBlocked(blocked, true);
    blocked->terminate();
    EXPECT_FALSE(blocked->joinable());
    EXPECT_EQ(ProbeBlock::destroyed, before) << "a cancelled thread keeps its reference";
}

TEST(Thread, TryterminateTimesOutWithoutTheDoneSignalAndSucceedsWithIt) {
    std::unique_ptr<ProbeThread> blocked;
    ProbeBlock* block = startBlocked(blocked, false);
    EXPECT_FALSE(blocked->tryterminate(50));
    EXPECT_TRUE(blocked->joinable());
    void* result = nullptr;
    ASSERT_EQ(pthread_join(block->thread_handle_, &result), 0);
    EXPECT_EQ(result, PTHREAD_CANCELED);

    kivo::thread quick;
    finish(quick);
    EXPECT_TRUE(quick.tryterminate(10000)) << "a body that had finished gave its done signal";
}

TEST(Thread, IdsCompareByThreadAndDefaultIdsAreEqual) {
    const kivo::thread::id none, self = kivo::this_thread::get_id();
    kivo::thread::id other;
    kivo::thread([&other] { other = kivo::this_thread::get_id(); }).join();
    struct Row { kivo::thread::id a, b; bool equal; };
    const Row rows[] = {{none, kivo::thread::id(), true}, {none, self, false},  {self, none, false},
                        {self, kivo::this_thread::get_id(), true}, {self, other, false}, {other, other, true}};
    for (const Row& row : rows) {
        EXPECT_EQ(row.a == row.b, row.equal) << &row - rows;
        EXPECT_EQ(row.a != row.b, !row.equal) << &row - rows;
    }
    kivo::this_thread::yield();
}

TEST(ThreadDeathTest, StartFailureThrowsWithTheSystemsTextAndFreesTheBlock) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            setSoftStackLimit(rlim_t{1} << 44);  // 16 TB: no thread gets such a stack
            auto token = std::make_shared<int>();
            const std::weak_ptr<int> watch = token;
            try {
                kivo::thread never([token = std::move(token)] {});
            } catch (const kivo::thread_resource_error& error) {
                std::fputs(error.what(), stderr);
                _exit(watch.expired() ? 0 : 1);
            }
            _exit(2);
        },
        testing::ExitedWithCode(0),
        std::string("thread_resource_error(") + std::strerror(ENOMEM) + "|" + std::strerror(EAGAIN) + ")");
}

TEST(ThreadDeathTest, NewThreadGetsTheSoftStackLimitWhenItIsARealLimitAbove8191Bytes) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    enum Stack { COPIED, DEFAULT, START_FAILS };
    struct Row { rlim_t softLimit; Stack stack; };
    // 8192 bytes is copied, but no thread can have so small a stack.
    const Row rows[] = {{4 << 20, COPIED},       {64 << 20, COPIED},          {8191, DEFAULT}, {8192, START_FAILS},
                        {RLIM_INFINITY, DEFAULT}, {INTMAX_MAX, DEFAULT}};
    const auto check = [&rows] {
        int wrong = 0;
        for (const Row& row : rows) {
            const std::size_t expected = stackOfPlainThread(row.stack == COPIED ? row.softLimit : 0);
            std::size_t size = 0;
            bool started = true;
            const rlim_t original = setSoftStackLimit(row.softLimit);
            try {
                kivo::thread([&size] { storeOwnStackSize(&size); }).join();
            } catch (const kivo::thread_resource_error&) {
                started = false;
            }
            setSoftStackLimit(original);
            if (started != (row.stack != START_FAILS) || (started && size != expected)) {
                std::fprintf(stderr, "limit %ju: stack %zu, expected %zu\n", static_cast<std::uintmax_t>(row.softLimit),
                             size, expected);
                ++wrong;
            }
        }
        _exit(wrong);
    };
    EXPECT_EXIT(check(), testing::ExitedWithCode(0), "");
}

// Each failing call the thread class can be made to meet, and the report it must give. (A cancel does
// not fail on this system's threads, and an unlock, wait or signal cannot be made to fail after the
// lock before it succeeded.) A second lock of the error-checking mutex fails; a thread joining itself
// fails.
void lockThenJoin(bool timed) {
    ProbeThread handle(new ProbeBlock([](ProbeBlock&) {}, true));
    pthread_mutex_lock(&handle.block.doneMtx_);
    timed ? (void)handle.tryjoin(1000) : handle.join();
}

void joinItself(bool timed) {
    ProbeThread handle(new ProbeBlock([](ProbeBlock&) {}));
    handle.block.thread_handle_ = pthread_self();
    timed ? (void)handle.tryjoin(10000) : handle.join();
}

TEST(ThreadDeathTest, FailingCallsReportTheirSite) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    namespace site = kivo::detail::thread_failure;
    const std::pair<site::Site, void (*)()> rows[] = {
        {site::JOIN_LOCK, [] { lockThenJoin(false); }},
        {site::TRYJOIN_LOCK, [] { lockThenJoin(true); }},
        {site::SIGNAL_DONE_LOCK,
         [] { ProbeThread(new ProbeBlock([](ProbeBlock& self) { pthread_mutex_lock(&self.doneMtx_); }, true)).join(); }},
        {site::JOIN_PTHREAD_JOIN, [] { joinItself(false); }},
        {site::TRYJOIN_PTHREAD_JOIN, [] { joinItself(true); }},
        {site::YIELD, [] { failingYield = true, kivo::this_thread::yield(); }},
    };
    for (const auto& [site, provoke] : rows) EXPECT_DEATH(provoke(), kivo::test::reportOf(site)) << site.line;
}

}  // namespace
