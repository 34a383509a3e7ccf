#pragma once

#include <span>
#include <string>
#include <string_view>

#include "kivodt/Spec.h"
#include "kivodt/ValueKinds.h"

namespace kivodt {

class ConvertedFields;

// Why a text gave no output of its own.
enum class FieldProblem { NONE, NOT_HEX, NOT_A_VALUE, REJECTED };

// One way of turning texts into output fields: values written with a format, texts read with an
// informat, or both (convert). It changes nothing when it converts, so threads may share one.
class FieldConverter {
public:
    // False, with a one-line reason, for a format that writes bytes without hexOutput.
    static bool formatting(const ResolvedSpec<FormatEntry>& format, bool hexOutput, FieldConverter& converter,
                           std::string& error);
    static FieldConverter reading(const ResolvedSpec<InformatEntry>& informat, bool hexInput);
    // False, with a one-line reason, when the format cannot show the kind of value the informat reads, or
    // writes bytes without hexOutput.
    static bool converting(const ResolvedSpec<InformatEntry>& informat, const ResolvedSpec<FormatEntry>& format,
                           bool hexInput, bool hexOutput, FieldConverter& converter, std::string& error);

    // Converts the whole array into out, a step at a time over all of it: read the texts (as numbers or
    // with the informat), hand the values over to the format's kind, write the fields, each step through
    // the front end's batch conversions on up to `threads` threads. A text's output is the format's field
    // (as hex pairs with hexOutput), or with no format the value read as kivodt prints it; a text that
    // cannot be used gets a blank field of the format's width (nothing when there is no format) and its
    // problem.
    void convert(std::span<const std::string_view> texts, ConvertedFields& out, int threads = 1) const;

    // A problem in a message's words: "not hex pairs", "not a number or missing value",
    // "not read by ANYDTDTE".
    std::string describe(FieldProblem problem) const;

private:
    void parseValues(std::span<const std::string_view> texts, ConvertedFields& out) const;
    void readTexts(std::span<const std::string_view> texts, ConvertedFields& out, int threads) const;
    void writeFields(ConvertedFields& out, int threads) const;
    void printValues(ConvertedFields& out) const;
    void appendField(const char* field, std::string& out) const;

    ResolvedSpec<InformatEntry> informat_;  // entry nullptr: the texts are values
    ResolvedSpec<FormatEntry> format_;      // entry nullptr: the value read is printed
    KindStep step_ = KindStep::AS_IS;
    bool hexInput_ = false;
    bool hexOutput_ = false;
};

}  // namespace kivodt
