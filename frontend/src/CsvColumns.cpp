#include "kivodt/CsvColumns.h"

#include <algorithm>
#include <charconv>

#include "kivoconvert/Notes.h"

namespace kivodt {

namespace {

bool allDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool parseChoice(std::string_view item, bool header, ColumnChoice& choice, std::string& error) {
    if (item.empty()) {
        error = "--csv: an empty column in the list";
        return false;
    }
    if (!allDigits(item)) {
        choice = {0, item};
        if (!header) {
            error = "--csv: column " + kivoconvert::quotedForMessage(item) + " is a name, and with --no-header there are none";
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

std::string theColumns(std::span<const std::string> names, std::size_t fieldCount) {
    if (names.empty()) {
        return "the first row has " + std::to_string(fieldCount) + (fieldCount == 1 ? " field" : " fields");
    }
    std::string listed = "the columns are";
    for (std::size_t i = 0; i < names.size(); ++i) {
        listed += (i == 0 ? " " : ", ") + std::to_string(i + 1) + " " + kivoconvert::quotedForMessage(names[i]);
    }
    return listed;
}

}  // namespace

bool parseColumnChoices(std::string_view text, bool header, std::vector<ColumnChoice>& choices, std::string& error) {
    choices.clear();
    for (std::size_t start = 0;;) {
        const std::size_t comma = text.find(',', start);
        ColumnChoice choice;
        if (!parseChoice(text.substr(start, comma - start), header, choice, error)) {
            return false;
        }
        choices.push_back(choice);
        if (comma == std::string_view::npos) {
            return true;
        }
        start = comma + 1;
    }
}

bool resolveColumns(std::span<const ColumnChoice> choices, std::span<const std::string> names, std::size_t fieldCount,
                    std::vector<std::size_t>& indexes, std::string& error) {
    indexes.clear();
    for (const ColumnChoice& choice : choices) {
        if (choice.number == 0) {
            const auto found = std::find(names.begin(), names.end(), choice.name);
            if (found == names.end()) {
                error =
                    "no column " + kivoconvert::quotedForMessage(choice.name) + " in the header; " + theColumns(names, fieldCount);
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
