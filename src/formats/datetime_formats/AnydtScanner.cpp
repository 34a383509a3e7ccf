#include <array>
#include <string_view>

#include "formats/datetime_formats/AnydtParseInfo.h"
#include "kivo/AnydtInformats.h"
#include "kivox/CharTables.h"

namespace kivo::anydt {

namespace {

// The separator characters, searched as a byte range rather than through a table filled at load time,
// so that the scanner depends on nothing but its own text.
constexpr std::string_view SEPARATOR_CHARACTERS = " !#$%&()*+-./:;<=>?[\\]^_{|}~";

constexpr std::array<bool, 256> makeListedTable() {
    std::array<bool, 256> table{};
    for (const char c : SEPARATOR_CHARACTERS) {
        table[static_cast<unsigned char>(c)] = true;
    }
    return table;
}
constexpr std::array<bool, 256> LISTED = makeListedTable();

constexpr std::string_view MONTH_NAMES[12] = {"JANUARY", "FEBRUARY", "MARCH",     "APRIL",   "MAY",      "JUNE",
                                              "JULY",    "AUGUST",   "SEPTEMBER", "OCTOBER", "NOVEMBER", "DECEMBER"};

// 922337203685477580: above it, one more digit overflows a signed 64-bit value.
constexpr std::int64_t OVERFLOW_LIMIT = 922337203685477580LL;

inline unsigned char byteAt(const char* p) noexcept { return static_cast<unsigned char>(*p); }
inline bool isBlankOrTab(char c) noexcept { return c == ' ' || c == '\t'; }
inline bool isAlnum(const char* p) noexcept {
    return (sbcs::detail::ctypeTable_[byteAt(p)] & sbcs::CTYPE_ALNUM) != 0;
}
inline bool isDigit(const char* p) noexcept {
    return (sbcs::detail::ctypeTable_[byteAt(p)] & sbcs::CTYPE_DIGIT) != 0;
}
inline char upper(char c) noexcept { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// "AM", "PM", "A" or "P" (any case) making up the whole rest of the field: the matching flag, else 0.
std::uint32_t amPmEnding(const char* p, const char* end) noexcept {
    const std::ptrdiff_t left = end - p;
    if (left == 2 && upper(p[1]) != 'M') {
        return 0;
    }
    if (left != 1 && left != 2) {
        return 0;
    }
    switch (upper(*p)) {
        case 'A':
            return ST_AM;
        case 'P':
            return ST_PM;
        default:
            return 0;
    }
}

// The run in front of value slot k; p is left at the next value or at the end. False when the field
// ended inside the leading blanks (the run then has code ST_NONE).
bool scanSeparator(const char*& p, const char* end, ParseInfo& pi, int k) noexcept {
    std::uint32_t& code = pi.sepType[k];
    // One blank alone makes a blank separator; a second blank takes that back, because by then the
    // code is no longer 0. Tabs never make one.
    bool blankOnly = false;
    while (p < end && isBlankOrTab(*p)) {
        if (*p == ' ') {
            blankOnly = code == ST_NONE;
        }
        code |= ST_BLANK_BEFORE;
        ++p;
    }
    if (p == end) {
        code = ST_NONE;
        pi.sepLength[k] = static_cast<std::int32_t>(p - pi.sepStart[k]);
        return false;
    }
    if (!isAlnum(p)) {
        const unsigned char c = byteAt(p);
        code = code | c | ST_PUNCT;
        if (LISTED[c]) {
            code |= c | ST_LISTED | ST_PUNCT;
        }
        ++p;
        for (; p < end && isBlankOrTab(*p); ++p) {
            code |= ST_BLANK_AFTER;
        }
        if (p < end && !isAlnum(p)) {
            code = ST_MULTI;
            while (p < end && !isAlnum(p)) {
                ++p;
            }
        }
    }
    if (p < end) {
        if (const std::uint32_t ending = amPmEnding(p, end); ending != 0) {
            code |= ending;
            p = end;
        } else if (*p == 'T' || *p == 't') {
            // The joint of an ISO date and time counts as a blank.
            code = ST_BLANK_SEP;
            ++p;
        } else if (blankOnly) {
            code = ST_BLANK_SEP;
        }
    }
    pi.sepLength[k] = static_cast<std::int32_t>(p - pi.sepStart[k]);
    return p < end;
}

bool scanDigits(const char*& p, const char* end, std::int64_t& value) noexcept {
    std::int64_t v = 0;
    for (; p < end && isDigit(p); ++p) {
        const int digit = CharRepresentation::ASCII_ALPHANUMERIC_TABLE[byteAt(p)];
        if (v > OVERFLOW_LIMIT || (v == OVERFLOW_LIMIT && digit > 7)) {
            return false;
        }
        v = v * 10 + digit;
    }
    value = v;
    return true;
}

// A month name: its three-letter abbreviation, then as many further letters of the full name as match.
bool scanMonthName(const char*& p, const char* end, std::int64_t& month) noexcept {
    if (end - p < 3) {
        return false;
    }
    for (int m = 0; m < 12; ++m) {
        const std::string_view name = MONTH_NAMES[m];
        if (upper(p[0]) != name[0] || upper(p[1]) != name[1] || upper(p[2]) != name[2]) {
            continue;
        }
        p += 3;
        for (std::size_t i = 3; i < name.size() && p < end && upper(*p) == name[i]; ++i) {
            ++p;
        }
        month = m + 1;
        return true;
    }
    return false;
}

}  // namespace

bool scanField(const char* begin, const char* end, ParseInfo& pi, int& monthIndex) noexcept {
    monthIndex = -1;
    pi.valCount = 0;
    const char* p = begin;
    for (int k = 0;; ++k) {
        pi.sepStart[k] = p;
        pi.sepType[k] = ST_NONE;
        if (p == end) {
            pi.sepLength[k] = 0;
            return true;
        }
        if (!scanSeparator(p, end, pi, k)) {
            return true;
        }
        if (k == MAX_VALUES) {
            return false;
        }
        pi.valStart[k] = p;
        if (isDigit(p)) {
            if (!scanDigits(p, end, pi.value[k])) {
                return false;
            }
        } else {
            // Letters are month names; anything else here (after a "T" joint) is no value at all.
            if (monthIndex >= 0 || !scanMonthName(p, end, pi.value[k])) {
                return false;
            }
            monthIndex = k;
        }
        pi.valLength[k] = static_cast<std::int32_t>(p - pi.valStart[k]);
        pi.valCount = k + 1;
    }
}

}  // namespace kivo::anydt

namespace kivo {

bool isDatetimeSeparator(const char* begin, const char* end) noexcept {
    const auto skipBlanks = [&begin, end] {
        while (begin < end && (*begin == ' ' || *begin == '\t')) {
            ++begin;
        }
        return begin == end;
    };
    if (skipBlanks()) {
        return true;
    }
    if ((sbcs::detail::ctypeTable_[static_cast<unsigned char>(*begin)] & sbcs::CTYPE_ALNUM) != 0) {
        return false;
    }
    ++begin;
    if (skipBlanks()) {
        return true;
    }
    if (*begin == '-') {
        ++begin;
    }
    return begin == end;
}

}  // namespace kivo
