#include "kivoconvert/Spec.h"

#include <algorithm>
#include <vector>

#include "kivoconvert/Notes.h"

namespace kivoconvert {

namespace {

constexpr int LARGEST_NUMBER = 999;

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// Digits at text[pos...] as a number; false when there are none or too many.
bool readNumber(std::string_view text, std::size_t& pos, int& number) {
    const std::size_t start = pos;
    number = 0;
    while (pos < text.size() && isDigit(text[pos])) {
        number = number * 10 + (text[pos] - '0');
        if (number > LARGEST_NUMBER) {
            return false;
        }
        ++pos;
    }
    return pos > start;
}

std::size_t editDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) {
        row[j] = j;
    }
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t above = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] == b[j - 1] ? 0 : 1)});
            diagonal = above;
        }
    }
    return row[b.size()];
}

std::string rangeText(int low, int high) { return joined({std::to_string(low), "-", std::to_string(high)}); }

// A spec's messages show it as it was typed: "DATE9.2", never a form the user did not write.
template <class Entry>
bool checkLimits(const Entry& entry, ResolvedSpec<Entry>& resolved, const SpecText& spec, std::string_view text,
                 std::string& error) {
    const Limits& limits = entry.limits;
    const std::string_view name = shownName(entry.name);
    resolved.entry = &entry;
    resolved.widthGiven = spec.hasWidth;
    resolved.width = spec.hasWidth ? spec.width : limits.defaultWidth;
    resolved.decimals = spec.decimals;
    if (resolved.width < limits.minWidth || resolved.width > limits.maxWidth) {
        error = joined({quotedForMessage(text), ": width ", std::to_string(resolved.width), " is outside the range of ",
                      name, ": widths ", rangeText(limits.minWidth, limits.maxWidth), " (default ",
                      std::to_string(limits.defaultWidth), ")"});
        return false;
    }
    const int largest = maxDecimals(limits, resolved.width);
    if (resolved.decimals < 0 || resolved.decimals > largest) {
        error = joined({quotedForMessage(text), ": decimals ", std::to_string(resolved.decimals),
                      " are outside the range of ", name, " at width ", std::to_string(resolved.width), ": decimals ",
                      rangeText(0, largest)});
        return false;
    }
    return true;
}

template <class Entry>
bool resolve(std::string_view text, std::span<const Entry> catalog, const char* kind, ResolvedSpec<Entry>& resolved,
             std::string& error) {
    SpecText spec;
    if (!parseSpecText(text, spec, error)) {
        return false;
    }
    std::vector<std::string_view> names;
    for (const Entry& entry : catalog) {
        if (entry.name == spec.name) {
            return checkLimits(entry, resolved, spec, text, error);
        }
        names.push_back(entry.name);
    }
    error = joined({"unknown ", kind, " ", quotedForMessage(text), didYouMean(names, spec.name)});
    return false;
}

}  // namespace

std::string didYouMean(std::span<const std::string_view> names, std::string_view typed) {
    std::vector<std::pair<std::size_t, std::string_view>> close;
    for (const std::string_view name : names) {
        const std::size_t distance = editDistance(typed, name);
        const bool prefix = !typed.empty() && name.starts_with(typed);
        if (!name.empty() && (distance <= 2 || prefix)) {
            close.emplace_back(prefix ? std::min<std::size_t>(distance, 1) : distance, name);
        }
    }
    std::stable_sort(close.begin(), close.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::string text;
    for (std::size_t i = 0; i < close.size() && i < 4; ++i) {
        text.append(i == 0 ? "; did you mean " : ", ").append(close[i].second);
    }
    return text.empty() ? text : text + "?";
}

bool parseSpecText(std::string_view text, SpecText& spec, std::string& error) {
    spec = SpecText{};
    std::size_t pos = 0;
    while (pos < text.size() && isLetter(text[pos])) {
        spec.name += upper(text[pos++]);
    }
    if (pos < text.size() && isDigit(text[pos])) {
        spec.hasWidth = readNumber(text, pos, spec.width);
        if (!spec.hasWidth) {
            error = joined({"width too large in ", quotedForMessage(text)});
            return false;
        }
    }
    if (pos < text.size() && text[pos] == '.') {
        ++pos;
        if (pos < text.size()) {
            spec.hasDecimals = readNumber(text, pos, spec.decimals);
            if (!spec.hasDecimals) {
                error = joined({"bad decimals in ", quotedForMessage(text)});
                return false;
            }
        }
    }
    if (pos != text.size() || (spec.name.empty() && !spec.hasWidth)) {
        error = joined({quotedForMessage(text), " is not a format spec (NAMEw.d, e.g. DATE9.)"});
        return false;
    }
    return true;
}

bool resolveFormat(std::string_view text, ResolvedSpec<FormatEntry>& resolved, std::string& error) {
    return resolve(text, formatCatalog(), "format", resolved, error);
}

bool resolveInformat(std::string_view text, ResolvedSpec<InformatEntry>& resolved, std::string& error) {
    return resolve(text, informatCatalog(), "informat", resolved, error);
}

}  // namespace kivoconvert
