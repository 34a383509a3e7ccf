#include "kivodt/Reference.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <vector>

#include "kivoconvert/Conversion.h"
#include "kivoconvert/Values.h"
#include "kivox/Missing.h"
#include "kivox/OptionSettings.h"
#include "kivox/Services.h"

namespace kivodt {

namespace {

using kivoconvert::Conversion;
using kivoconvert::Decimals;
using kivoconvert::FormatEntry;
using kivoconvert::InformatEntry;
using kivoconvert::Limits;
using kivoconvert::ValueKind;

// The values a format of each kind is shown with: 17 March 2021, its 12:34:56.789, that time alone, a
// number; and the missing value for every kind.
struct Example {
    const char* label;
    double value;
};
constexpr double DAY = 22356;
constexpr double TIME = 45296.789;
constexpr Example DAY_EXAMPLE{"22356 (17 March 2021)", DAY};
constexpr Example DATETIME_EXAMPLE{"1931574896.789 (17 March 2021 12:34:56.789)", DAY * 86400 + TIME};
constexpr Example TIME_EXAMPLE{"45296.789 (12:34:56.789)", TIME};
constexpr Example NUMBER_EXAMPLE{"-1234.5678", -1234.5678};
constexpr Example SMALL_NUMBER_EXAMPLE{"0.012345", 0.012345};

std::vector<Example> examplesOf(ValueKind kind) {
    const Example missing{". (missing)", kivo::lum_numeric::MISSING};
    switch (kind) {
        case ValueKind::DAY:
            return {DAY_EXAMPLE, missing};
        case ValueKind::DATETIME:
            return {DATETIME_EXAMPLE, missing};
        case ValueKind::TIME:
            return {TIME_EXAMPLE, missing};
        case ValueKind::NUMBER:
            break;
    }
    return {NUMBER_EXAMPLE, SMALL_NUMBER_EXAMPLE, missing};
}

// The format an informat's value is shown with beside it.
const char* shownWith(ValueKind kind) {
    constexpr const char* SPECS[] = {"DATE9.", "DATETIME22.2", "TIME11.2", nullptr};
    return SPECS[static_cast<int>(kind)];
}

// A catalog line as a sentence: "day, month and year" becomes "Day, month and year."
std::string sentence(std::string_view line) {
    std::string text(line);
    if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') {
        text[0] = static_cast<char>(text[0] - 'a' + 'A');
    }
    return text + ".";
}

// A field in a table cell: in code, between « and » so that its blanks show, with "|" escaped.
std::string cell(std::string_view field) {
    std::string text = "`«";
    for (const char c : field) {
        text += c == '|' ? "\\|" : std::string(1, c);
    }
    return text + "»`";
}

std::string decimalsText(const Limits& limits) {
    switch (limits.decimals) {
        case Decimals::NOT_USED:
            return "no decimals";
        case Decimals::MISSING_POSITION:
            return "decimals below the width move the missing character left";
        case Decimals::LAYOUT:
            return "decimals below the width: digits after the point";
        case Decimals::SIGNIFICANT:
            return "decimals 0-" + std::to_string(kivoconvert::MAX_FIELD - 1) + ": the significant decimals wanted";
        case Decimals::PASSED_THROUGH:
            break;
    }
    return "decimals handed to the informat, which does not use them";
}

std::string summary(ValueKind kind, const Limits& limits, const char* verb) {
    return std::string(verb) + " " + kivoconvert::kindName(kind) + " · widths " + std::to_string(limits.minWidth) +
           "-" + std::to_string(limits.maxWidth) + ", default " + std::to_string(limits.defaultWidth) + " · " +
           decimalsText(limits);
}

// The output of one value or text through a conversion, and its note.
std::pair<std::string, kivoconvert::Note> throughConversion(const Conversion& conversion, std::string_view text) {
    kivoconvert::ConvertedBlock out;
    conversion.convert({&text, 1}, out, kivoconvert::Fanout(1));
    return {std::string(out.output(0)), out.note(0)};
}

std::string field(const FormatEntry& entry, int width, double value) {
    const Conversion writing = Conversion::formatting({&entry, width, 0, true}, {.output = entry.writesBytes});
    std::string bytes(writing.outputSize(), ' ');
    writing.write({&value, 1}, bytes.data(), kivoconvert::Fanout(1));
    return bytes;
}

void printFormat(std::FILE* out, const FormatEntry& entry) {
    const Limits& limits = entry.limits;
    const std::string name(kivoconvert::shownName(entry.name));
    const std::set<int> widths = {limits.minWidth, limits.defaultWidth, limits.maxWidth};
    std::fprintf(out, "### %s\n\n%s%s\n\n%s\n\n| value |", name.c_str(), sentence(entry.description).c_str(),
                 entry.writesBytes ? " Shown here as hex pairs (`--hex`)." : "",
                 summary(entry.kind, limits, "Shows").c_str());
    for (const int width : widths) {
        std::fprintf(out, " `%s%d.` |", entry.name.empty() ? "" : name.c_str(), width);
    }
    std::fputs("\n|---|", out);
    for (std::size_t i = 0; i < widths.size(); ++i) {
        std::fputs("---|", out);
    }
    for (const Example& example : examplesOf(entry.kind)) {
        std::fprintf(out, "\n| %s |", example.label);
        for (const int width : widths) {
            std::fprintf(out, " %s |", cell(field(entry, width, example.value)).c_str());
        }
    }
    std::fputs("\n\n", out);
}

bool printInformat(std::FILE* out, const InformatEntry& entry, std::string& error) {
    const Limits& limits = entry.limits;
    const bool hex = entry.readsBytes();
    std::fprintf(out, "### %.*s\n\n%s\n\n%s\n\n| text%s | value |", static_cast<int>(entry.name.size()),
                 entry.name.data(), sentence(entry.description).c_str(), summary(entry.kind, limits, "Reads").c_str(),
                 hex ? " (hex pairs)" : "");
    const char* shown = shownWith(entry.kind);
    std::fprintf(out, "%s\n|---|---|%s", shown != nullptr ? (std::string(" as `") + shown + "` |").c_str() : "",
                 shown != nullptr ? "---|" : "");
    const Conversion reading = Conversion::reading({&entry, limits.defaultWidth, 0, false}, {.input = hex});
    kivoconvert::ResolvedSpec<FormatEntry> format;
    if (shown != nullptr) {
        kivoconvert::resolveFormat(shown, format, error);
    }
    std::string_view texts = entry.examples;
    while (!texts.empty()) {
        const std::string_view text = texts.substr(0, texts.find('|'));
        texts.remove_prefix(std::min(texts.size(), text.size() + 1));
        const auto [value, note] = throughConversion(reading, text);
        if (note != kivoconvert::Note::NONE) {
            error = "the example \"" + std::string(text) + "\" of " + std::string(entry.name) +
                    " is not read: " + reading.describe(note, text);
            return false;
        }
        std::fprintf(out, "\n| `%.*s` | %s |", static_cast<int>(text.size()), text.data(), value.c_str());
        if (shown != nullptr) {
            std::fprintf(out, " %s |",
                         cell(throughConversion(Conversion::formatting(format, {}), value).first).c_str());
        }
    }
    std::fputs("\n\n", out);
    return true;
}

}  // namespace

bool printReference(std::FILE* out, std::string& error) {
    kivo::ServiceLocator fixed;
    kivo::settings::TODAY.apply(fixed, "2021-03-17");
    kivo::ServiceLocator* const previous = kivo::ServiceLocator::setCurrent(&fixed);
    std::fputs(
        "# Formats and informats\n\n"
        "Made by `kivodt list --markdown` from the catalog, running every example (with today taken as 17 March "
        "2021); do not edit it by hand. A field is shown between « and », blanks included.\n\n"
        "## Formats\n\n",
        out);
    for (const FormatEntry& entry : kivoconvert::formatCatalog()) {
        printFormat(out, entry);
    }
    std::fputs("## Informats\n\n", out);
    bool read = true;
    for (const InformatEntry& entry : kivoconvert::informatCatalog()) {
        read = read && printInformat(out, entry, error);
    }
    kivo::ServiceLocator::setCurrent(previous);
    return read;
}

}  // namespace kivodt
