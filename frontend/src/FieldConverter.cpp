#include "kivodt/FieldConverter.h"

#include <cstring>

#include "kivodt/Batch.h"
#include "kivodt/ConvertedFields.h"
#include "kivodt/Values.h"
#include "kivox/Missing.h"

namespace kivodt {

namespace {

bool refuseBytesAsText(const ResolvedSpec<FormatEntry>& format, bool hexOutput, std::string& error) {
    if (format.entry->writesBytes && !hexOutput) {
        error = std::string(format.entry->name) + " writes bytes, not text: run it with --hex or --hex-out";
        return true;
    }
    return false;
}

}  // namespace

bool FieldConverter::formatting(const ResolvedSpec<FormatEntry>& format, bool hexOutput, FieldConverter& converter,
                                std::string& error) {
    if (refuseBytesAsText(format, hexOutput, error)) {
        return false;
    }
    converter = FieldConverter{};
    converter.format_ = format;
    converter.hexOutput_ = hexOutput;
    return true;
}

FieldConverter FieldConverter::reading(const ResolvedSpec<InformatEntry>& informat, bool hexInput) {
    FieldConverter converter;
    converter.informat_ = informat;
    converter.hexInput_ = hexInput;
    return converter;
}

bool FieldConverter::converting(const ResolvedSpec<InformatEntry>& informat, const ResolvedSpec<FormatEntry>& format,
                                bool hexInput, bool hexOutput, FieldConverter& converter, std::string& error) {
    if (informat.entry->readsBytes && !hexInput) {
        error = std::string(informat.entry->name) + " reads bytes, not text: run it with --hex or --hex-in";
        return false;
    }
    const KindStep step = kindStep(informat.entry->kind, format.entry->kind);
    if (step == KindStep::REFUSED) {
        error = std::string(informat.entry->name) + " reads " + kindName(informat.entry->kind) + ", which " +
                std::string(format.entry->name) + " cannot show (it shows " + kindName(format.entry->kind) + ")";
        return false;
    }
    if (!formatting(format, hexOutput, converter, error)) {
        return false;
    }
    converter.informat_ = informat;
    converter.step_ = step;
    converter.hexInput_ = hexInput;
    return true;
}

void FieldConverter::convert(std::span<const std::string_view> texts, ConvertedFields& out, int threads) const {
    out.problems_.assign(texts.size(), FieldProblem::NONE);
    out.values_.assign(texts.size(), kivo::lum_numeric::MISSING);
    if (informat_.entry == nullptr) {
        parseValues(texts, out);
    } else {
        readTexts(texts, out, threads);
    }
    out.bytes_.clear();
    out.ends_.clear();
    if (format_.entry == nullptr) {
        printValues(out);
    } else {
        writeFields(out, threads);
    }
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

void FieldConverter::parseValues(std::span<const std::string_view> texts, ConvertedFields& out) const {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (!parseValue(texts[i], out.values_[i])) {
            out.problems_[i] = FieldProblem::NOT_A_VALUE;
        }
    }
}

// A text that is not hex pairs takes an empty place in the column, so that indexes stay the texts'.
void FieldConverter::readTexts(std::span<const std::string_view> texts, ConvertedFields& out, int threads) const {
    out.column_.clear();
    out.offsets_.assign(1, 0);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (!hexInput_) {
            out.column_.append(texts[i]);
        } else if (decodeHex(texts[i], out.decoded_)) {
            out.column_.append(out.decoded_);
        } else {
            out.problems_[i] = FieldProblem::NOT_HEX;
        }
        out.offsets_.push_back(out.column_.size());
    }
    out.accepted_.assign(texts.size(), 0);
    informatBatch(*informat_.entry, informat_.widthGiven ? informat_.width : WHOLE_TEXT, informat_.decimals,
                  {out.column_.data(), out.offsets_}, out.values_, out.accepted_, threads);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (out.accepted_[i] == 0 && out.problems_[i] == FieldProblem::NONE) {
            out.problems_[i] = FieldProblem::REJECTED;
        }
        out.values_[i] = applyKindStep(step_, out.values_[i]);
    }
}

void FieldConverter::writeFields(ConvertedFields& out, int threads) const {
    const auto width = static_cast<std::size_t>(format_.width);
    out.fields_.resize(out.values_.size() * width);
    formatBatch(*format_.entry, format_.width, format_.decimals, out.values_, out.fields_.data(), threads);
    char blanks[MAX_FIELD];
    std::memset(blanks, ' ', sizeof blanks);
    for (std::size_t i = 0; i < out.values_.size(); ++i) {
        appendField(out.problems_[i] == FieldProblem::NONE ? out.fields_.data() + i * width : blanks, out.bytes_);
        out.ends_.push_back(out.bytes_.size());
    }
}

void FieldConverter::printValues(ConvertedFields& out) const {
    for (std::size_t i = 0; i < out.values_.size(); ++i) {
        if (out.problems_[i] == FieldProblem::NONE) {
            char printed[32];
            out.bytes_.append(printed, printValue(out.values_[i], printed));
        }
        out.ends_.push_back(out.bytes_.size());
    }
}

// The field's bytes, or their hex pairs.
void FieldConverter::appendField(const char* field, std::string& out) const {
    const auto width = static_cast<std::size_t>(format_.width);
    if (!hexOutput_) {
        out.append(field, width);
        return;
    }
    char hex[2 * MAX_FIELD];
    encodeHex(field, width, hex);
    out.append(hex, 2 * width);
}

}  // namespace kivodt
