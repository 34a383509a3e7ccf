#include "kivodt/Runner.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

#include "kivo/AnydtInformats.h"
#include "kivoconvert/Catalog.h"
#include "kivoconvert/Notes.h"

namespace kivodt {

namespace {

using kivoconvert::Conversion;
using kivoconvert::ConvertedBlock;
using kivoconvert::Note;

int reportStreamFailure(std::FILE* err, const char* what, int error) {
    std::fprintf(err, "kivodt: %s %s\n", what, std::strerror(error));
    return EXIT_STREAM_FAILED;
}

// Writes a block's lines in order, and its messages once the block's lines are out, so that both
// streams get the same bytes at the same points whatever the number of threads that converted it.
class LineWriter {
public:
    LineWriter(const Conversion& conversion, const RunOptions& options, const char* place, BufferedOutput& out,
               std::FILE* err)
        : conversion_(conversion), options_(options), place_(place), out_(out), err_(err) {}

    int status() const noexcept { return status_; }

    void write(std::span<const std::string_view> texts, std::size_t firstNumber, const ConvertedBlock& converted) {
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const Note note = converted.note(i);
            if (note == Note::NONE) {
                out_.line(converted.output(i));
                continue;
            }
            if (kivoconvert::isNamed(note)) {
                name(firstNumber + i, conversion_.describe(note, texts[i]),
                     kivoconvert::quotedForMessage(texts[i]) + hint_.after(conversion_, note, texts[i]));
            }
            const bool asItCame = note == Note::LEFT_OUT || (options_.keep && !kivoconvert::keepsValue(note));
            out_.line(asItCame ? texts[i] : converted.output(i));
        }
        flushMessages();
    }

    void tooLong(std::size_t number, std::size_t limit, std::string_view start) {
        name(number, kivoconvert::tooLongText(limit), kivoconvert::quotedStart(start));
        flushMessages();
    }

private:
    void name(std::size_t number, const std::string& what, const std::string& text) {
        messages_.append("kivodt: ").append(place_).append(" ").append(std::to_string(number)).append(": ");
        messages_.append(what).append(": ").append(text).append("\n");
        status_ = EXIT_BAD_INPUT;
    }

    void flushMessages() {
        if (!messages_.empty()) {
            std::fwrite(messages_.data(), 1, messages_.size(), err_);
            messages_.clear();
        }
    }

    const Conversion& conversion_;
    const RunOptions& options_;
    const char* place_;
    BufferedOutput& out_;
    std::FILE* err_;
    std::string messages_;
    DateTextHint hint_;
    int status_ = EXIT_OK;
};

}  // namespace

std::string DateTextHint::after(const Conversion& conversion, Note note, std::string_view text) {
    if (given_ || note != Note::NOT_A_VALUE || conversion.informat().entry != nullptr) {
        return "";
    }
    double value = 0;
    kivo::AnydtType type = kivo::ANYDT_MISSING;
    const int width = static_cast<int>(std::min<std::size_t>(text.size(), kivoconvert::MAX_FIELD));
    if (!kivo::anydtInformats(text.data(), width, width, 0, value, type) || type == kivo::ANYDT_MISSING) {
        return "";
    }
    given_ = true;
    const kivoconvert::ResolvedSpec<kivoconvert::FormatEntry>& format = conversion.format();
    return "; to read dates, use convert or informat: kivodt convert ANYDTDTE " + std::string(format.entry->name) +
           std::to_string(format.width) + ".";
}

int runLines(const Conversion& conversion, LineReader& reader, const RunOptions& options,
             const OutputStreams& streams) {
    BufferedOutput out(streams.out);
    LineWriter writer(conversion, options, reader.fromArguments() ? "argument" : "line", out, streams.err);
    const kivoconvert::Fanout fanout(options.threads, nullptr, options.elementsPerRun);
    ConvertedBlock converted;
    for (LineReader::Next next = reader.next(); !out.failed(); next = reader.next()) {
        if (next == LineReader::Next::BLOCK) {
            conversion.convert(reader.block(), converted, fanout);
            writer.write(reader.block(), reader.firstNumber(), converted);
        } else if (next == LineReader::Next::TOO_LONG) {
            writer.tooLong(reader.tooLongNumber(), reader.maxLine(), reader.tooLongStart());
        } else {
            break;
        }
    }
    return endOfRun(out, reader.readError(), writer.status(), streams.err);
}

int endOfRun(BufferedOutput& out, int readError, int status, std::FILE* err) {
    if (!out.flush()) {
        return reportStreamFailure(err, "cannot write standard output:", out.error());
    }
    if (readError != 0) {
        return reportStreamFailure(err, "cannot read standard input:", readError);
    }
    return status;
}

void printCatalog(std::FILE* out) {
    using kivoconvert::Limits;
    const auto row = [out](const char* kind, std::string_view name, const Limits& limits) {
        const bool belowWidth = limits.decimals == kivoconvert::Decimals::MISSING_POSITION ||
                                limits.decimals == kivoconvert::Decimals::LAYOUT;
        std::fprintf(out, "%-9s %-10.*s widths %2d-%-3d default %2d  decimals 0-%d%s\n", kind,
                     static_cast<int>(name.empty() ? 3 : name.size()), name.empty() ? "w.d" : name.data(),
                     limits.minWidth, limits.maxWidth, limits.defaultWidth,
                     kivoconvert::maxDecimals(limits, kivoconvert::MAX_FIELD), belowWidth ? " (below the width)" : "");
    };
    for (const kivoconvert::FormatEntry& entry : kivoconvert::formatCatalog()) {
        row("format", entry.name, entry.limits);
    }
    for (const kivoconvert::InformatEntry& entry : kivoconvert::informatCatalog()) {
        row("informat", entry.name, entry.limits);
    }
}

}  // namespace kivodt
