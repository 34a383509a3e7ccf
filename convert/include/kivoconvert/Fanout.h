#pragma once

#include <cstddef>
#include <exception>
#include <functional>

namespace kivo {
class ServiceLocator;
}

namespace kivoconvert {

// The one way the engine spreads a block's elements over threads: [0, count) cut into runs of equal
// size, each run on a kivo::thread of its own, the calling thread taking the first, all of them joined
// before run() returns. Every element is converted alone, so the result is the same for any number of
// runs; only the time differs.
//
// A block gets as many runs as it pays for: a thread costs tens of microseconds to start, so a run
// holds at least ELEMENTS_PER_RUN elements and a small block stays on the caller's thread. Every run
// has the same service locator current, the one given or else the caller's, so the options a caller
// set reach all of them. A thread that cannot be started leaves its run to the caller's thread. An
// exception thrown in a run (std::bad_alloc) is thrown again by run() once all runs are done.
class Fanout {
public:
    static constexpr std::size_t ELEMENTS_PER_RUN = 16384;

    // threads below 1 count as 1, and so does elementsPerRun.
    explicit Fanout(int threads, kivo::ServiceLocator* locator = nullptr,
                    std::size_t elementsPerRun = ELEMENTS_PER_RUN) noexcept;

    int threads() const noexcept { return threads_; }

    // How many runs a block of count elements gets.
    std::size_t runsFor(std::size_t count) const noexcept;

    // Calls work(begin, end) on each run of [0, count).
    void run(std::size_t count, const std::function<void(std::size_t, std::size_t)>& work) const;

private:
    int threads_;
    kivo::ServiceLocator* locator_;
    std::size_t elementsPerRun_;
};

}  // namespace kivoconvert
