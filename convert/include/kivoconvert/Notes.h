#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace kivoconvert {

// What the engine says of one text it was given: nothing, that it was left out, or why it gave no value
// of its own, or why the value it kept deserves a look. The rules are the engine's reading of what a
// parse or an informat returned; the exported informats are not changed by them.
enum class Note : unsigned char {
    NONE,
    LEFT_OUT,       // empty, or blanks, tabs and NULs only: how a column leaves a value out; not named
    NOT_HEX,        // the text of a binary informat is not hex pairs
    NOT_A_VALUE,    // a format's text is neither a number nor a missing-value notation
    REJECTED,       // the informat returned 0
    PAST_WIDTH,     // bytes past the informat's width that are not blank: the field would drop them
    TOO_LONG,       // longer than an informat can be handed (its length is an int)
    FOUND_NOTHING,  // a free-form informat read nothing, yet the text is no missing-value notation
    DAY_ZERO,       // a free-form date read "." or a bare time as day 0, as it must; the value is kept
    TIME_ZERO,      // a free-form time read a date (which has no time of day) as 0, as it must; kept
};

// Whether a front end names the text in a message (and ends its run with status 1).
constexpr bool isNamed(Note note) noexcept { return note != Note::NONE && note != Note::LEFT_OUT; }

// Whether the text gave a value that the front end shows: a read that found nothing still gives the
// missing value, and ANYDTDTE's day 0 and ANYDTTME's time 0 stay 0.
constexpr bool keepsValue(Note note) noexcept {
    return note == Note::NONE || note == Note::FOUND_NOTHING || note == Note::DAY_ZERO || note == Note::TIME_ZERO;
}

// How many bytes of a text a message shows before it cuts the rest.
inline constexpr std::size_t SHOWN_TEXT_BYTES = 60;

// A text as a message shows it: in double quotes, with every byte that is not printable ASCII written
// as \xHH ("\t" for a tab, \" and \\ for a quote and a backslash): "a\x00b". A longer text shows its
// first SHOWN_TEXT_BYTES bytes in the quotes, then its length: "<first 60 bytes>"... (10485760 bytes).
std::string quotedForMessage(std::string_view text);

// The same without the quotes, for a name that stands alone (a"b and a tab show as a\\"b\\t), cut as above.
std::string escapedForMessage(std::string_view text);

// The same for a text of which only the first bytes are at hand (a line streamed past): "<first 60
// bytes>"... with no length.
std::string quotedStart(std::string_view start);

// The pieces of a message end to end. (Chains of std::string operator+ trip a false -Wrestrict in GCC 12
// at -O3.)
std::string joined(std::initializer_list<std::string_view> pieces);

// A line or argument over the limit, in the words of every front end: "longer than 1048576 bytes".
std::string tooLongText(std::size_t limit);

}  // namespace kivoconvert
