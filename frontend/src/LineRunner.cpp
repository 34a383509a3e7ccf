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

// A run's output: lines appended with their room made once per batch, so that a line of the conversion's
// costs one copy of a fixed size and a newline.
class LineBuffer {
public:
    void clear() noexcept { size_ = 0; }
    std::string_view bytes() const noexcept { return {bytes_.data(), size_}; }
    // Room for `lines` more lines of at most `longest` bytes each, and the slack of a fixed-size copy.
    void makeRoom(std::size_t lines, std::size_t longest) {
        const std::size_t needed = size_ + lines * (longest + 1) + kivoconvert::ConvertedBlock::SLOT_SLACK;
        if (needed > bytes_.size()) {
            bytes_.resize(std::max(needed, 2 * bytes_.size()));
        }
    }
    // An output of the conversion, whose slot may be read SLOT_SLACK bytes on.
    void output(std::string_view output) noexcept {
        constexpr std::size_t MOVE = kivoconvert::ConvertedBlock::SLOT_SLACK;
        // The fixed size is a constant apart, so that it compiles to a few moves rather than a string copy.
        if (output.size() <= MOVE) {
            std::memcpy(bytes_.data() + size_, output.data(), MOVE);
        } else {
            std::memcpy(bytes_.data() + size_, output.data(), output.size());
        }
        bytes_[size_ + output.size()] = '\n';
        size_ += output.size() + 1;
    }
    // Any text, a line of its own.
    void text(std::string_view text) {
        makeRoom(1, text.size());
        std::memcpy(bytes_.data() + size_, text.data(), text.size());
        bytes_[size_ + text.size()] = '\n';
        size_ += text.size() + 1;
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
    std::vector<std::string_view> batch;
    kivoconvert::ConvertedBlock converted;
};

// "kivodt: line 3: WHAT: TEXT", without its newline: a pointer may still follow it.
void appendMessage(std::string& messages, const char* place, std::size_t number, std::string_view what,
                   const std::string& text) {
    messages.append("kivodt: ").append(place).append(" ").append(std::to_string(number)).append(": ");
    messages.append(what).append(": ").append(text);
}

// The texts a run converts at once: enough that a call's cost vanishes, few enough to stay in cache.
constexpr std::size_t BATCH = 4096;

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
        const auto each = [&](std::string_view text) {
            run.batch.push_back(text);
            if (run.batch.size() == BATCH) {
                flush(run, number);
            }
        };
        if (run.texts.empty()) {
            forEachLine(run.lines, each);
        } else {
            std::for_each(run.texts.begin(), run.texts.end(), each);
        }
        flush(run, number);
    }

private:
    void name(LineRun& run, std::size_t number, std::string_view what, const std::string& text) const {
        appendMessage(run.messages, place_, number, what, text);
        run.status = EXIT_BAD_INPUT;
    }

    void flush(LineRun& run, std::size_t& number) const {
        conversion_.convert(run.batch, run.converted, kivoconvert::Fanout(1));
        run.out.makeRoom(run.batch.size(), conversion_.outputSize());
        for (std::size_t i = 0; i < run.batch.size(); ++i, ++number) {
            write(run, number, run.batch[i], run.converted.note(i), run.converted.output(i));
        }
        run.batch.clear();
    }

    void write(LineRun& run, std::size_t number, std::string_view text, Note note, std::string_view output) const {
        if (text.size() > maxLine_) {  // a line the reader held whole, or an argument
            name(run, number, kivoconvert::tooLongText(maxLine_), kivoconvert::quotedStart(shownStart(text, maxLine_)));
            run.messages += '\n';
            return;
        }
        if (note == Note::NONE) {
            run.out.output(output);
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
            run.out.output(output);
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
            std::string message;
            appendMessage(message, place, reader.tooLongNumber(), kivoconvert::tooLongText(reader.maxLine()),
                          kivoconvert::quotedStart(reader.tooLongStart()) + "\n");
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
