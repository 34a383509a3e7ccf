#include "kivodt/FieldConverter.h"

#include <cstring>

#include "kivodt/Values.h"
#include "kivox/Missing.h"

namespace kivodt {

bool readWithInformat(const ResolvedSpec<InformatEntry>& spec, std::string_view text, std::string& field,
                      double& result) {
    const std::size_t fieldLength =
        spec.widthGiven && text.size() > static_cast<std::size_t>(spec.width) ? spec.width : text.size();
    field.assign(text.substr(0, fieldLength));
    result = kivo::lum_numeric::MISSING;
    return spec.entry->function(field.data(), static_cast<int>(fieldLength), static_cast<int>(text.size()),
                                spec.decimals, &result) != 0;
}

FieldConverter FieldConverter::formatting(const ResolvedSpec<FormatEntry>& format, bool hexOutput) {
    FieldConverter converter;
    converter.format_ = format;
    converter.hexOutput_ = hexOutput;
    return converter;
}

FieldConverter FieldConverter::reading(const ResolvedSpec<InformatEntry>& informat, bool hexInput) {
    FieldConverter converter;
    converter.informat_ = informat;
    converter.hexInput_ = hexInput;
    return converter;
}

bool FieldConverter::converting(const ResolvedSpec<InformatEntry>& informat, const ResolvedSpec<FormatEntry>& format,
                                bool hexInput, bool hexOutput, FieldConverter& converter, std::string& error) {
    const KindStep step = kindStep(informat.entry->kind, format.entry->kind);
    if (step == KindStep::REFUSED) {
        error = std::string(informat.entry->name) + " reads " + kindName(informat.entry->kind) + ", which " +
                std::string(format.entry->name) + " cannot show (it shows " + kindName(format.entry->kind) + ")";
        return false;
    }
    converter = FieldConverter{};
    converter.informat_ = informat;
    converter.format_ = format;
    converter.step_ = step;
    converter.hexInput_ = hexInput;
    converter.hexOutput_ = hexOutput;
    return true;
}

FieldProblem FieldConverter::convert(std::string_view text, std::string& out, FieldScratch& scratch) const {
    double value = 0;
    const FieldProblem problem = read(text, scratch, value);
    if (problem != FieldProblem::NONE) {
        writeBlank(out);
        return problem;
    }
    if (format_.entry == nullptr) {
        char printed[32];
        out.append(printed, printValue(value, printed));
        return FieldProblem::NONE;
    }
    char field[MAX_FIELD];
    format_.entry->function(field, format_.width, format_.decimals, applyKindStep(step_, value));
    append(field, out);
    return FieldProblem::NONE;
}

std::string FieldConverter::describe(FieldProblem problem) const {
    switch (problem) {
        case FieldProblem::NOT_HEX:
            return "not hex pairs";
        case FieldProblem::NOT_A_VALUE:
            return "not a number or missing value";
        case FieldProblem::REJECTED:
            return "not read by " + std::string(informat_.entry->name);
        case FieldProblem::NONE:
            break;
    }
    return "";
}

FieldProblem FieldConverter::read(std::string_view text, FieldScratch& scratch, double& value) const {
    if (informat_.entry == nullptr) {
        return parseValue(text, value) ? FieldProblem::NONE : FieldProblem::NOT_A_VALUE;
    }
    if (hexInput_) {
        if (!decodeHex(text, scratch.decoded)) {
            return FieldProblem::NOT_HEX;
        }
        text = scratch.decoded;
    }
    return readWithInformat(informat_, text, scratch.field, value) ? FieldProblem::NONE : FieldProblem::REJECTED;
}

// The field's bytes, or their hex pairs.
void FieldConverter::append(const char* field, std::string& out) const {
    const auto width = static_cast<std::size_t>(format_.width);
    if (!hexOutput_) {
        out.append(field, width);
        return;
    }
    char hex[2 * MAX_FIELD];
    encodeHex(field, width, hex);
    out.append(hex, 2 * width);
}

void FieldConverter::writeBlank(std::string& out) const {
    if (format_.entry != nullptr) {
        char blanks[MAX_FIELD];
        std::memset(blanks, ' ', sizeof blanks);
        append(blanks, out);
    }
}

}  // namespace kivodt
