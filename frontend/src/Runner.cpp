#include "kivodt/Runner.h"

#include <cstring>
#include <string>
#include <vector>

#include "kivodt/BufferedOutput.h"
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
    if (!out.flush()) {
        return reportStreamFailure(streams.err, "write standard output", out.error());
    }
    if (inputs.readError() != 0) {
        return reportStreamFailure(streams.err, "read standard input", inputs.readError());
    }
    return status;
}

}  // namespace

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
