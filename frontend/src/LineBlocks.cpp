#include "kivodt/LineBlocks.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <vector>

#include "kivo/thread/Thread_pthread.h"
#include "kivodt/StreamReading.h"
#include "kivox/Services.h"

namespace kivodt {

namespace {

// One run of a block: its whole lines and what converting them gave.
struct Run {
    std::string_view lines;
    std::size_t firstNumber = 0;
    std::string out;
    std::string messages;
    int status = 0;
};

// Cuts whole lines into `count` runs of about equal size, each ending at a line's end, and numbers each
// run's first line.
void cutIntoRuns(std::string_view lines, std::size_t firstNumber, std::vector<Run>& runs) {
    const std::size_t count = runs.size();
    std::size_t begin = 0;
    std::size_t number = firstNumber;
    for (std::size_t i = 0; i < count; ++i) {
        std::size_t end = lines.size() * (i + 1) / count;
        if (i + 1 < count && end > begin) {
            const std::size_t newline = lines.find('\n', end - 1);
            end = newline == std::string_view::npos ? lines.size() : newline + 1;
        }
        end = std::max(end, begin);
        runs[i].lines = lines.substr(begin, end - begin);
        runs[i].firstNumber = number;
        runs[i].out.clear();
        runs[i].messages.clear();
        number += static_cast<std::size_t>(std::count(runs[i].lines.begin(), runs[i].lines.end(), '\n'));
        if (!runs[i].lines.empty() && runs[i].lines.back() != '\n') {
            ++number;
        }
        begin = end;
    }
}

// Converts every run, the first on this thread and the others each on a thread of its own, with this
// thread's services current on all of them.
void convertRuns(std::vector<Run>& runs, const ConvertLines& convert) {
    kivo::ServiceLocator* const services = kivo::ServiceLocator::current();
    const auto work = [&convert, services](Run* run) {
        kivo::ServiceLocator* const previous = kivo::ServiceLocator::setCurrent(services);
        run->status = convert(run->lines, run->firstNumber, run->out, run->messages);
        kivo::ServiceLocator::setCurrent(previous);
    };
    std::vector<kivo::thread> workers;
    workers.reserve(runs.size());
    for (std::size_t i = 1; i < runs.size(); ++i) {
        if (runs[i].lines.empty()) {
            continue;
        }
        try {
            workers.emplace_back(work, &runs[i]);
        } catch (const kivo::thread_resource_error&) {
            work(&runs[i]);
        }
    }
    work(&runs[0]);
    for (kivo::thread& worker : workers) {
        worker.join();
    }
}

bool writeAll(std::FILE* file, const std::string& bytes) {
    return bytes.empty() || std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
}

// The block reader: fills the block after what the last block left, and tells whole lines from the
// start of a line still being read.
class BlockReader {
public:
    BlockReader(std::FILE* in, std::size_t blockBytes) : in_(in), block_(blockBytes) {}

    // Reads more; false at the end of the stream or on a failed read (then error() says why).
    bool fill() {
        if (ended_) {
            return false;
        }
        held_ += readSome(in_, block_.data() + held_, block_.size() - held_, ended_, error_);
        const std::size_t got = held_;
        return got > 0;
    }

    // The whole lines held: up to the last "\n", or everything at the end of the stream.
    std::string_view wholeLines() const {
        const std::string_view held(block_.data(), held_);
        if (ended_) {
            return held;
        }
        const std::size_t last = held.rfind('\n');
        return last == std::string_view::npos ? std::string_view() : held.substr(0, last + 1);
    }

    bool full() const { return held_ == block_.size(); }

    // Drops the first `used` bytes, keeping the start of the next line.
    void consume(std::size_t used) {
        std::memmove(block_.data(), block_.data() + used, held_ - used);
        held_ -= used;
    }

    // Drops the rest of a line too long for the block, up to and with its "\n".
    void skipLine() {
        for (;;) {
            const char* newline = static_cast<const char*>(std::memchr(block_.data(), '\n', held_));
            if (newline != nullptr) {
                consume(static_cast<std::size_t>(newline - block_.data()) + 1);
                return;
            }
            held_ = 0;
            if (!fill()) {
                return;
            }
        }
    }

    int error() const { return error_; }

private:
    std::FILE* in_;
    std::vector<char> block_;
    std::size_t held_ = 0;
    bool ended_ = false;
    int error_ = 0;
};

}  // namespace

LineBlockResult convertLineBlocks(const LineBlockStreams& streams, int threads, const ConvertLines& convert,
                                  const ReportTooLong& tooLong, std::size_t blockBytes) {
    LineBlockResult result;
    BlockReader reader(streams.in, blockBytes);
    std::vector<Run> runs(static_cast<std::size_t>(std::max(threads, 1)));
    std::size_t nextNumber = 1;
    std::string messages;
    while (reader.fill()) {
        const std::string_view lines = reader.wholeLines();
        if (lines.empty()) {
            if (!reader.full()) {
                continue;  // the stream ended or failed with nothing held; fill() says so next time
            }
            messages.clear();
            tooLong(nextNumber++, messages);
            result.status = std::max(result.status, 1);
            reader.skipLine();
            if (!writeAll(streams.err, messages)) {
                break;
            }
            continue;
        }
        cutIntoRuns(lines, nextNumber, runs);
        convertRuns(runs, convert);
        for (const Run& run : runs) {
            result.status = std::max(result.status, run.status);
            if (!writeAll(streams.out, run.out) || !writeAll(streams.err, run.messages)) {
                result.writeError = errno != 0 ? errno : EIO;
                return result;
            }
        }
        nextNumber = runs.back().firstNumber +
                     static_cast<std::size_t>(std::count(runs.back().lines.begin(), runs.back().lines.end(), '\n'));
        reader.consume(lines.size());
    }
    result.readError = reader.error();
    return result;
}

}  // namespace kivodt
