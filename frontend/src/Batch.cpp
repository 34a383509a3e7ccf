#include "kivodt/Batch.h"

#include <algorithm>
#include <climits>
#include <stdexcept>
#include <vector>

#include "kivo/thread/Thread_pthread.h"
#include "kivodt/Spec.h"
#include "kivox/Missing.h"
#include "kivox/Services.h"

namespace kivodt {

namespace {

// Started workers, joined when the batch ends however it ends: none may outlive the caller's buffers.
class Workers {
public:
    explicit Workers(std::size_t count) { threads_.reserve(count); }
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;
    ~Workers() {
        for (kivo::thread& worker : threads_) {
            worker.join();
        }
    }

    // Runs work(args...) on a new thread, or here and now when no thread can be started.
    template <class Work, class... Args>
    void start(const Work& work, Args... args) {
        try {
            threads_.emplace_back(work, args...);
        } catch (const kivo::thread_resource_error&) {
            work(args...);
        }
    }

private:
    std::vector<kivo::thread> threads_;
};

// Cuts [0, count) into `threads` runs whose sizes differ by at most one and calls convert(begin, end) on
// each, on its own thread with the locator current; the calling thread takes the first run.
template <class Convert>
void runSplit(std::size_t count, int threads, kivo::ServiceLocator* locator, const Convert& convert) {
    const std::size_t runs = std::clamp<std::size_t>(static_cast<std::size_t>(std::max(threads, 1)), 1,
                                                     std::max<std::size_t>(count, 1));
    const auto boundary = [count, runs](std::size_t run) { return count * run / runs; };
    kivo::ServiceLocator* const shared = locator != nullptr ? locator : kivo::ServiceLocator::current();
    const auto convertRun = [shared, &convert](std::size_t begin, std::size_t end) {
        kivo::ServiceLocator* const previous = kivo::ServiceLocator::setCurrent(shared);
        convert(begin, end);
        kivo::ServiceLocator::setCurrent(previous);
    };
    Workers workers(runs - 1);
    for (std::size_t run = 1; run < runs; ++run) {
        workers.start(convertRun, boundary(run), boundary(run + 1));
    }
    convertRun(boundary(0), boundary(1));
}

template <class Entry>
void checkLimits(const Entry& entry, int width, int decimals) {
    const Limits& limits = entry.limits;
    if (width < limits.minWidth || width > limits.maxWidth || decimals < 0 ||
        decimals > maxDecimals(limits, width)) {
        throw std::invalid_argument("width or decimals outside the limits of the format or informat");
    }
}

// The number of texts, once the offsets are known to describe them.
std::size_t checkedTextCount(std::span<const std::size_t> offsets) {
    for (std::size_t i = 1; i < offsets.size(); ++i) {
        if (offsets[i] < offsets[i - 1] || offsets[i] - offsets[i - 1] > static_cast<std::size_t>(INT_MAX)) {
            throw std::invalid_argument("text offsets go backwards or a text is longer than an int");
        }
    }
    return offsets.empty() ? 0 : offsets.size() - 1;
}

}  // namespace

void formatBatch(const FormatEntry& entry, int width, int decimals, std::span<const double> values, char* fields,
                 int threads, kivo::ServiceLocator* locator) {
    checkLimits(entry, width, decimals);
    const auto fieldSize = static_cast<std::size_t>(width);
    runSplit(values.size(), threads, locator, [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) {
            entry.function(fields + i * fieldSize, width, decimals, values[i]);
        }
    });
}

void informatBatch(const InformatEntry& entry, int width, int decimals, TextColumn texts, std::span<double> results,
                   std::span<unsigned char> accepted, int threads, kivo::ServiceLocator* locator) {
    checkLimits(entry, width == WHOLE_TEXT ? entry.limits.defaultWidth : width, decimals);
    const std::size_t count = checkedTextCount(texts.offsets);
    if (results.size() != count || accepted.size() != count) {
        throw std::invalid_argument("the texts, results and accepted flags differ in number");
    }
    runSplit(count, threads, locator, [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) {
            const std::size_t length = texts.offsets[i + 1] - texts.offsets[i];
            const std::size_t field =
                width != WHOLE_TEXT && length > static_cast<std::size_t>(width) ? static_cast<std::size_t>(width)
                                                                                : length;
            double result = kivo::lum_numeric::MISSING;
            accepted[i] = entry.function(texts.bytes + texts.offsets[i], static_cast<int>(field),
                                         static_cast<int>(length), decimals, &result) != 0;
            results[i] = result;
        }
    });
}

}  // namespace kivodt
