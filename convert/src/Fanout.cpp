#include "kivoconvert/Fanout.h"

#include <algorithm>
#include <vector>

#include "kivo/thread/Thread_pthread.h"
#include "kivox/Services.h"

namespace kivoconvert {

namespace {

// One run of a block: its elements, and what stopped it if it threw.
struct Run {
    std::size_t begin;
    std::size_t end;
    std::exception_ptr failure;
};

// Converts one run with the block's locator current, keeping an exception for the caller: one escaping
// a thread's body would end the process.
void convertRun(const std::function<void(std::size_t, std::size_t)>* work, kivo::ServiceLocator* locator,
                Run* run) noexcept {
    kivo::ServiceLocator* const previous = kivo::ServiceLocator::setCurrent(locator);
    try {
        (*work)(run->begin, run->end);
    } catch (...) {
        run->failure = std::current_exception();
    }
    kivo::ServiceLocator::setCurrent(previous);
}

}  // namespace

Fanout::Fanout(int threads, kivo::ServiceLocator* locator, std::size_t elementsPerRun) noexcept
    : threads_(std::max(threads, 1)), locator_(locator), elementsPerRun_(std::max<std::size_t>(elementsPerRun, 1)) {}

std::size_t Fanout::runsFor(std::size_t count) const noexcept {
    return std::clamp<std::size_t>(count / elementsPerRun_, 1, static_cast<std::size_t>(threads_));
}

void Fanout::run(std::size_t count, const std::function<void(std::size_t, std::size_t)>& work) const {
    kivo::ServiceLocator* const locator = locator_ != nullptr ? locator_ : kivo::ServiceLocator::current();
    const std::size_t runCount = runsFor(count);
    if (runCount == 1) {
        Run only{0, count, nullptr};
        convertRun(&work, locator, &only);
        if (only.failure) {
            std::rethrow_exception(only.failure);
        }
        return;
    }
    std::vector<Run> runs(runCount);
    for (std::size_t i = 0; i < runCount; ++i) {
        runs[i] = {count * i / runCount, count * (i + 1) / runCount, nullptr};
    }
    std::vector<kivo::thread> workers;
    workers.reserve(runCount - 1);
    for (std::size_t i = 1; i < runCount; ++i) {
        // A thread that cannot start (no resources, or no memory for its block) must not leave the
        // started ones running over this frame: its run is done here instead.
        try {
            workers.emplace_back(convertRun, &work, locator, &runs[i]);
        } catch (...) {
            convertRun(&work, locator, &runs[i]);
        }
    }
    convertRun(&work, locator, &runs[0]);
    for (kivo::thread& worker : workers) {
        worker.join();
    }
    for (const Run& run : runs) {
        if (run.failure) {
            std::rethrow_exception(run.failure);
        }
    }
}

}  // namespace kivoconvert
