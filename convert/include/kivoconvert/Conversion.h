#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kivoconvert/Catalog.h"
#include "kivoconvert/Fanout.h"
#include "kivoconvert/Notes.h"
#include "kivoconvert/Spec.h"
#include "kivoconvert/ValueKinds.h"

namespace kivoconvert {

class ConvertedBlock;

// Which sides of a conversion are hex pairs rather than the bytes themselves: the texts an informat
// reads, the fields a format writes.
struct HexSides {
    bool input = false;
    bool output = false;
};

// One way of turning texts into outputs, the engine under every front end: values written with a format,
// texts read with an informat, or texts read and then written (convert). It holds no state that a
// conversion changes, so the runs of a block share one.
//
// Each text goes through the same steps, whatever front end gave it:
//   1. empty or blank: left out (Note::LEFT_OUT), no value;
//   2. with no informat, a number or missing-value notation (else NOT_A_VALUE);
//   3. with an informat: hex pairs decoded (else NOT_HEX); the field is the first `width` bytes of the
//      text, or all of it when it is shorter or the spec gave no width, and bytes past the width that
//      are not blank leave the text unread (PAST_WIDTH); the informat gets the field's length and then
//      the text's; a text it rejects gives no value (REJECTED). A free-form informat never rejects: a
//      missing value it stores for a text that is no missing-value notation is named (FOUND_NOTHING),
//      and so are ANYDTDTE's day 0 for "." or a bare time (DAY_ZERO) and ANYDTTME's time 0 for a date
//      (TIME_ZERO); these keep their value;
//   4. the value handed over to the format's kind (a datetime to a date format gives its day);
//   5. the output: the format's field (as hex pairs with hex output), or the value printed as the
//      shortest decimal that reads back to it. A text that gave no value gets the stand-in: a blank field
//      of the format's width, or "invalid" with no format; a left-out text gets nothing.
class Conversion {
public:
    static Conversion formatting(const ResolvedSpec<FormatEntry>& format, HexSides hex);
    static Conversion reading(const ResolvedSpec<InformatEntry>& informat, HexSides hex);
    // False, with a one-line reason, when the format cannot show the kind of value the informat reads.
    static bool converting(const ResolvedSpec<InformatEntry>& informat, const ResolvedSpec<FormatEntry>& format,
                           HexSides hex, Conversion& conversion, std::string& error);

    // Every text of a block through all the steps, spread over the fan-out's runs.
    void convert(std::span<const std::string_view> texts, ConvertedBlock& out, const Fanout& fanout) const;

    // One text through all the steps, its output at `output` (outputSize() bytes of room), its length in
    // `length`: for a front end that writes each output where it goes. `decoded` is room for hex input.
    Note convertText(std::string_view text, char* output, std::size_t& length, std::string& decoded) const;

    // Steps 1 to 4 alone, for front ends that keep values: each text's value (the missing value where
    // it gave none) and note.
    void read(std::span<const std::string_view> texts, std::span<double> values, std::span<Note> notes,
              const Fanout& fanout) const;

    // Step 5 alone, for front ends that hold values: value i's field at fields + i * outputSize().
    void write(std::span<const double> values, char* fields, const Fanout& fanout) const;

    // A named note in a message's words, for the text as the front end was given it: "not read by
    // DATE", "3 bytes past the width 10: give a wider width or none".
    std::string describe(Note note, std::string_view text) const;

    // The most bytes one output takes.
    std::size_t outputSize() const noexcept;
    const ResolvedSpec<InformatEntry>& informat() const noexcept { return informat_; }
    const ResolvedSpec<FormatEntry>& format() const noexcept { return format_; }

private:
    Note convertInline(std::string_view text, char* output, std::size_t& length, std::string& decoded) const;
    Note readText(std::string_view text, double& value, std::string& decoded) const;
    Note readField(std::string_view text, double& value) const;
    Note freeFormNote(std::string_view field, double result) const;
    std::size_t writeOutput(double value, Note note, char* output) const;
    double handedOver(double value) const { return step_ == KindStep::AS_IS ? value : applyKindStep(step_, value); }

    ResolvedSpec<InformatEntry> informat_;  // entry nullptr: the texts are values
    ResolvedSpec<FormatEntry> format_;      // entry nullptr: the values are printed
    KindStep step_ = KindStep::AS_IS;
    HexSides hex_;
};

// What a block gave: one output and one note per text, in order. Kept from block to block, so that a
// stream of blocks reuses its room.
class ConvertedBlock {
public:
    // Bytes past the last output that may be read, so that a writer can copy an output of up to this
    // many bytes in one move of that fixed size.
    static constexpr std::size_t SLOT_SLACK = 32;

    std::size_t size() const noexcept { return notes_.size(); }
    Note note(std::size_t i) const noexcept { return notes_[i]; }
    std::string_view output(std::size_t i) const noexcept { return {slots_.data() + i * slotSize_, lengths_[i]}; }

private:
    friend class Conversion;

    void resize(std::size_t count, std::size_t slotSize);

    std::size_t slotSize_ = 0;
    std::vector<char> slots_;  // output i in [i * slotSize_, i * slotSize_ + lengths_[i])
    std::vector<unsigned char> lengths_;
    std::vector<Note> notes_;
};

}  // namespace kivoconvert
