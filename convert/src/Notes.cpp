#include "kivoconvert/Notes.h"

namespace kivoconvert {

namespace {

void appendEscaped(std::string_view text, std::string& quoted) {
    constexpr char HEX[] = "0123456789abcdef";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            quoted += '\\';
            quoted += c;
        } else if (c == '\t') {
            quoted += "\\t";
        } else if (byte >= 0x20 && byte < 0x7F) {
            quoted += c;
        } else {
            quoted += "\\x";
            quoted += HEX[byte >> 4];
            quoted += HEX[byte & 0xF];
        }
    }
}

}  // namespace

std::string quotedForMessage(std::string_view text) {
    std::string quoted = quotedStart(text);
    if (text.size() > SHOWN_TEXT_BYTES) {
        quoted += " (" + std::to_string(text.size()) + " bytes)";
    }
    return quoted;
}

std::string escapedForMessage(std::string_view text) {
    std::string escaped;
    appendEscaped(text.substr(0, SHOWN_TEXT_BYTES), escaped);
    return text.size() > SHOWN_TEXT_BYTES ? escaped + "..." : escaped;
}

std::string quotedStart(std::string_view start) {
    std::string quoted = "\"";
    appendEscaped(start.substr(0, SHOWN_TEXT_BYTES), quoted);
    quoted += '"';
    if (start.size() > SHOWN_TEXT_BYTES) {
        quoted += "...";
    }
    return quoted;
}

std::string joined(std::initializer_list<std::string_view> pieces) {
    std::string text;
    for (const std::string_view piece : pieces) {
        text.append(piece);
    }
    return text;
}

std::string tooLongText(std::size_t limit) { return "longer than " + std::to_string(limit) + " bytes"; }

}  // namespace kivoconvert
