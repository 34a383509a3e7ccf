#include "kivodt/Runner.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

#include "kivoconvert/Catalog.h"
#include "kivoconvert/Notes.h"
#include "kivoconvert/Values.h"

namespace kivodt {

namespace {

using kivoconvert::Conversion;
using kivoconvert::Note;

int reportStreamFailure(std::FILE* err, const char* what, int error) {
    std::fprintf(err, "kivodt: %s %s\n", what, std::strerror(error));
    return EXIT_STREAM_FAILED;
}

}  // namespace

bool DateTextHint::fits(const Conversion& conversion, Note note, std::string_view text) {
    if (note != Note::NOT_A_VALUE || conversion.informat().entry != nullptr) {
        return false;
    }
    kivo::AnydtType type = kivo::ANYDT_MISSING;
    return kivoconvert::freeFormType(text.substr(0, kivoconvert::MAX_FIELD), type) && type != kivo::ANYDT_MISSING;
}

std::string DateTextHint::text(const Conversion& conversion) {
    const kivoconvert::ResolvedSpec<kivoconvert::FormatEntry>& format = conversion.format();
    return "; to read dates, use convert or informat: kivodt convert ANYDTDTE " + std::string(format.entry->name) +
           std::to_string(format.width) + ".";
}

std::string DateTextHint::after(const Conversion& conversion, Note note, std::string_view text) {
    if (given_ || !fits(conversion, note, text)) {
        return "";
    }
    given_ = true;
    return DateTextHint::text(conversion);
}

void appendMessage(std::string& messages, const char* place, std::size_t number, std::string_view what,
                   std::string_view text) {
    messages.append("kivodt: ").append(place).append(" ").append(std::to_string(number)).append(": ");
    messages.append(what).append(": ").append(text);
}

std::string tooLongMessage(const char* place, std::size_t number, std::size_t maxLine, std::string_view start) {
    std::string message;
    appendMessage(message, place, number, kivoconvert::tooLongText(maxLine),
                  kivoconvert::quotedStart(shownStart(start, maxLine)));
    return message + "\n";
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
    const auto row = [out](const char* kind, std::string_view entryName, const Limits& limits) {
        const std::string_view name = kivoconvert::shownName(entryName);
        std::fprintf(out, "%-9s %-10.*s widths %2d-%-3d default %2d  decimals 0-%d%s\n", kind,
                     static_cast<int>(name.size()), name.data(),
                     limits.minWidth, limits.maxWidth, limits.defaultWidth,
                     kivoconvert::maxDecimals(limits, kivoconvert::MAX_FIELD), kivoconvert::decimalsBelowWidth(limits) ? " (below the width)" : "");
    };
    for (const kivoconvert::FormatEntry& entry : kivoconvert::formatCatalog()) {
        row("format", entry.name, entry.limits);
    }
    for (const kivoconvert::InformatEntry& entry : kivoconvert::informatCatalog()) {
        row("informat", entry.name, entry.limits);
    }
}

}  // namespace kivodt
