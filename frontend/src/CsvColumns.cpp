#include "kivodt/CsvColumns.h"

#include <algorithm>
#include <charconv>

#include "kivoconvert/Notes.h"

namespace kivodt {

namespace {

bool allDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// The columns a list shows in a message: a long header is not echoed whole.
constexpr std::size_t SHOWN_COLUMNS = 20;

bool parseChoice(std::string_view item, bool quoted, bool header, ColumnChoice& choice, std::string& error) {
    if (item.empty() && !quoted) {
        error = "--csv: an empty column in the list";
        return false;
    }
    if (quoted || !allDigits(item)) {
        choice = {0, std::string(item)};
        if (!header) {
            error = "--csv: column " + kivoconvert::quotedForMessage(item) +
                    " is a name, and with --no-header there are none";
        }
        return header;
    }
    const auto [end, status] = std::from_chars(item.data(), item.data() + item.size(), choice.number);
    if (status != std::errc() || choice.number == 0) {
        error = "--csv: columns are numbered from 1, not " + kivoconvert::quotedForMessage(item);
        return false;
    }
    return true;
}

// A name in double quotes at text[pos], as a CSV field writes it; pos is left after its closing quote,
// which must end the item.
bool takeQuotedName(std::string_view text, std::size_t& pos, std::string& name, std::string& error) {
    for (++pos; pos < text.size(); ++pos) {
        if (text[pos] != '"') {
            name += text[pos];
        } else if (pos + 1 < text.size() && text[pos + 1] == '"') {
            name += text[++pos];
        } else if (++pos == text.size() || text[pos] == ',') {
            return true;
        } else {
            break;
        }
    }
    error = "--csv: a quoted name must be the whole of its column in " + kivoconvert::quotedForMessage(text);
    return false;
}

std::string theColumns(std::span<const std::string> names, std::size_t fieldCount) {
    if (names.empty()) {
        return "the first row has " + std::to_string(fieldCount) + (fieldCount == 1 ? " field" : " fields");
    }
    std::string listed = "the columns are";
    for (std::size_t i = 0; i < names.size() && i < SHOWN_COLUMNS; ++i) {
        listed += (i == 0 ? " " : ", ") + std::to_string(i + 1) + " " + kivoconvert::quotedForMessage(names[i]);
    }
    if (names.size() > SHOWN_COLUMNS) {
        listed += " and " + std::to_string(names.size() - SHOWN_COLUMNS) + " more";
    }
    return listed;
}

}  // namespace

bool parseColumnChoices(std::string_view text, bool header, std::vector<ColumnChoice>& choices, std::string& error) {
    choices.clear();
    for (std::size_t pos = 0;; ++pos) {  // at an item's start; ++pos steps over the comma after it
        std::string item;
        const bool quoted = pos < text.size() && text[pos] == '"';
        if (quoted && !takeQuotedName(text, pos, item, error)) {
            return false;
        }
        if (!quoted) {
            const std::size_t comma = std::min(text.find(',', pos), text.size());
            item = text.substr(pos, comma - pos);
            pos = comma;
        }
        if (!parseChoice(item, quoted, header, choices.emplace_back(), error)) {
            return false;
        }
        if (pos == text.size()) {
            return true;
        }
    }
}

bool resolveColumns(std::span<const ColumnChoice> choices, std::span<const std::string> names, std::size_t fieldCount,
                    std::vector<std::size_t>& indexes, std::string& error) {
    indexes.clear();
    for (const ColumnChoice& choice : choices) {
        if (choice.number == 0) {
            const auto found = std::find(names.begin(), names.end(), choice.name);
            if (found == names.end()) {
                error = "no column " + kivoconvert::quotedForMessage(choice.name) + " in the header; " +
                        theColumns(names, fieldCount);
                return false;
            }
            const auto again = std::find(found + 1, names.end(), choice.name);
            if (again != names.end()) {
                error = "column " + kivoconvert::quotedForMessage(choice.name) + " is in the header twice, as " +
                        std::to_string(found - names.begin() + 1) + " and " +
                        std::to_string(again - names.begin() + 1) + "; choose it by number";
                return false;
            }
            indexes.push_back(static_cast<std::size_t>(found - names.begin()));
        } else if (choice.number > fieldCount) {
            error = "no column " + std::to_string(choice.number) + "; " + theColumns(names, fieldCount);
            return false;
        } else {
            indexes.push_back(choice.number - 1);
        }
    }
    std::sort(indexes.begin(), indexes.end());
    indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
    return true;
}

}  // namespace kivodt
