#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "kivoconvert/Notes.h"
#include "kivodt/Runner.h"

namespace kivodt {

namespace {

using kivoconvert::Conversion;
using kivoconvert::Note;

// A run's output: lines appended where the conversion writes them, so that a line costs its output and
// a newline.
class LineBuffer {
public:
    void clear() noexcept { size_ = 0; }
    std::string_view bytes() const noexcept { return {bytes_.data(), size_}; }
    // Room for a line of up to `longest` bytes, where the next line goes.
    char* room(std::size_t longest) {
        const std::size_t needed = size_ + longest + 1;
        if (needed > bytes_.size()) {
            bytes_.resize(std::max(needed, 2 * bytes_.size()));
        }
        return bytes_.data() + size_;
    }
    // Ends the line of `length` bytes written into room().
    void commit(std::size_t length) noexcept {
        bytes_[size_ + length] = '\n';
        size_ += length + 1;
    }
    // Any text, a line of its own.
    void text(std::string_view text) {
        std::memcpy(room(text.size()), text.data(), text.size());
        commit(text.size());
    }

private:
    std::vector<char> bytes_;
    std::size_t size_ = 0;
};

// One run of a block: its lines (or arguments) converted and written, with their messages, into buffers
// of its own, so that runs on several threads never share a byte until they are joined in order.
struct LineRun {
    std::string_view lines;                   // its share of a block of lines, or
    std::span<const std::string_view> texts;  // a block of arguments
    std::size_t firstNumber = 0;
    LineBuffer out;
    std::string messages;
    std::size_t hintAt = std::string::npos;  // where in messages the pointer to convert may go
    int status = EXIT_OK;
};

// The work of a run: each text through the conversion, a line out for it and a message if it is named.
class RunConverter {
public:
    RunConverter(const Conversion& conversion, const RunOptions& options, const char* place, std::size_t maxLine)
        : conversion_(conversion), options_(options), place_(place), maxLine_(maxLine) {}

    void convert(LineRun& run) const {
        run.out.clear();
        run.messages.clear();
        run.hintAt = std::string::npos;
        run.status = EXIT_OK;
        std::size_t number = run.firstNumber;
        std::string decoded;
        const auto each = [&](std::string_view text) { convertLine(run, number++, text, decoded); };
        if (run.texts.empty()) {
            forEachLine(run.lines, each);
        } else {
            std::for_each(run.texts.begin(), run.texts.end(), each);
        }
    }

private:
    void name(LineRun& run, std::size_t number, std::string_view what, const std::string& text) const {
        appendMessage(run.messages, place_, number, what, text);
        run.status = EXIT_BAD_INPUT;
    }

    void convertLine(LineRun& run, std::size_t number, std::string_view text, std::string& decoded) const {
        if (text.size() > maxLine_) {  // a line the reader held whole, or an argument
            run.messages += tooLongMessage(place_, number, maxLine_, text);
            run.status = EXIT_BAD_INPUT;
            return;
        }
        std::size_t length = 0;
        const Note note = conversion_.convertText(text, run.out.room(conversion_.outputSize()), length, decoded);
        if (note == Note::NONE) {
            run.out.commit(length);
            return;
        }
        if (kivoconvert::isNamed(note)) {
            name(run, number, conversion_.describe(note, text), kivoconvert::quotedForMessage(text));
            if (run.hintAt == std::string::npos && DateTextHint::fits(conversion_, note, text)) {
                run.hintAt = run.messages.size();
            }
            run.messages += '\n';
        }
        if (note == Note::LEFT_OUT || (options_.keep && !kivoconvert::keepsValue(note))) {
            run.out.text(text);
        } else {
            run.out.commit(length);
        }
    }

    const Conversion& conversion_;
    const RunOptions& options_;
    const char* place_;
    std::size_t maxLine_;
};

// Cuts a block of whole lines into `runs` shares of about equal size, each ending at a line's end, and
// numbers each share's first line.
void cutIntoRuns(std::string_view lines, std::size_t firstNumber, std::span<LineRun> runs) {
    std::size_t begin = 0;
    std::size_t number = firstNumber;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        std::size_t end = i + 1 == runs.size() ? lines.size() : std::max(begin, lines.size() * (i + 1) / runs.size());
        if (end < lines.size()) {
            end = std::min(lines.find('\n', end == 0 ? 0 : end - 1), lines.size() - 1) + 1;
        }
        runs[i].lines = lines.substr(begin, end - begin);
        runs[i].texts = {};
        runs[i].firstNumber = number;
        if (i + 1 < runs.size()) {
            number += countLines(runs[i].lines);
        }
        begin = end;
    }
}

}  // namespace

int runLines(const Conversion& conversion, LineReader& reader, const RunOptions& options,
             const OutputStreams& streams) {
    BufferedOutput out(streams.out);
    const char* const place = reader.fromArguments() ? "argument" : "line";
    const RunConverter converter(conversion, options, place, reader.maxLine());
    const kivoconvert::Fanout fanout(options.threads, nullptr, options.elementsPerRun);
    std::vector<LineRun> runs(static_cast<std::size_t>(std::max(options.threads, 1)));
    DateTextHint hint;
    int status = EXIT_OK;
    std::size_t converted = 0;  // bytes
    for (LineReader::Next next = reader.next(); !out.failed(); next = reader.next()) {
        std::span<LineRun> used(runs.data(), 1);
        if (next == LineReader::Next::LINES) {
            const bool alone = converted < options.aloneFor;
            converted += reader.lines().size();
            used = std::span<LineRun>(runs.data(), alone ? 1 : fanout.runsFor(reader.lineCount()));
            cutIntoRuns(reader.lines(), reader.firstNumber(), used);
        } else if (next == LineReader::Next::TEXTS) {
            runs[0].texts = reader.texts();
            runs[0].firstNumber = reader.firstNumber();
        } else if (next == LineReader::Next::TOO_LONG) {
            const std::string message =
                tooLongMessage(place, reader.tooLongNumber(), reader.maxLine(), reader.tooLongStart());
            std::fwrite(message.data(), 1, message.size(), streams.err);
            status = EXIT_BAD_INPUT;
            continue;
        } else {
            break;
        }
        // A thread for each share, the caller's among them.
        kivoconvert::Fanout(static_cast<int>(used.size()), nullptr, 1)
            .run(used.size(), [&](std::size_t begin, std::size_t end) {
                for (std::size_t r = begin; r < end; ++r) {
                    converter.convert(used[r]);
                }
            });
        // Outputs first, then messages, block by block: the same bytes at the same points for any runs.
        for (LineRun& run : used) {
            out.write(run.out.bytes());
            if (run.hintAt != std::string::npos && !hint.given()) {
                run.messages.insert(run.hintAt, DateTextHint::text(conversion));
                hint.give();
            }
            status = std::max(status, run.status);
        }
        for (const LineRun& run : used) {
            std::fwrite(run.messages.data(), 1, run.messages.size(), streams.err);
        }
    }
    return endOfRun(out, reader.readError(), status, streams.err);
}

}  // namespace kivodt
