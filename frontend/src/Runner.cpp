#include "kivodt/Runner.h"

#include <cstring>
#include <string>
#include <vector>

#include "kivodt/Values.h"
#include "kivox/Missing.h"

namespace kivodt {

namespace {

// Output collected in a large buffer and written in big pieces, so that millions of lines stream.
class BufferedOutput {
public:
    explicit BufferedOutput(std::FILE* file) : file_(file) {}
    BufferedOutput(const BufferedOutput&) = delete;
    BufferedOutput& operator=(const BufferedOutput&) = delete;
    ~BufferedOutput() { flush(); }

    void write(const char* bytes, std::size_t size) {
        if (used_ + size > sizeof buffer_) {
            flush();
        }
        if (size > sizeof buffer_) {
            std::fwrite(bytes, 1, size, file_);
            return;
        }
        std::memcpy(buffer_ + used_, bytes, size);
        used_ += size;
    }
    void line(const char* bytes, std::size_t size) {
        write(bytes, size);
        write("\n", 1);
    }
    void flush() {
        if (used_ > 0) {
            std::fwrite(buffer_, 1, used_, file_);
            used_ = 0;
        }
        std::fflush(file_);
    }

private:
    std::FILE* file_;
    std::size_t used_ = 0;
    char buffer_[1 << 16];
};

// Calls handle(line, number) for each argument, or for each line of in (without its "\n" or "\r\n").
template <class Handle>
void forEachInput(std::span<const std::string_view> arguments, std::FILE* in, Handle handle) {
    if (!arguments.empty()) {
        std::size_t number = 0;
        for (std::string_view argument : arguments) {
            handle(argument, ++number);
        }
        return;
    }
    std::vector<char> chunk(1 << 20);
    std::string carry;
    std::size_t number = 0;
    const auto emit = [&](std::string_view line) {
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        handle(line, ++number);
    };
    std::size_t got = 0;
    while ((got = std::fread(chunk.data(), 1, chunk.size(), in)) > 0) {
        std::string_view rest(chunk.data(), got);
        for (std::size_t newline = rest.find('\n'); newline != std::string_view::npos; newline = rest.find('\n')) {
            if (carry.empty()) {
                emit(rest.substr(0, newline));
            } else {
                carry.append(rest.substr(0, newline));
                emit(carry);
                carry.clear();
            }
            rest.remove_prefix(newline + 1);
        }
        carry.append(rest);
    }
    if (!carry.empty()) {
        emit(carry);
    }
}

// Room for the widest field the catalog allows, with a guard either side that no format may touch.
constexpr std::size_t FIELD_ROOM = 1024;

void reportLine(std::FILE* err, std::size_t number, bool fromArguments, const char* what, std::string_view text) {
    std::fprintf(err, "kivodt: %s %zu: %s: %s\n", fromArguments ? "argument" : "line", number, what,
                 quotedForMessage(text).c_str());
}

}  // namespace

int runFormat(const ResolvedSpec<FormatEntry>& spec, std::span<const std::string_view> values, bool hex,
              const Streams& streams) {
    BufferedOutput out(streams.out);
    std::vector<char> field(FIELD_ROOM);
    std::vector<char> hexField(2 * FIELD_ROOM);
    const auto width = static_cast<std::size_t>(spec.width);
    int status = EXIT_OK;
    forEachInput(values, streams.in, [&](std::string_view text, std::size_t number) {
        double value = 0;
        if (!parseValue(text, value)) {
            reportLine(streams.err, number, !values.empty(), "not a number or missing value", text);
            status = EXIT_BAD_INPUT;
            return;
        }
        spec.entry->function(field.data(), spec.width, spec.decimals, value);
        if (hex) {
            encodeHex(field.data(), width, hexField.data());
            out.line(hexField.data(), 2 * width);
        } else {
            out.line(field.data(), width);
        }
    });
    return status;
}

int runInformat(const ResolvedSpec<InformatEntry>& spec, std::span<const std::string_view> texts, bool hex,
                const Streams& streams) {
    BufferedOutput out(streams.out);
    std::string bytes;
    std::vector<char> field;
    int status = EXIT_OK;
    forEachInput(texts, streams.in, [&](std::string_view text, std::size_t number) {
        if (hex) {
            if (!decodeHex(text, bytes)) {
                reportLine(streams.err, number, !texts.empty(), "not hex pairs", text);
                status = EXIT_BAD_INPUT;
                return;
            }
            text = bytes;
        }
        // The field is the first `width` bytes of the text, or the whole text when it is shorter or when
        // the spec gave no width; copied, so that the informat sees nothing beyond it.
        const std::size_t fieldLength =
            spec.widthGiven && text.size() > static_cast<std::size_t>(spec.width) ? spec.width : text.size();
        field.assign(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(fieldLength));
        double result = kivo::lum_numeric::MISSING;
        const int accepted = spec.entry->function(field.data(), static_cast<int>(fieldLength),
                                                  static_cast<int>(text.size()), spec.decimals, &result);
        if (accepted == 0) {
            out.line("invalid", 7);
            status = EXIT_BAD_INPUT;
            return;
        }
        char printed[32];
        out.line(printed, printValue(result, printed));
    });
    return status;
}

void printCatalog(std::FILE* out) {
    const auto row = [out](const char* kind, std::string_view name, const Limits& limits) {
        std::fprintf(out, "%-9s %-10.*s widths %2d-%-3d default %2d  decimals %d-%d%s\n", kind,
                     static_cast<int>(name.empty() ? 3 : name.size()), name.empty() ? "w.d" : name.data(),
                     limits.minWidth, limits.maxWidth, limits.defaultWidth, limits.minDecimals, limits.maxDecimals,
                     limits.decimalsBelowWidth ? " (below the width)" : "");
    };
    for (const FormatEntry& entry : formatCatalog()) {
        row("format", entry.name, entry.limits);
    }
    for (const InformatEntry& entry : informatCatalog()) {
        row("informat", entry.name, entry.limits);
    }
}

}  // namespace kivodt
