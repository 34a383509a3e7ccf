#pragma once

#include <string>
#include <string_view>

#include "kivodt/Spec.h"
#include "kivodt/ValueKinds.h"

namespace kivodt {

// Why a text gave no output of its own.
enum class FieldProblem { NONE, NOT_HEX, NOT_A_VALUE, REJECTED };

// Reads text with an informat. Its field is the first `width` bytes of the text, or the whole text when
// it is shorter or when the spec gave no width, copied into field so that the informat sees nothing
// beyond it; the text's length must fit an int. False when the informat rejects the field.
bool readWithInformat(const ResolvedSpec<InformatEntry>& spec, std::string_view text, std::string& field,
                      double& result);

// Working room for converting one text at a time, reused from one text to the next.
struct FieldScratch {
    std::string decoded;  // the bytes of a text given as hex pairs
    std::string field;    // the informat's field
};

// One way of turning a text into an output field: a value written with a format, a text read with an
// informat, or both (convert). It changes nothing when it converts, so threads may share one.
class FieldConverter {
public:
    static FieldConverter formatting(const ResolvedSpec<FormatEntry>& format, bool hexOutput);
    static FieldConverter reading(const ResolvedSpec<InformatEntry>& informat, bool hexInput);
    // False, with a one-line reason, when the format cannot show the kind of value the informat reads.
    static bool converting(const ResolvedSpec<InformatEntry>& informat, const ResolvedSpec<FormatEntry>& format,
                           bool hexInput, bool hexOutput, FieldConverter& converter, std::string& error);

    // Appends text's output to out: the format's field (as hex pairs with hexOutput), or, with no format,
    // the value read as kivodt prints it. A text that cannot be used appends a blank field of the
    // format's width (nothing when there is no format) and returns its problem.
    FieldProblem convert(std::string_view text, std::string& out, FieldScratch& scratch) const;

    // A problem in a message's words: "not hex pairs", "not a number or missing value",
    // "not read by ANYDTDTE".
    std::string describe(FieldProblem problem) const;

private:
    FieldProblem read(std::string_view text, FieldScratch& scratch, double& value) const;
    void append(const char* field, std::string& out) const;
    void writeBlank(std::string& out) const;

    ResolvedSpec<InformatEntry> informat_;  // entry nullptr: the texts are values
    ResolvedSpec<FormatEntry> format_;      // entry nullptr: the value read is printed
    KindStep step_ = KindStep::AS_IS;
    bool hexInput_ = false;
    bool hexOutput_ = false;
};

}  // namespace kivodt
