#include "kivodt/CsvFieldText.h"

namespace kivodt {

void appendCsvFieldText(std::string_view field, std::string& out) {
    if (field.empty() || field.front() != '"') {
        out.append(field);
        return;
    }
    bool quoted = true;
    for (std::size_t i = 1; i < field.size(); ++i) {
        const char c = field[i];
        if (quoted && c == '"') {
            const bool doubled = i + 1 < field.size() && field[i + 1] == '"';
            if (doubled) {
                out += '"';
                ++i;
            } else {
                quoted = false;
            }
            continue;
        }
        out += c;
    }
}

void appendAsCsvField(std::string_view text, char delimiter, std::string& out) {
    const char special[] = {delimiter, '"', '\r', '\n'};
    if (text.find_first_of(std::string_view(special, sizeof special)) == std::string_view::npos) {
        out.append(text);
        return;
    }
    out += '"';
    for (const char c : text) {
        if (c == '"') {
            out += '"';
        }
        out += c;
    }
    out += '"';
}

}  // namespace kivodt
