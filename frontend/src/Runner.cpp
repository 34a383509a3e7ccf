#include "kivodt/Runner.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "kivodt/BufferedOutput.h"
#include "kivodt/ConvertedFields.h"
#include "kivodt/InputLines.h"
#include "kivodt/Values.h"
#include "kivox/Missing.h"

namespace kivodt {

namespace {

// Room for the widest field the catalog allows, with a guard either side that no format may touch.
constexpr std::size_t FIELD_ROOM = 1024;

void reportLine(std::FILE* err, const InputLines& inputs, const char* what, std::string_view text) {
    std::fprintf(err, "kivodt: %s %zu: %s: %s\n", inputs.fromArguments() ? "argument" : "line", inputs.number(),
                 what, quotedForMessage(text).c_str());
}

void reportTooLong(std::FILE* err, const InputLines& inputs, std::size_t maxLineLength) {
    std::fprintf(err, "kivodt: %s %zu: longer than %zu bytes\n", inputs.fromArguments() ? "argument" : "line",
                 inputs.number(), maxLineLength);
}

int reportStreamFailure(std::FILE* err, const char* what, int error) {
    std::fprintf(err, "kivodt: cannot %s: %s\n", what, std::strerror(error));
    return EXIT_STREAM_FAILED;
}

// Gives each value or text to convert(text, inputs, out), which writes its line and returns EXIT_OK or
// EXIT_BAD_INPUT. The run stops at the first failed read or write.
template <class Convert>
int runEach(std::span<const std::string_view> arguments, const RunOptions& options, const Streams& streams,
            Convert convert) {
    BufferedOutput out(streams.out);
    InputLines inputs(arguments, streams.in, options.maxLineLength);
    int status = EXIT_OK;
    std::string_view text;
    for (auto next = inputs.next(text); next == InputLines::Next::LINE || next == InputLines::Next::TOO_LONG;
         next = inputs.next(text)) {
        if (next == InputLines::Next::TOO_LONG) {
            reportTooLong(streams.err, inputs, options.maxLineLength);
            status = EXIT_BAD_INPUT;
        } else if (convert(text, inputs, out) != EXIT_OK) {
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
    converter.convert(block.texts(), converted);
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
        return reportStreamFailure(err, "write standard output", out.error());
    }
    if (readError != 0) {
        return reportStreamFailure(err, "read standard input", readError);
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
    std::vector<char> field(FIELD_ROOM);
    std::vector<char> hexField(2 * FIELD_ROOM);
    const auto width = static_cast<std::size_t>(spec.width);
    return runEach(values, options, streams, [&](std::string_view text, const InputLines& inputs, BufferedOutput& out) {
        double value = 0;
        if (!parseValue(text, value)) {
            reportLine(streams.err, inputs, "not a number or missing value", text);
            return EXIT_BAD_INPUT;
        }
        spec.entry->function(field.data(), spec.width, spec.decimals, value);
        if (options.hex) {
            encodeHex(field.data(), width, hexField.data());
            out.line(hexField.data(), 2 * width);
        } else {
            out.line(field.data(), width);
        }
        return EXIT_OK;
    });
}

int runInformat(const ResolvedSpec<InformatEntry>& spec, std::span<const std::string_view> texts,
                const RunOptions& options, const Streams& streams) {
    std::string bytes;
    std::vector<char> field;
    return runEach(texts, options, streams, [&](std::string_view text, const InputLines& inputs, BufferedOutput& out) {
        if (options.hex) {
            if (!decodeHex(text, bytes)) {
                reportLine(streams.err, inputs, "not hex pairs", text);
                return EXIT_BAD_INPUT;
            }
            text = bytes;
        }
        // The field is the first `width` bytes of the text, or the whole text when it is shorter or when
        // the spec gave no width; copied, so that the informat sees nothing beyond it. The line limit
        // keeps the text's length within an int.
        const std::size_t fieldLength =
            spec.widthGiven && text.size() > static_cast<std::size_t>(spec.width) ? spec.width : text.size();
        field.assign(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(fieldLength));
        double result = kivo::lum_numeric::MISSING;
        const int accepted = spec.entry->function(field.data(), static_cast<int>(fieldLength),
                                                  static_cast<int>(text.size()), spec.decimals, &result);
        if (accepted == 0) {
            out.line("invalid", 7);
            return EXIT_BAD_INPUT;
        }
        char printed[32];
        out.line(printed, printValue(result, printed));
        return EXIT_OK;
    });
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
