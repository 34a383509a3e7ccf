#include "kivodt/Runner.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

#include "kivodt/BufferedOutput.h"
#include "kivodt/ConvertedFields.h"
#include "kivodt/InputLines.h"
#include "kivodt/LineBlocks.h"
#include "kivodt/Values.h"
#include "kivox/Missing.h"

namespace kivodt {

namespace {

// Room for the widest field the catalog allows, with a guard either side that no format may touch.
constexpr std::size_t FIELD_ROOM = 1024;

int reportStreamFailure(std::FILE* err, const char* what, int error) {
    std::fprintf(err, "kivodt: %s %s\n", what, std::strerror(error));
    return EXIT_STREAM_FAILED;
}

std::string lineMessage(const char* place, std::size_t number, std::string_view what) {
    return "kivodt: " + std::string(place) + " " + std::to_string(number) + ": " + std::string(what) + "\n";
}

std::string lineMessage(const char* place, std::size_t number, std::string_view what, std::string_view text) {
    return lineMessage(place, number, std::string(what) + ": " + quotedForMessage(text));
}

// Where a run's lines go: one output line per value or text, and messages that name a line. Line by
// line they go straight to the streams; in blocks, into each run's own buffers.
struct StreamSink {
    BufferedOutput& out;
    std::FILE* err;
    void line(const char* bytes, std::size_t size) { out.line(bytes, size); }
    void message(const std::string& text) { std::fputs(text.c_str(), err); }
};

struct BufferSink {
    std::string& out;
    std::string& messages;
    void line(const char* bytes, std::size_t size) {
        out.append(bytes, size);
        out += '\n';
    }
    void message(const std::string& text) { messages += text; }
};

// One value in, one field out (as hex pairs with hex). Each thread converts with a copy of its own.
class FormatLine {
public:
    FormatLine(const ResolvedSpec<FormatEntry>& spec, bool hex) : spec_(spec), hex_(hex) {}

    template <class Sink>
    int operator()(std::string_view text, const char* place, std::size_t number, Sink& sink) {
        double value = 0;
        if (!parseValue(text, value)) {
            sink.message(lineMessage(place, number, "not a number or missing value", text));
            return EXIT_BAD_INPUT;
        }
        const auto width = static_cast<std::size_t>(spec_.width);
        spec_.entry->function(field_.data(), spec_.width, spec_.decimals, value);
        if (hex_) {
            encodeHex(field_.data(), width, hexField_.data());
            sink.line(hexField_.data(), 2 * width);
        } else {
            sink.line(field_.data(), width);
        }
        return EXIT_OK;
    }

private:
    ResolvedSpec<FormatEntry> spec_;
    bool hex_;
    std::vector<char> field_ = std::vector<char>(FIELD_ROOM);
    std::vector<char> hexField_ = std::vector<char>(2 * FIELD_ROOM);
};

// One text in, the value read (or "invalid") out; texts are hex pairs with hex.
class InformatLine {
public:
    InformatLine(const ResolvedSpec<InformatEntry>& spec, bool hex) : spec_(spec), hex_(hex) {}

    template <class Sink>
    int operator()(std::string_view text, const char* place, std::size_t number, Sink& sink) {
        if (hex_) {
            if (!decodeHex(text, bytes_)) {
                sink.message(lineMessage(place, number, "not hex pairs", text));
                return EXIT_BAD_INPUT;
            }
            text = bytes_;
        }
        // The field is the first `width` bytes of the text, or the whole text when it is shorter or when
        // the spec gave no width; copied, so that the informat sees nothing beyond it. The line limit
        // keeps the text's length within an int.
        const std::size_t fieldLength =
            spec_.widthGiven && text.size() > static_cast<std::size_t>(spec_.width) ? spec_.width : text.size();
        field_.assign(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(fieldLength));
        double result = kivo::lum_numeric::MISSING;
        const int accepted = spec_.entry->function(field_.data(), static_cast<int>(fieldLength),
                                                   static_cast<int>(text.size()), spec_.decimals, &result);
        if (accepted == 0) {
            sink.line("invalid", 7);
            return EXIT_BAD_INPUT;
        }
        char printed[32];
        sink.line(printed, printValue(result, printed));
        return EXIT_OK;
    }

private:
    ResolvedSpec<InformatEntry> spec_;
    bool hex_;
    std::string bytes_;
    std::vector<char> field_;
};

// Standard input in blocks, each block's lines converted on options.threads threads, each thread with
// its own copy of the line converter; the output is what the line-by-line run gives.
template <class LineConverter>
int runInBlocks(const LineConverter& converter, const RunOptions& options, const Streams& streams) {
    const ConvertLines convert = [&](std::string_view lines, std::size_t first, std::string& out,
                                     std::string& messages) {
        LineConverter own = converter;
        BufferSink sink{out, messages};
        int status = EXIT_OK;
        forEachLine(lines, first, [&](std::string_view line, std::size_t number) {
            if (line.size() > options.maxLineLength) {
                sink.message(lineMessage("line", number, "longer than " + std::to_string(options.maxLineLength) +
                                                             " bytes"));
                status = EXIT_BAD_INPUT;
                return;
            }
            status = std::max(status, own(line, "line", number, sink));
        });
        return status;
    };
    const ReportTooLong tooLong = [](std::size_t number, std::string& messages) {
        messages += lineMessage("line", number, "longer than " + std::to_string(LINE_BLOCK_BYTES) + " bytes");
    };
    const LineBlockResult result =
        convertLineBlocks({streams.in, streams.out, streams.err}, options.threads, convert, tooLong);
    if (result.writeError != 0) {
        return reportStreamFailure(streams.err, "cannot write standard output:", result.writeError);
    }
    if (std::fflush(streams.out) != 0) {
        return reportStreamFailure(streams.err, "cannot write standard output:", errno != 0 ? errno : EIO);
    }
    if (result.readError != 0) {
        return reportStreamFailure(streams.err, "cannot read standard input:", result.readError);
    }
    return result.status;
}

// Gives each value or text to the converter, which writes its line and returns EXIT_OK or
// EXIT_BAD_INPUT: line by line, or standard input in blocks on several threads. The run stops at the
// first failed read or write.
template <class LineConverter>
int runLines(LineConverter converter, std::span<const std::string_view> arguments, const RunOptions& options,
             const Streams& streams) {
    if (arguments.empty() && options.threads > 1) {
        return runInBlocks(converter, options, streams);
    }
    BufferedOutput out(streams.out);
    InputLines inputs(arguments, streams.in, options.maxLineLength);
    StreamSink sink{out, streams.err};
    const char* place = inputs.fromArguments() ? "argument" : "line";
    int status = EXIT_OK;
    std::string_view text;
    for (auto next = inputs.next(text); next == InputLines::Next::LINE || next == InputLines::Next::TOO_LONG;
         next = inputs.next(text)) {
        if (next == InputLines::Next::TOO_LONG) {
            sink.message(lineMessage(place, inputs.number(),
                                     "longer than " + std::to_string(options.maxLineLength) + " bytes"));
            status = EXIT_BAD_INPUT;
        } else if (converter(text, place, inputs.number(), sink) != EXIT_OK) {
            status = EXIT_BAD_INPUT;
        }
        if (out.failed()) {
            break;
        }
    }
    return endOfRun(out, inputs.readError(), status, streams.err);
}

// Lines gathered to be converted as one array: each kept (or marked too long) with its number.
class LineBlock {
public:
    static constexpr std::size_t MAX_LINES = 4096;
    static constexpr std::size_t MAX_BYTES = 1 << 20;

    struct Line {
        std::size_t number;
        bool tooLong;
    };

    void add(std::string_view text, std::size_t number) {
        bytes_.append(text);
        ends_.push_back(bytes_.size());
        lines_.push_back({number, false});
    }
    void addTooLong(std::size_t number) {
        ends_.push_back(bytes_.size());
        lines_.push_back({number, true});
    }
    bool full() const { return lines_.size() == MAX_LINES || bytes_.size() >= MAX_BYTES; }
    std::span<const Line> lines() const { return lines_; }
    std::string_view text(std::size_t i) const {
        const std::size_t begin = i == 0 ? 0 : ends_[i - 1];
        return std::string_view(bytes_).substr(begin, ends_[i] - begin);
    }
    // The texts to convert: every line but those too long.
    std::span<const std::string_view> texts() {
        texts_.clear();
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            if (!lines_[i].tooLong) {
                texts_.push_back(text(i));
            }
        }
        return texts_;
    }
    void clear() {
        bytes_.clear();
        ends_.clear();
        lines_.clear();
    }

private:
    std::string bytes_;
    std::vector<std::size_t> ends_;
    std::vector<Line> lines_;
    std::vector<std::string_view> texts_;
};

// Converts a block's texts at once, then writes a line for each in order: its output, or for a text
// that could not be used a message and the stand-in (with --keep, the text as it came).
int writeBlock(LineBlock& block, const FieldConverter& converter, ConvertedFields& converted, const RunOptions& options,
               const char* place, BufferedOutput& out, std::FILE* err) {
    converter.convert(block.texts(), converted, options.threads);
    int status = EXIT_OK;
    std::size_t next = 0;
    for (std::size_t i = 0; i < block.lines().size(); ++i) {
        const LineBlock::Line& line = block.lines()[i];
        if (line.tooLong) {
            std::fprintf(err, "kivodt: %s %zu: longer than %zu bytes\n", place, line.number, options.maxLineLength);
            status = EXIT_BAD_INPUT;
            continue;
        }
        const FieldProblem problem = converted.problem(next);
        const std::string_view output = converted.output(next++);
        if (problem == FieldProblem::NONE) {
            out.line(output.data(), output.size());
            continue;
        }
        std::fprintf(err, "kivodt: %s %zu: %s: %s\n", place, line.number, converter.describe(problem).c_str(),
                     quotedForMessage(block.text(i)).c_str());
        const std::string_view written = options.keep ? block.text(i) : output;
        out.line(written.data(), written.size());
        status = EXIT_BAD_INPUT;
    }
    block.clear();
    return status;
}

}  // namespace

int endOfRun(BufferedOutput& out, int readError, int status, std::FILE* err) {
    if (!out.flush()) {
        return reportStreamFailure(err, "cannot write standard output:", out.error());
    }
    if (readError != 0) {
        return reportStreamFailure(err, "cannot read standard input:", readError);
    }
    return status;
}

int runFormat(const ResolvedSpec<FormatEntry>& spec, std::span<const std::string_view> values,
              const RunOptions& options, const Streams& streams) {
    if (spec.entry->writesBytes && !options.hex) {
        std::fprintf(streams.err, "kivodt: %.*s writes bytes, not text: run it with --hex\n",
                     static_cast<int>(spec.entry->name.size()), spec.entry->name.data());
        return EXIT_USAGE;
    }
    return runLines(FormatLine(spec, options.hex), values, options, streams);
}

int runInformat(const ResolvedSpec<InformatEntry>& spec, std::span<const std::string_view> texts,
                const RunOptions& options, const Streams& streams) {
    if (spec.entry->readsBytes && !options.hex) {
        std::fprintf(streams.err, "kivodt: %.*s reads bytes, not text: give them as hex pairs with --hex\n",
                     static_cast<int>(spec.entry->name.size()), spec.entry->name.data());
        return EXIT_USAGE;
    }
    return runLines(InformatLine(spec, options.hex), texts, options, streams);
}

int runConvert(const FieldConverter& converter, std::span<const std::string_view> texts, const RunOptions& options,
               const Streams& streams) {
    BufferedOutput out(streams.out);
    InputLines inputs(texts, streams.in, options.maxLineLength);
    const char* place = inputs.fromArguments() ? "argument" : "line";
    LineBlock block;
    ConvertedFields converted;
    int status = EXIT_OK;
    std::string_view text;
    for (auto next = inputs.next(text); next == InputLines::Next::LINE || next == InputLines::Next::TOO_LONG;
         next = inputs.next(text)) {
        if (next == InputLines::Next::TOO_LONG) {
            block.addTooLong(inputs.number());
        } else {
            block.add(text, inputs.number());
        }
        if (block.full()) {
            status = std::max(status, writeBlock(block, converter, converted, options, place, out, streams.err));
        }
        if (out.failed()) {
            break;
        }
    }
    if (!out.failed()) {
        status = std::max(status, writeBlock(block, converter, converted, options, place, out, streams.err));
    }
    return endOfRun(out, inputs.readError(), status, streams.err);
}

void printCatalog(std::FILE* out) {
    const auto row = [out](const char* kind, std::string_view name, const Limits& limits) {
        const bool belowWidth =
            limits.decimals == Decimals::MISSING_POSITION || limits.decimals == Decimals::LAYOUT;
        std::fprintf(out, "%-9s %-10.*s widths %2d-%-3d default %2d  decimals 0-%d%s\n", kind,
                     static_cast<int>(name.empty() ? 3 : name.size()), name.empty() ? "w.d" : name.data(),
                     limits.minWidth, limits.maxWidth, limits.defaultWidth, maxDecimals(limits, MAX_FIELD),
                     belowWidth ? " (below the width)" : "");
    };
    for (const FormatEntry& entry : formatCatalog()) {
        row("format", entry.name, entry.limits);
    }
    for (const InformatEntry& entry : informatCatalog()) {
        row("informat", entry.name, entry.limits);
    }
}

}  // namespace kivodt
